#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

class ListEdit;

/// A text box of many lines, which are never wrapped, in a one-pixel frame. The edit field inside is the
/// child widget "txtText". Made for texts of 100,000 lines and more.
class TextBox : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)

public:
    explicit TextBox(QWidget* parent = nullptr);

    /// Empty, in the window colours and the ambient font, the frame in button shadow.
    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    /// The whole text, its lines separated by "\r\n".
    [[nodiscard]] QString Text() const;
    /// Takes "\r\n", "\n" and "\r" for line breaks. A text that only adds to the present one keeps caret,
    /// scroll position and undo history; any other one puts the caret at the start.
    void setText(const QString& New_Text);
    /// The caret's position in Text().
    [[nodiscard]] qint32 SelStart() const;
    void moveCaretToEnd();

Q_SIGNALS:
    /// Files were dropped on the box, or pasted: their full paths. The text did not change.
    void filesDropped(const QStringList& paths);

protected:
    void surfaceResize() override;

private:
    ListEdit* m_txtText;
    Color m_borderColor;
    Color m_backColor;
    Color m_foreColor;
    Font m_font;
};

} // namespace vistrel
