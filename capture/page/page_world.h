#pragma once

#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

#include <QJsonValue>

namespace vistrel
{

/// A world of our own in a page's document: our scripts share its elements, not its objects, so that a page
/// which replaces Array or Promise does not touch them. It goes with the document.
class PageWorld
{
public:
    /// Makes the world in the document that the frame shows now.
    static Task<Result<PageWorld>> enter(std::shared_ptr<Session> session, QString frameId);

    /// The value of an expression, by JSON, or of the promise that it gives: where the page's own scripts are
    /// switched off, none is ever kept. Error::Kind::Protocol when the document has gone or the script
    /// throws.
    Task<Result<QJsonValue>> evaluate(QString expression) const;

    [[nodiscard]] const std::shared_ptr<Session>& session() const { return m_session; }

private:
    PageWorld(std::shared_ptr<Session> session, int context)
        : m_session(std::move(session)), m_context(context)
    {
    }

    std::shared_ptr<Session> m_session;
    int m_context;
};

} // namespace vistrel
