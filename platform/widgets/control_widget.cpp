#include "platform/widgets/control_widget.h"

#include "platform/drawing/rounding.h"
#include "platform/widgets/focus_events.h"
#include "platform/widgets/input_codes.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

namespace vistrel
{

ControlWidget::ControlWidget(ScaleMode scaleMode, QWidget* parent) : QWidget(parent), m_surface(scaleMode)
{
    setMouseTracking(true);
    m_surface.resize(size(), devicePixelRatioF());
    installControlAccessibility();
    followFocus();
}

float ControlWidget::Width() const { return static_cast<float>(width() * twipsPerPixel); }

float ControlWidget::Height() const { return static_cast<float>(height() * twipsPerPixel); }

void ControlWidget::setWidth(float twips) { setSizeTwips(twips, Height()); }

void ControlWidget::setHeight(float twips) { setSizeTwips(Width(), twips); }

void ControlWidget::setSizeTwips(float width, float height)
{
    resize(twipsToPixels(width), twipsToPixels(height));
    fitSurface();
}

qint32 ControlWidget::hwnd() const { return static_cast<qint32>(winId()); }

AccessibleFacts ControlWidget::accessibleFacts() const { return {}; }

void ControlWidget::accessiblePress() {}

void ControlWidget::setAccessibleNumber(int) {}

Surface& ControlWidget::drawingSurface()
{
    update();
    return m_surface;
}

void ControlWidget::setSurfaceEnabled(bool enabled)
{
    m_surfaceEnabled = enabled;
    QWidget::setEnabled(enabled);
}

void ControlWidget::surfaceMouseDown(qint16, qint16, float, float) {}
void ControlWidget::surfaceMouseMove(qint16, qint16, float, float) {}
void ControlWidget::surfaceMouseLeave(qint16, float, float) {}
void ControlWidget::surfaceMouseUp(qint16, qint16, float, float) {}
void ControlWidget::surfaceClick() {}
void ControlWidget::surfaceKeyDown(qint16&, qint16&) {}
void ControlWidget::surfaceKeyPress(qint16&) {}
void ControlWidget::surfaceKeyUp(qint16&, qint16&) {}
void ControlWidget::surfaceResize() {}

void ControlWidget::paintEvent(QPaintEvent*)
{
    fitSurface();
    QPainter(this).drawImage(QPointF(), m_surface.image());
}

void ControlWidget::resizeEvent(QResizeEvent*) { fitSurface(); }

void ControlWidget::fitSurface()
{
    const bool fits =
        m_surface.sizePx() == size() && m_surface.image().devicePixelRatio() == devicePixelRatioF();
    if (fits && m_hasBeenSized) return;
    m_hasBeenSized = true;
    m_surface.resize(size(), devicePixelRatioF());
    surfaceResize();
}

QPointF ControlWidget::toScale(QPointF positionPx) const
{
    return m_surface.scaleMode() == ScaleMode::Twips ? positionPx * twipsPerPixel : positionPx;
}

void ControlWidget::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) m_leftPressed = true;
    const QPointF at = toScale(event->position());
    surfaceMouseDown(buttonCode(event->button()), shiftCode(event->modifiers()), static_cast<float>(at.x()),
                     static_cast<float>(at.y()));
}

void ControlWidget::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF at = toScale(event->position());
    surfaceMouseMove(buttonCode(event->buttons()), shiftCode(event->modifiers()), static_cast<float>(at.x()),
                     static_cast<float>(at.y()));
}

void ControlWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isClick =
        event->button() == Qt::LeftButton && m_leftPressed && rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton) m_leftPressed = false;
    const QPointF at = toScale(event->position());
    surfaceMouseUp(buttonCode(event->button()), shiftCode(event->modifiers()), static_cast<float>(at.x()),
                   static_cast<float>(at.y()));
    if (isClick) surfaceClick();
}

void ControlWidget::leaveEvent(QEvent*)
{
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    const bool countsAsInside = rect().adjusted(0, 0, 1, 1).contains(pointer);
    const QPointF at = toScale(countsAsInside ? QPoint(-1, -1) : pointer);
    surfaceMouseLeave(shiftCode(QGuiApplication::keyboardModifiers()), static_cast<float>(at.x()),
                      static_cast<float>(at.y()));
}

void ControlWidget::keyPressEvent(QKeyEvent* event)
{
    qint16 code = keyCode(*event);
    qint16 shift = shiftCode(event->modifiers());
    surfaceKeyDown(code, shift);
    qint16 character = characterCode(*event);
    if (code != 0 && character != 0) surfaceKeyPress(character);
    QWidget::keyPressEvent(event);
}

void ControlWidget::keyReleaseEvent(QKeyEvent* event)
{
    qint16 code = keyCode(*event);
    qint16 shift = shiftCode(event->modifiers());
    if (!event->isAutoRepeat()) surfaceKeyUp(code, shift);
    QWidget::keyReleaseEvent(event);
}

} // namespace vistrel
