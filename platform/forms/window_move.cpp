#include "platform/forms/window_move.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Moves window along with the pointer until a button is released.
class PointerMove : public QObject
{
public:
    explicit PointerMove(QWindow& window) : QObject(&window), m_window(window)
    {
        m_grip = QCursor::pos() - window.position();
        window.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::MouseMove)
            m_window.setPosition(static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - m_grip);
        if (event->type() == QEvent::MouseButtonRelease) deleteLater();
        return false;
    }

private:
    QWindow& m_window;
    QPoint m_grip; // Where the pointer holds the window.
};

/// Window managers of X11 are told that the left button holds the window, whichever it is, and wait for the
/// left button's release.
bool systemMoveWouldStick()
{
    return QGuiApplication::platformName() == u"xcb"_s && QGuiApplication::mouseButtons() != Qt::LeftButton;
}

} // namespace

void startWindowMove(QWidget& window)
{
    QWindow* handle = window.windowHandle();
    if (handle == nullptr) return;
    if (systemMoveWouldStick() || !handle->startSystemMove()) new PointerMove(*handle);
}

} // namespace vistrel
