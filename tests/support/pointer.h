#pragma once

#include <QApplication>
#include <QCursor>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace vistrel
{

/// The mouse of a test: moves and presses go through the window system's queue, so that widgets get them as
/// from a real one, enter and leave events included. The widget must be shown.
class Pointer
{
public:
    /// Positions are logical pixels of widget and may lie outside it.
    static void moveTo(const QWidget& widget, QPoint position)
    {
        QCursor::setPos(widget.mapToGlobal(position));
        QApplication::processEvents();
    }

    static void press(const QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton,
                      Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(widget.window()->windowHandle(), button, modifiers, inWindow(widget, position));
    }

    static void release(const QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton,
                        Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseRelease(widget.window()->windowHandle(), button, modifiers, inWindow(widget, position));
    }

    static void click(const QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton)
    {
        moveTo(widget, position);
        press(widget, position, button);
        release(widget, position, button);
    }

private:
    static QPoint inWindow(const QWidget& widget, QPoint position)
    {
        return widget.mapTo(widget.window(), position);
    }
};

} // namespace vistrel
