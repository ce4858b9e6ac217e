#pragma once

#include "controls/check_button/check_glyphs.h"
#include "controls/check_button/check_layout.h"
#include "platform/widgets/control_widget.h"

class QTimer;

namespace vistrel
{

/// A check box, or, with round glyphs, an option button that still stands alone: every click flips Value and
/// touches no sibling. Under the pointer the caption takes the hot colour and the glyph its hover look; a
/// timer that runs while the pointer is over the button notices that it has left. No key does anything to it.
///
/// Each setter reports its property through propertyChanged() but Enabled's. Positions are twips.
class Coolradiobutton : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(qint32 BtnType READ BtnType WRITE setBtnType)
    Q_PROPERTY(bool Value READ Value WRITE setValue)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(vistrel::Font Font READ Font WRITE setFont)
    Q_PROPERTY(vistrel::Color BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(vistrel::Color ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(vistrel::Color HotColor READ HotColor WRITE setHotColor)
    Q_PROPERTY(qint16 MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(vistrel::Picture MouseIcon READ MouseIcon WRITE setMouseIcon)
    Q_PROPERTY(bool HotUnderLine READ HotUnderLine WRITE setHotUnderLine)

public:
    explicit Coolradiobutton(QWidget* parent = nullptr);

    void InitProperties() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    /// 2 shows square glyphs, any other value round ones.
    [[nodiscard]] qint32 BtnType() const { return m_BtnType; }
    void setBtnType(qint32 New_BtnType);
    /// Setting it raises no event.
    [[nodiscard]] bool Value() const { return m_Value; }
    void setValue(bool New_Value);
    /// The instance's name, until it is set.
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void setCaption(const QString& New_Caption);
    /// Without it there is a look of its own, and no mouse and key input.
    [[nodiscard]] bool Enabled() const { return surfaceEnabled(); }
    void setEnabled(bool New_Enabled);
    [[nodiscard]] const vistrel::Font& Font() const { return m_Font; }
    void setFont(const vistrel::Font& New_Font);
    [[nodiscard]] Color BackColor() const { return m_BackColor; }
    void setBackColor(Color New_BackColor);
    /// The caption's colour away from the pointer.
    [[nodiscard]] Color ForeColor() const { return m_ForeColor; }
    void setForeColor(Color New_ForeColor);
    /// The caption's colour under the pointer. Takes effect with the pointer's next move.
    [[nodiscard]] Color HotColor() const { return m_HotColor; }
    void setHotColor(Color New_HotColor);
    /// See pointerShape(), also for its error.
    [[nodiscard]] qint16 MousePointer() const { return m_mousePointer; }
    void setMousePointer(qint16 New_MousePointer);
    [[nodiscard]] const vistrel::Picture& MouseIcon() const { return m_mouseIcon; }
    void setMouseIcon(const vistrel::Picture& New_MouseIcon);
    /// Whether the caption is underlined under the pointer.
    [[nodiscard]] bool HotUnderLine() const { return m_HotUnderLine; }
    void setHotUnderLine(bool New_HotUnderLine);

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;
    /// The same as a click.
    void accessiblePress() override;

Q_SIGNALS:
    /// Left press and release over the button. A handler still reads the Value from before the click.
    void Click();
    void KeyDown(qint16& KeyCode, qint16& Shift);
    void KeyPress(qint16& KeyAscii);
    void KeyUp(qint16& KeyCode, qint16& Shift);
    /// The pointer has left; also 10 ms after creation when it was never there.
    void MouseOut();
    /// Presses and releases over the caption or the glyph's box count from that part's corner.
    void MouseDown(qint16& Button, qint16& Shift, float& X, float& Y);
    /// Only for moves inside, far edges included. Over the caption or the glyph's box (X, Y) is that part's
    /// corner.
    void MouseMove(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseUp(qint16& Button, qint16& Shift, float& X, float& Y);

protected:
    void surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceMouseMove(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceClick() override;
    void surfaceKeyDown(qint16& KeyCode, qint16& Shift) override;
    void surfaceKeyPress(qint16& KeyAscii) override;
    void surfaceKeyUp(qint16& KeyCode, qint16& Shift) override;
    void surfaceResize() override;

private:
    using MouseSignal = void (Coolradiobutton::*)(qint16&, qint16&, float&, float&);

    [[nodiscard]] CheckLayout layout() const;
    void raiseFromPart(MouseSignal signal, qint16 Button, qint16 Shift, float X, float Y);
    void ShowNormalGlyph();
    void ShowDisabledGlyph();
    void showGlyph(CheckLook look);
    void showRestingColor();
    void noticeLeaving();
    void usePointer(qint16 MousePointer);
    void paint();

    vistrel::Picture m_p; // The glyph that is shown.
    QString m_caption;
    vistrel::Font m_captionFont; // m_Font, but for the underline.
    Color m_captionColor;
    QTimer* m_Timer1;
    bool m_Value = false;
    qint32 m_BtnType = 0;
    Color m_HotColor;
    bool m_HotUnderLine = false;
    Color m_ForeColor;
    Color m_BackColor;
    vistrel::Font m_Font;
    qint16 m_mousePointer = 0;
    vistrel::Picture m_mouseIcon;
};

} // namespace vistrel
