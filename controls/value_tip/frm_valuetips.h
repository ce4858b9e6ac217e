#pragma once

#include "controls/value_tip/tip_geometry.h"
#include "platform/drawing/surface.h"

#include <QLabel>
#include <QWidget>

namespace vistrel
{

/// The little window that shows a slider's value beside its thumb. There is at most one in the program. It
/// never takes the focus, and it leaves the screen with the slider that it was made for.
class frmValuetips : public QWidget
{
    Q_OBJECT

public:
    /// The program's tip, made now for slider if there is none.
    static frmValuetips& instance(QWidget& slider);
    /// Destroys the tip; nothing happens when there is none.
    static void Close();

    /// Puts value into the label, the window beside the thumb and on top, without activating it.
    void showValue(qint32 value, const TipAnchor& anchor);

    /// What the window has drawn behind its label.
    [[nodiscard]] const Surface& surface() const { return m_surface; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    explicit frmValuetips(QWidget& slider);
    void Form_Resize();

    Surface m_surface;
    QLabel* m_lblTip;
};

} // namespace vistrel
