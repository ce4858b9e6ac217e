#pragma once

#include "platform/message_boxes.h"

#include <QStringList>

#include <functional>

namespace vistrel::test
{

/// Writes down what it is asked to show, one line per box, and answers as it is told.
class FakeMessageBoxes final : public MessageBoxes
{
public:
    void information(WindowHandle, const QString& text) override { add(QStringLiteral("information"), text); }
    void critical(WindowHandle, const QString& text) override { add(QStringLiteral("critical"), text); }
    void exclamation(WindowHandle, const QString& text, const QString& title) override
    {
        add(QStringLiteral("exclamation"), title + u'/' + text);
    }
    Button question(WindowHandle, const QString& text, Button defaultButton) override
    {
        const bool isNo = defaultButton == Button::No;
        add(isNo ? QStringLiteral("question, default No") : QStringLiteral("question, default Yes"), text);
        return answer;
    }

    QStringList shown;
    Button answer = Button::No;
    std::function<void()> whileShown = [] {};

private:
    void add(const QString& kind, const QString& text)
    {
        shown += kind + QStringLiteral(": ") + text;
        whileShown();
    }
};

} // namespace vistrel::test
