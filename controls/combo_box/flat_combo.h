#pragma once

#include <QComboBox>

namespace vistrel
{

/// A combo box to pick an item from, drawn flat: of itself it shows the selected item only, without border
/// and arrow. Its list opens below its frame. Only a box with the focus follows the wheel.
class FlatCombo : public QComboBox
{
public:
    explicit FlatCombo(QWidget* parent);

    /// What its container shows of the box, in the box's coordinates: frame is the container's outline, of
    /// one pixel, field the area for the text.
    void showWithin(const QRect& frame, const QRect& field);
    [[nodiscard]] const QRect& frame() const { return m_frame; }

    /// A locked box opens its list, but the user cannot change the selection.
    [[nodiscard]] bool isLocked() const { return m_isLocked; }
    void setLocked(bool locked) { m_isLocked = locked; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QRect m_frame;
    QRect m_field;
    bool m_isLocked = false;
};

} // namespace vistrel
