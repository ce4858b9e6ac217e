#include "controls/slider/cpv_slider.h"

#include "controls/slider/thumb_icon.h"
#include "controls/value_tip/frm_valuetips.h"
#include "platform/drawing/rounding.h"
#include "platform/runtime_error.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);
constexpr SliderRange designRange{0, 10};
constexpr float railInset = 2;
constexpr qint16 leftButton = 1;

// Both ends and what lies between must fit in 16 bits.
SliderRange checkedRange(qint32 Min, qint32 Max)
{
    const SliderRange range{roundToInt16(Min), roundToInt16(Max)};
    roundToInt16(range.span());
    return range;
}

} // namespace

cpvSlider::cpvSlider(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent), m_sliderIcon(thumbIcon())
{
    setFocusPolicy(Qt::StrongFocus);
}

void cpvSlider::InitProperties()
{
    m_Enabled = true;
    m_Orientation = verticalOrientation;
    m_RailStyle = 0;
    m_ShowValueTip = true;
    m_range = designRange;
    m_Value = 0;
    ResetThumb();
}

void cpvSlider::ReadProperties(const PropertyBag& bag)
{
    drawingSurface().setBackColor(bag.readColor(u"BackColor"_s, buttonFace));
    m_Enabled = bag.readBool(u"Enabled"_s, true);
    m_Orientation = bag.readInt16(u"Orientation"_s, verticalOrientation);
    m_RailStyle = bag.readInt16(u"RailStyle"_s, 0);
    m_ShowValueTip = bag.readBool(u"ShowValueTip"_s, true);
    m_range =
        checkedRange(bag.readInt16(u"Min"_s, designRange.Min), bag.readInt16(u"Max"_s, designRange.Max));
    m_Value = bag.readInt16(u"Value"_s, 0);
    m_sliderIcon = bag.readPicture(u"SliderIcon"_s);
    m_iRailPicture = bag.readPicture(u"RailPicture"_s);
    SliderParts both = parts();
    both.orientation = horizontalOrientation;
    m_thumbLeft = thumbAlong(both, m_range, m_Value).value_or(m_thumbLeft);
    both.orientation = verticalOrientation;
    m_thumbTop = thumbAlong(both, m_range, m_Value).value_or(m_thumbTop);
}

void cpvSlider::WriteProperties(PropertyBag& bag) const
{
    bag.writeColor(u"BackColor"_s, BackColor(), buttonFace);
    bag.writeBool(u"Enabled"_s, m_Enabled, true);
    bag.writePicture(u"SliderIcon"_s, m_sliderIcon);
    bag.writeInt32(u"Orientation"_s, m_Orientation, verticalOrientation);
    bag.writePicture(u"RailPicture"_s, m_iRailPicture);
    bag.writeInt32(u"RailStyle"_s, m_RailStyle, 0);
    bag.writeBool(u"ShowValueTip"_s, m_ShowValueTip, true);
    bag.writeInt32(u"Min"_s, m_range.Min, designRange.Min);
    bag.writeInt32(u"Max"_s, m_range.Max, designRange.Max);
    bag.writeInt32(u"Value"_s, m_Value, 0);
}

void cpvSlider::setEnabled(bool New_Enabled)
{
    m_Enabled = New_Enabled;
    Q_EMIT propertyChanged(u"Enabled"_s);
}

void cpvSlider::setBackColor(Color New_BackColor)
{
    drawingSurface().setBackColor(New_BackColor);
    DrawSlider();
    Q_EMIT propertyChanged(u"BackColor"_s);
}

void cpvSlider::setMax(qint32 New_Max)
{
    if (New_Max <= m_range.Min) throw RuntimeError(RuntimeError::Number::InvalidPropertyValue);
    m_range = checkedRange(m_range.Min, New_Max);
    Q_EMIT propertyChanged(u"Max"_s);
}

void cpvSlider::setMin(qint32 New_Min)
{
    if (New_Min >= m_range.Max) throw RuntimeError(RuntimeError::Number::InvalidPropertyValue);
    m_range = checkedRange(New_Min, m_range.Max);
    setValue(New_Min);
    Q_EMIT propertyChanged(u"Min"_s);
}

void cpvSlider::setValue(qint32 New_Value)
{
    if (New_Value < m_range.Min || New_Value > m_range.Max)
        throw RuntimeError(RuntimeError::Number::InvalidPropertyValue);
    m_Value = static_cast<qint16>(New_Value);
    if (m_Value != m_LastValue) {
        if (!m_Dragging) placeThumb(m_Value);
        DrawSlider();
        m_LastValue = m_Value;
        QAccessibleValueChangeEvent event(this, Value());
        QAccessible::updateAccessibility(&event);
        Q_EMIT ValueChanged();
        if (m_Value == m_range.Max) Q_EMIT ArrivedLast();
        if (m_Value == m_range.Min) Q_EMIT ArrivedFirst();
    }
    Q_EMIT propertyChanged(u"Value"_s);
}

void cpvSlider::setOrientation(qint32 New_Orientation)
{
    m_Orientation = New_Orientation;
    ResetThumb();
    Resize();
    Q_EMIT propertyChanged(u"Orientation"_s);
}

void cpvSlider::setRailStyle(qint32 New_RailStyle)
{
    m_RailStyle = New_RailStyle;
    Resize();
    Q_EMIT propertyChanged(u"RailStyle"_s);
}

void cpvSlider::setSliderIcon(const Picture& New_SliderIcon)
{
    m_sliderIcon = New_SliderIcon;
    Resize();
    Q_EMIT propertyChanged(u"SliderIcon"_s);
}

void cpvSlider::setRailPicture(const Picture& New_RailPicture)
{
    m_iRailPicture = New_RailPicture;
    Resize();
    Q_EMIT propertyChanged(u"RailPicture"_s);
}

void cpvSlider::setShowValueTip(bool New_ShowValueTip)
{
    m_ShowValueTip = New_ShowValueTip;
    Q_EMIT propertyChanged(u"ShowValueTip"_s);
}

QRectF cpvSlider::thumb() const { return {QPointF(m_thumbLeft, m_thumbTop), QSizeF(m_sliderIcon.size())}; }

SliderParts cpvSlider::parts() const
{
    SliderParts parts{
        m_Orientation, {surface().ScaleWidth(), surface().ScaleHeight()}, m_sliderIcon.size(), {}};
    if (m_RailStyle == pictureRailStyle && !m_iRailPicture.isNull()) parts.rail = m_iRailPicture.size();
    return parts;
}

// Along the rail.
float& cpvSlider::thumbPosition()
{
    return m_Orientation == horizontalOrientation ? m_thumbLeft : m_thumbTop;
}

void cpvSlider::placeThumb(qint32 value)
{
    thumbPosition() = thumbAlong(parts(), m_range, value).value_or(thumbPosition());
}

qint16 cpvSlider::ValueFromPosition()
{
    const qint16 value = valueAt(parts(), m_range, thumbPosition());
    placeThumb(value);
    return value;
}

void cpvSlider::ResetThumb()
{
    if (!parts().isOriented()) return;
    m_thumbLeft = 0;
    m_thumbTop = m_Orientation == verticalOrientation ? parts().track() : 0;
}

void cpvSlider::Resize()
{
    const QSizeF size = sliderSizeTwips(parts(), {Width(), Height()});
    setSizeTwips(static_cast<float>(size.width()), static_cast<float>(size.height()));
    if (parts().isOriented()) {
        (m_Orientation == horizontalOrientation ? m_thumbTop : m_thumbLeft) = thumbAcross(parts());
        placeThumb(m_Value);
        m_RailRect = railRect(parts());
    }
    DrawSlider();
}

void cpvSlider::DrawSlider()
{
    Surface& canvas = drawingSurface();
    canvas.clear();
    drawRail();
    const QSizeF size = m_sliderIcon.size();
    canvas.drawPicture(m_sliderIcon, m_thumbLeft, m_thumbTop, static_cast<float>(size.width()),
                       static_cast<float>(size.height()));
    if (m_ShowValueTip && m_Dragging) ShowTip();
}

void cpvSlider::drawRail()
{
    Surface& canvas = drawingSurface();
    if (m_RailStyle != pictureRailStyle) {
        canvas.drawEdge(m_RailRect, railBorders(m_RailStyle));
        return;
    }
    const auto width = static_cast<float>(m_iRailPicture.size().width());
    const auto height = static_cast<float>(m_iRailPicture.size().height());
    if (m_Orientation == horizontalOrientation)
        canvas.drawPicture(m_iRailPicture, railInset, (canvas.ScaleHeight() - height) * 0.5F, width, height);
    else if (m_Orientation == verticalOrientation)
        canvas.drawPicture(m_iRailPicture, (canvas.ScaleWidth() - width) * 0.5F, railInset, width, height);
}

void cpvSlider::ShowTip()
{
    frmValuetips::instance(*this).showValue(m_Value, {mapToGlobal(QPoint()), thumb(), m_Orientation});
}

bool cpvSlider::thumbHolds(float X, float Y) const
{
    const auto width = static_cast<float>(m_sliderIcon.size().width());
    const auto height = static_cast<float>(m_sliderIcon.size().height());
    return m_thumbLeft <= X && X < m_thumbLeft + width && m_thumbTop <= Y && Y < m_thumbTop + height;
}

void cpvSlider::surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y)
{
    if (!m_Enabled || Button != leftButton || !thumbHolds(X, Y)) return;
    m_Dragging = true;
    if (m_ShowValueTip) ShowTip();
    m_GrabX = X - m_thumbLeft;
    m_GrabY = Y - m_thumbTop;
    Q_EMIT MouseDown(Shift);
}

void cpvSlider::surfaceMouseMove(qint16, qint16, float X, float Y)
{
    if (m_Dragging) dragTo(m_Orientation == horizontalOrientation ? X - m_GrabX : Y - m_GrabY);
}

void cpvSlider::dragTo(float position)
{
    if (parts().isOriented()) thumbPosition() = position < 0 ? 0 : std::min(position, parts().track());
    const qint16 value = ValueFromPosition();
    // Without a track the value is 0, in the range or not.
    if (value >= m_range.Min && value <= m_range.Max) setValue(value);
}

void cpvSlider::surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y)
{
    if (Button == leftButton && thumbHolds(X, Y)) Q_EMIT Click();
    endDrag(Shift);
}

// A message box that opens during a drag swallows the release.
bool cpvSlider::event(QEvent* event)
{
    const bool isTakenAway =
        event->type() == QEvent::WindowBlocked || event->type() == QEvent::WindowDeactivate;
    if (isTakenAway && m_Dragging) endDrag(0);
    return ControlWidget::event(event);
}

void cpvSlider::endDrag(qint16 Shift)
{
    if (m_Dragging) Q_EMIT MouseUp(Shift);
    m_Dragging = false;
    frmValuetips::Close();
}

void cpvSlider::surfaceResize() { Resize(); }

void cpvSlider::showEvent(QShowEvent* event)
{
    ControlWidget::showEvent(event);
    DrawSlider();
}

AccessibleFacts cpvSlider::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::Slider;
    facts.value = QString::number(m_Value);
    facts.state.readOnly = !m_Enabled;
    facts.range = {Min(), Max(), Value()};
    return facts;
}

void cpvSlider::setAccessibleNumber(int number)
{
    if (m_Enabled && number >= m_range.Min && number <= m_range.Max) setValue(number);
}

} // namespace vistrel
