#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

namespace vistrel::test
{

/// Runs show, which opens a modal dialog, and hands the dialog to act as soon as it is there.
/// act must close it.
template<typename Dialog>
void withDialog(const std::function<void()>& show, const std::function<void(Dialog&)>& act)
{
    bool seen = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (seen || dialog == nullptr) return;
        seen = true;
        act(*dialog);
    });
    poll.start(10);
    show();
    EXPECT_TRUE(seen) << "no such dialog was shown";
}

/// A key as the user would press it: for the widget that has the focus, else for the dialog itself.
inline void press(QWidget& dialog, Qt::Key key)
{
    QWidget* target = dialog.focusWidget() != nullptr ? dialog.focusWidget() : &dialog;
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QApplication::sendEvent(target, &down);
    QApplication::sendEvent(target, &up);
}

} // namespace vistrel::test
