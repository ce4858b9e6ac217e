#pragma once

#include "controls/text_line/line_layout.h"
#include "platform/widgets/control_widget.h"

namespace vistrel
{

class EditField;

/// A one-line text box in a flat one-pixel frame. With HoverEffect the frame is hidden while the pointer is
/// over the field or the field has the focus. Most properties and all events are those of the edit field
/// inside, the child widget "txtText"; every setter reports its property through propertyChanged().
class TextLine : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(vistrel::Color ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(vistrel::Font Font READ Font WRITE setFont)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(qint32 MaxLength READ MaxLength WRITE setMaxLength)
    Q_PROPERTY(qint16 MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(vistrel::Picture MouseIcon READ MouseIcon WRITE setMouseIcon)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText)
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(QString ToolTipText READ ToolTipText WRITE setToolTipText)
    Q_PROPERTY(qint32 WhatsThisHelpID READ WhatsThisHelpID WRITE setWhatsThisHelpID)
    Q_PROPERTY(vistrel::Color BorderColor READ BorderColor WRITE setBorderColor)
    Q_PROPERTY(bool HoverEffect READ HoverEffect WRITE setHoverEffect)
    Q_PROPERTY(vistrel::Color BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QString ScrollBars READ ScrollBars)

public:
    /// 100 x 17 pixels.
    explicit TextLine(QWidget* parent = nullptr);
    ~TextLine() override;

    /// An instance made this way while the host runs keeps its frame for good.
    void InitProperties() override;
    /// "BackColor" is the field's background; its low 16 bits (signed) also become the BackColor property.
    /// "ScrollBars" holds the text once more and has the last word, also when it is missing.
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    [[nodiscard]] Color ForeColor() const { return m_foreColor; }
    void setForeColor(Color New_ForeColor);
    /// The field's own; the form's QWidget::setEnabled() is apart from it.
    [[nodiscard]] bool Enabled() const;
    void setEnabled(bool New_Enabled);
    [[nodiscard]] const vistrel::Font& Font() const { return m_font; }
    void setFont(const vistrel::Font& New_Font);

    /// Repaints the edit field.
    void Refresh();

    /// What stands for the control's device context: the surface that it draws on.
    [[nodiscard]] const Surface* hdc() const { return &surface(); }

    /// The user cannot change the text.
    [[nodiscard]] bool Locked() const;
    void setLocked(bool New_Locked);
    /// In characters; 0 is no limit. A longer text is cut. Below 0: InvalidPropertyValue.
    [[nodiscard]] qint32 MaxLength() const;
    void setMaxLength(qint32 New_MaxLength);
    /// See pointerShape(), also for its error.
    [[nodiscard]] qint16 MousePointer() const { return m_mousePointer; }
    void setMousePointer(qint16 New_MousePointer);
    [[nodiscard]] const vistrel::Picture& MouseIcon() const { return m_mouseIcon; }
    void setMouseIcon(const vistrel::Picture& New_MouseIcon);
    /// The selection, or the caret where nothing is selected. A start or length beyond the text's end is cut;
    /// below 0: InvalidPropertyValue. Setting SelStart selects nothing, setting SelText replaces the
    /// selection.
    [[nodiscard]] qint32 SelLength() const;
    void setSelLength(qint32 New_SelLength);
    [[nodiscard]] qint32 SelStart() const;
    void setSelStart(qint32 New_SelStart);
    [[nodiscard]] QString SelText() const;
    void setSelText(const QString& New_SelText);
    /// Setting it puts the caret at the start.
    [[nodiscard]] QString Text() const;
    void setText(const QString& New_Text);
    [[nodiscard]] QString ToolTipText() const;
    void setToolTipText(const QString& New_ToolTipText);
    /// Only kept: there is no help by number.
    [[nodiscard]] qint32 WhatsThisHelpID() const { return m_whatsThisHelpID; }
    void setWhatsThisHelpID(qint32 New_WhatsThisHelpID);
    /// Background of the margin around the field, where no frame line lies.
    [[nodiscard]] Color BorderColor() const { return surface().backColor(); }
    void setBorderColor(Color New_BorderColor);
    [[nodiscard]] bool HoverEffect() const { return m_hoverEffect; }
    void setHoverEffect(bool New_HoverEffect);
    /// Only kept: the field's background comes from the property bag alone.
    [[nodiscard]] Color BackColor() const { return m_backColor; }
    void setBackColor(Color New_BackColor);
    /// Always "0", none.
    [[nodiscard]] QString ScrollBars() const;

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;

Q_SIGNALS:
    // The edit field's, see EditField for the arguments. Change comes with every change of the text, also by
    // code.
    void Click();
    void DblClick();
    void KeyDown(qint16& KeyCode, qint16& Shift);
    void KeyPress(qint16& KeyAscii);
    void KeyUp(qint16& KeyCode, qint16& Shift);
    void MouseDown(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseMove(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseUp(qint16& Button, qint16& Shift, float& X, float& Y);
    void Change();
    /// Before the control lays itself out in its new size, and once more if it corrects that size.
    void Resize();
    /// The pointer enters the field, or the field gets the focus; MouseOut: it leaves, or the focus goes.
    /// While the field has the focus the pointer raises neither.
    void MouseOver();
    void MouseOut();

protected:
    void surfaceResize() override;
    void showEvent(QShowEvent* event) override;

private:
    void forwardEvents();
    void trackPointer(bool isInside);
    void HoverEnter();
    void HoverLeave();
    void ShowFrame(bool visible);
    void drawLines();
    void applyColors();
    void limitLength(qint32 characters);
    void usePointer(qint16 MousePointer);
    void select(qint32 start, qint32 length);
    void setFieldText(const QString& text);

    EditField* m_txtText;
    const float m_tppX;
    const float m_tppY;
    TextLineLayout m_layout;
    bool m_frameVisible = true;
    bool m_createdAtRunTime = false;
    bool m_hasFocus = false;
    bool m_isTracking = false; // The pointer is over the field, and the move that leaves it is awaited.
    bool m_hoverEffect = false;
    Color m_backColor;
    Color m_fieldColor = Color::system(SystemColor::Window);
    Color m_foreColor = Color::system(SystemColor::WindowText);
    vistrel::Font m_font;
    qint16 m_mousePointer = 0;
    vistrel::Picture m_mouseIcon;
    qint32 m_whatsThisHelpID = 0;
};

} // namespace vistrel
