#include "platform/widgets/focus_events.h"

#include "platform/widgets/control_widget.h"

#include <QApplication>
#include <QPointer>

#include <utility>

namespace vistrel
{

namespace
{

ControlWidget* controlOf(QWidget* widget)
{
    while (widget != nullptr && qobject_cast<ControlWidget*>(widget) == nullptr)
        widget = widget->parentWidget();
    return static_cast<ControlWidget*>(widget);
}

class FocusFollower : public QObject
{
public:
    using QObject::QObject;

    void move(QWidget* now)
    {
        if (now == nullptr || isElsewhere(*now)) return;
        ControlWidget* next = controlOf(now);
        if (next == m_current) return;
        const QPointer<ControlWidget> previous = std::exchange(m_current, next);
        if (previous != nullptr) Q_EMIT previous->Validate();
        if (previous != nullptr) Q_EMIT previous->LostFocus();
        if (next != nullptr && m_current == next) Q_EMIT next->GotFocus();
    }

private:
    bool isElsewhere(const QWidget& now) const
    {
        return m_current != nullptr && m_current->isVisible() && m_current->window() != now.window();
    }

    QPointer<ControlWidget> m_current; // Has the focus, or had it when its window became inactive.
};

} // namespace

void followFocus()
{
    static QPointer<FocusFollower> follower;
    if (follower != nullptr) return;
    follower = new FocusFollower(qApp);
    QObject::connect(qApp, &QApplication::focusChanged, follower.data(),
                     [](QWidget*, QWidget* now) { follower->move(now); });
}

} // namespace vistrel
