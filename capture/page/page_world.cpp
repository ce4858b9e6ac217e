#include "capture/page/page_world.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Session::Limit kScriptLimit = std::chrono::seconds(5);

} // namespace

Task<Result<PageWorld>> PageWorld::enter(std::shared_ptr<Session> session, QString frameId)
{
    const QJsonObject frame{{u"frameId"_s, frameId}};
    const auto world = co_await session->call(u"Page.createIsolatedWorld"_s, frame, kScriptLimit);
    if (!world) co_return world.error();
    co_return PageWorld(session, world->result.value(u"executionContextId"_s).toInt());
}

Task<Result<QJsonValue>> PageWorld::evaluate(QString expression) const
{
    const QJsonObject params{{u"expression"_s, expression},
                             {u"contextId"_s, m_context},
                             {u"awaitPromise"_s, true},
                             {u"returnByValue"_s, true}};
    const auto reply = co_await m_session->call(u"Runtime.evaluate"_s, params, kScriptLimit);
    if (!reply) co_return reply.error();
    const QJsonValue exception = reply->result.value(u"exceptionDetails"_s)[u"exception"][u"description"];
    if (exception.isString())
        co_return Error{Error::Kind::Protocol, exception.toString(), u"a script of ours"_s};
    co_return reply->result.value(u"result"_s)[u"value"];
}

} // namespace vistrel
