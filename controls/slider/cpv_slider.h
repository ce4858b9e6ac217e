#pragma once

#include "controls/slider/slider_geometry.h"
#include "platform/widgets/control_widget.h"

namespace vistrel
{

/// Lets the user pick a whole number between Min and Max by dragging a thumb along a rail; presses beside the
/// thumb, keys and the wheel do nothing. While the thumb is dragged a tip shows the value. Coordinates are
/// pixels of the surface, fractions of which the thumb keeps.
///
/// Numbers are held in 16 bits. Setters report their property through propertyChanged(). A number that a
/// setter cannot take is a RuntimeError, InvalidPropertyValue for one out of range and Overflow for one that
/// does not fit in 16 bits, and changes nothing.
class cpvSlider : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(vistrel::Color BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(qint32 Max READ Max WRITE setMax)
    Q_PROPERTY(qint32 Min READ Min WRITE setMin)
    Q_PROPERTY(qint32 Value READ Value WRITE setValue)
    Q_PROPERTY(qint32 Orientation READ Orientation WRITE setOrientation)
    Q_PROPERTY(qint32 RailStyle READ RailStyle WRITE setRailStyle)
    Q_PROPERTY(vistrel::Picture SliderIcon READ SliderIcon WRITE setSliderIcon)
    Q_PROPERTY(vistrel::Picture RailPicture READ RailPicture WRITE setRailPicture)
    Q_PROPERTY(bool ShowValueTip READ ShowValueTip WRITE setShowValueTip)

public:
    explicit cpvSlider(QWidget* parent = nullptr);

    void InitProperties() override;
    /// Takes the numbers as they are. A range of more than 32767 is an Overflow.
    void ReadProperties(const PropertyBag& bag) override;
    /// The thumb that a new slider comes with is not saved; loading nothing gives a slider without thumb.
    void WriteProperties(PropertyBag& bag) const override;

    /// Whether a drag may start. Nothing else depends on it, not even the look.
    [[nodiscard]] bool Enabled() const { return m_Enabled; }
    void setEnabled(bool New_Enabled);
    [[nodiscard]] Color BackColor() const { return surface().backColor(); }
    void setBackColor(Color New_BackColor);
    /// Must be above Min. Value may stay beyond it, and the thumb where it is, until the next change.
    [[nodiscard]] qint32 Max() const { return m_range.Max; }
    void setMax(qint32 New_Max);
    /// Must be below Max. Setting it also sets Value, to the same number.
    [[nodiscard]] qint32 Min() const { return m_range.Min; }
    void setMin(qint32 New_Min);
    /// Must be in the range. Events and redrawing follow where it differs from the last value that was set,
    /// 0 at first and not touched by loading.
    [[nodiscard]] qint32 Value() const { return m_Value; }
    void setValue(qint32 New_Value);
    /// 0 horizontal, 1 vertical, with Max at the top. With any other number the slider cannot be used.
    [[nodiscard]] qint32 Orientation() const { return m_Orientation; }
    void setOrientation(qint32 New_Orientation);
    /// A drawn rail, see railBorders(), or pictureRailStyle. A slider is as thick as its thumb or its rail
    /// picture, and as long as its rail picture where that is shown.
    [[nodiscard]] qint32 RailStyle() const { return m_RailStyle; }
    void setRailStyle(qint32 New_RailStyle);
    [[nodiscard]] const Picture& SliderIcon() const { return m_sliderIcon; }
    void setSliderIcon(const Picture& New_SliderIcon);
    [[nodiscard]] const Picture& RailPicture() const { return m_iRailPicture; }
    void setRailPicture(const Picture& New_RailPicture);
    [[nodiscard]] bool ShowValueTip() const { return m_ShowValueTip; }
    void setShowValueTip(bool New_ShowValueTip);

    /// The thumb, where it is now.
    [[nodiscard]] QRectF thumb() const;

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;
    /// Numbers out of range, and any while Enabled is false, are ignored.
    void setAccessibleNumber(int number) override;

Q_SIGNALS:
    /// The left button was released over the thumb, dragged or not.
    void Click();
    /// After ValueChanged, when the new value is Min, or Max.
    void ArrivedFirst();
    void ArrivedLast();
    void ValueChanged();
    /// A drag starts.
    void MouseDown(qint16& Shift);
    /// A drag ends, with the release of any button.
    void MouseUp(qint16& Shift);

protected:
    void surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceMouseMove(qint16 Button, qint16 Shift, float X, float Y) override;
    void surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y) override;
    bool event(QEvent* event) override;
    void surfaceResize() override;
    void showEvent(QShowEvent* event) override;

private:
    [[nodiscard]] SliderParts parts() const;
    [[nodiscard]] bool thumbHolds(float X, float Y) const;
    float& thumbPosition();
    void placeThumb(qint32 value);
    void dragTo(float position);
    void endDrag(qint16 Shift);
    qint16 ValueFromPosition();
    void ResetThumb();
    void Resize();
    void DrawSlider();
    void drawRail();
    void ShowTip();

    SliderRange m_range{0, 10};
    qint16 m_Value = 0;
    qint16 m_LastValue = 0; // What setValue() took last.
    bool m_Enabled = true;
    qint32 m_Orientation = verticalOrientation;
    qint32 m_RailStyle = 0;
    bool m_ShowValueTip = true;
    bool m_Dragging = false;
    float m_GrabX = 0; // Where in the thumb the pointer took it.
    float m_GrabY = 0;
    float m_thumbLeft = 0;
    float m_thumbTop = 0;
    QRect m_RailRect;
    Picture m_sliderIcon;
    Picture m_iRailPicture;
};

} // namespace vistrel
