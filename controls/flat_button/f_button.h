#pragma once

#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// A flat push button with a caption, a picture or both. It lights up with a raised frame while the pointer
/// is over it and sinks while a mouse button is held on it. No key does anything to it.
///
/// Every setter reports its property through propertyChanged(); all but Caption's repaint. Sizes and
/// positions are twips. By-reference arguments of the events: what a handler leaves in X and Y is what the
/// button goes by.
class FButton : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(bool IfDraw READ IfDraw WRITE setIfDraw)
    Q_PROPERTY(vistrel::Color BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(vistrel::Color ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(vistrel::Color MouseOnColor READ MouseOnColor WRITE setMouseOnColor)
    Q_PROPERTY(vistrel::Color MouseDownColor READ MouseDownColor WRITE setMouseDownColor)
    Q_PROPERTY(vistrel::Color Style3DColor1 READ Style3DColor1 WRITE setStyle3DColor1)
    Q_PROPERTY(vistrel::Color Style3DColor2 READ Style3DColor2 WRITE setStyle3DColor2)
    Q_PROPERTY(vistrel::Color StyleColor READ StyleColor WRITE setStyleColor)
    Q_PROPERTY(vistrel::Picture Picture READ Picture WRITE setPicture)
    Q_PROPERTY(qint32 style READ style WRITE setStyle)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(vistrel::Font Font READ Font WRITE setFont)
    Q_PROPERTY(vistrel::Color HovForceColor READ HovForceColor WRITE setHovForceColor)

public:
    explicit FButton(QWidget* parent = nullptr);

    void InitProperties() override;
    /// A missing "Caption" reads as "Flat Button", though "Flash Button" is the one that is not saved.
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    /// Whether a permanent outline in StyleColor is drawn.
    [[nodiscard]] bool IfDraw() const { return m_ifDraw; }
    void setIfDraw(bool New_IfDraw);
    /// Setting it also replaces the background of a lit or pressed button at once.
    [[nodiscard]] Color BackColor() const { return surface().backColor(); }
    void setBackColor(Color New_BackColor);
    /// Caption colour at rest and while pressed.
    [[nodiscard]] Color ForeColor() const { return surface().foreColor(); }
    void setForeColor(Color New_ForeColor);
    /// Background under the pointer. 0 (black) shows BackColor.
    [[nodiscard]] Color MouseOnColor() const { return m_mouseOnColor; }
    void setMouseOnColor(Color New_MouseOnColor);
    /// Background while a mouse button is held. 0 (black) shows BackColor.
    [[nodiscard]] Color MouseDownColor() const { return m_mouseDownColor; }
    void setMouseDownColor(Color New_MouseDownColor);
    /// Light and dark edge of the frames.
    [[nodiscard]] Color Style3DColor1() const { return m_style3DColor1; }
    void setStyle3DColor1(Color New_Style3DColor1);
    [[nodiscard]] Color Style3DColor2() const { return m_style3DColor2; }
    void setStyle3DColor2(Color New_Style3DColor2);
    [[nodiscard]] Color StyleColor() const { return m_styleColor; }
    void setStyleColor(Color New_StyleColor);
    [[nodiscard]] const vistrel::Picture& Picture() const { return m_picture; }
    void setPicture(const vistrel::Picture& New_Picture);
    /// Arrangement of picture and caption, see arrangeButton().
    [[nodiscard]] qint32 style() const { return m_style; }
    void setStyle(qint32 New_style);
    /// The button's own flag: without it the caption is embossed and there is no mouse input. The form's
    /// QWidget::setEnabled() stops the input alone.
    [[nodiscard]] bool Enabled() const { return surfaceEnabled(); }
    void setEnabled(bool New_Enabled);
    /// A new caption shows at the next repaint.
    [[nodiscard]] const QString& Caption() const { return m_caption; }
    void setCaption(const QString& New_Caption);
    [[nodiscard]] const vistrel::Font& Font() const { return surface().font(); }
    void setFont(const vistrel::Font& New_Font);

    /// Back to the look at rest.
    void Undown();
    /// Repaints without frame lines; the caption in ForeColor, or, with normal false, in HovForceColor.
    void SetButton(const bool& normal);

    /// Caption colour under the pointer.
    [[nodiscard]] Color HovForceColor() const { return m_hovForceColor; }
    void setHovForceColor(Color New_HovForceColor);

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;
    /// Raises Click.
    void accessiblePress() override;

Q_SIGNALS:
    /// Left press and release over the button; after MouseUp.
    void Click();
    // Each is raised before the button does anything about it.
    void MouseDown(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseMove(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseUp(qint16& Button, qint16& Shift, float& X, float& Y);

protected:
    void surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceMouseMove(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceMouseLeave(qint16 Shift, float X, float Y) override;
    void surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceClick() override;
    void surfaceResize() override;

private:
    template<typename T>
    void change(T& field, const T& value, const QString& property);
    void changed(const QString& property);
    void paintPictureAndCaption();
    void paintFrame(Color leftTop, Color rightBottom);

    QString m_caption;
    vistrel::Picture m_picture;
    qint32 m_style = 0;
    bool m_ifDraw = false;
    bool m_hoverOn = false; // The lit look is shown; the move that leaves the button is awaited.
    Color m_mouseOnColor;
    Color m_mouseDownColor;
    Color m_styleColor;
    Color m_curBackColor; // What the next repaint fills with; 0 stands for BackColor.
    Color m_style3DColor1;
    Color m_style3DColor2;
    Color m_hovForceColor;
};

} // namespace vistrel
