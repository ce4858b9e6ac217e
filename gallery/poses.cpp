#include "gallery/poses.h"

#include <QApplication>
#include <QMouseEvent>

namespace vistrel
{

namespace
{

void sendMouse(ControlWidget& control, QPoint at, QEvent::Type type, Qt::MouseButton button)
{
    QWidget* child = control.childAt(at);
    QWidget& target = child != nullptr ? *child : control;
    const QPointF within = target.mapFrom(&control, at);
    QMouseEvent event(type, within, target.mapToGlobal(within), button, button, Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
}

} // namespace

void hover(ControlWidget& control)
{
    sendMouse(control, control.rect().center(), QEvent::MouseMove, Qt::NoButton);
}

void press(ControlWidget& control)
{
    hover(control);
    pressAt(control, control.rect().center());
}

void pressAt(ControlWidget& control, QPoint at)
{
    sendMouse(control, at, QEvent::MouseButtonPress, Qt::LeftButton);
}

void focus(ControlWidget& control)
{
    control.activateWindow();
    control.setFocus();
}

void readRightToLeft(ControlWidget& control) { control.setLayoutDirection(Qt::RightToLeft); }

void disableByForm(ControlWidget& control) { control.QWidget::setEnabled(false); }

} // namespace vistrel
