#include "gallery/poses.h"

#include <QApplication>
#include <QMouseEvent>

namespace vistrel
{

namespace
{

void sendMouse(ControlWidget& control, QEvent::Type type, Qt::MouseButton button)
{
    const QPoint middle = control.rect().center();
    QWidget* child = control.childAt(middle);
    QWidget& target = child != nullptr ? *child : control;
    const QPointF at = target.mapFrom(&control, middle);
    QMouseEvent event(type, at, target.mapToGlobal(at), button, button, Qt::NoModifier);
    QApplication::sendEvent(&target, &event);
}

} // namespace

void hover(ControlWidget& control) { sendMouse(control, QEvent::MouseMove, Qt::NoButton); }

void press(ControlWidget& control)
{
    hover(control);
    sendMouse(control, QEvent::MouseButtonPress, Qt::LeftButton);
}

void focus(ControlWidget& control)
{
    control.activateWindow();
    control.setFocus();
}

void readRightToLeft(ControlWidget& control) { control.setLayoutDirection(Qt::RightToLeft); }

void disableByForm(ControlWidget& control) { control.QWidget::setEnabled(false); }

} // namespace vistrel
