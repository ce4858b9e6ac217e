#include "capture/page/scroll_notice.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Session::Limit kAnswerLimit = std::chrono::seconds(5);

/// The methods go on working as before; a call leaves a mark on the replacement.
QString noteScript()
{
    return uR"js({
        const note = (prototype, name) => {
            const original = prototype[name];
            const noting = {[name](...values) { noting.called = true; return Reflect.apply(original, this, values); }}[name];
            prototype[name] = noting;
        };
        note(IntersectionObserver.prototype, 'observe');
        note(Element.prototype, 'attachShadow');
    })js"_s;
}

/// Asks the window and those of its frames that are of its origin. Another origin's frame cannot be asked: it
/// is taken to notice when it is large enough to hold content and not in sight already.
QString noticesScript()
{
    return uR"js((() => {
        const listens = target => ['scroll', 'scrollend'].some(name => name in getEventListeners(target));
        const notices = view => view.IntersectionObserver.prototype.observe.called === true ||
            view.Element.prototype.attachShadow.called === true ||
            [view, view.document, view.document.body].some(listens) ||
            Array.from(view.document.querySelectorAll('iframe, frame')).some(frameNotices);
        const frameNotices = frame => {
            const box = frame.getBoundingClientRect();
            if (box.width < 50 || box.height < 50 || frame.ownerDocument === document && box.bottom <= innerHeight)
                return false;
            return frame.contentDocument === null || notices(frame.contentWindow);
        };
        return !matchMedia('(scripting: none)').matches && notices(window);
    })())js"_s;
}

} // namespace

void noteScrollWatchers(Session& session)
{
    session.post(u"Page.addScriptToEvaluateOnNewDocument"_s, {{u"source"_s, noteScript()}});
}

Task<Result<bool>> noticesScrolling(std::shared_ptr<Session> session)
{
    const QJsonObject params{
        {u"expression"_s, noticesScript()}, {u"includeCommandLineAPI"_s, true}, {u"returnByValue"_s, true}};
    const auto reply = co_await session->call(u"Runtime.evaluate"_s, params, kAnswerLimit);
    if (!reply) co_return reply.error();
    co_return reply->result.value(u"result"_s)[u"value"].toBool(true);
}

} // namespace vistrel
