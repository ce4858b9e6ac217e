#include "capture/page/page_scripts.h"

#include "platform/log.h"

using namespace Qt::StringLiterals;

namespace vistrel::pageScripts
{

namespace
{

constexpr Session::Limit kSettleLimit = std::chrono::seconds(12);

// Caps: 5 s and 20 windows beyond the first height for scrolling, 3 s for fonts, 3 s for images. Scrolling is
// left out where nothing could notice it.
QString settleScript()
{
    return uR"js((async () => {
    const pause = ms => new Promise(done => setTimeout(done, ms));
    const within = (work, ms) => Promise.race([work, pause(ms)]);
    const root = document.scrollingElement || document.documentElement;
    if (!root) return 0;
    const height = () => Math.max(root.scrollHeight, document.documentElement.scrollHeight);
    const mayNotice = document.scripts.length > 0 || document.querySelector('[loading=lazy]');
    if (mayNotice && height() > innerHeight) {
        const end = performance.now() + 5000;
        const lowest = height() + 20 * innerHeight;
        for (let y = innerHeight; y < Math.min(height(), lowest) && performance.now() < end; y += innerHeight) {
            scrollTo({top: y, behavior: 'instant'});
            await pause(16);
        }
        scrollTo({top: 0, left: 0, behavior: 'instant'});
        await pause(16);
    }
    if (document.fonts) await within(document.fonts.ready, 3000);
    const pending = Array.from(document.images).filter(image => !image.complete);
    const loaded = image => new Promise(done => {
        image.addEventListener('load', done);
        image.addEventListener('error', done);
        if (image.complete) done();
    });
    await within(Promise.all(pending.map(loaded)), 3000);

    if (height() > innerHeight + 1) return 0;
    const middle = document.elementFromPoint(innerWidth / 2, innerHeight / 2);
    for (let box = middle; box; box = box.parentElement) {
        const hidden = box.scrollHeight - box.clientHeight;
        const scrolls = ['auto', 'scroll', 'overlay'].includes(getComputedStyle(box).overflowY);
        if (scrolls && hidden > 1 && box.clientHeight > innerHeight / 2) return Math.ceil(hidden);
    }
    return 0;
})())js"_s;
}

QString freezeScript()
{
    return uR"js((() => {
    const sheet = new CSSStyleSheet();
    sheet.replaceSync('* { caret-color: transparent !important; scroll-behavior: auto !important; }');
    document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
    for (const animation of document.getAnimations()) {
        try {
            const timing = animation.effect && animation.effect.getComputedTiming();
            if (timing && timing.endTime !== Infinity) animation.finish(); else animation.cancel();
        } catch { animation.cancel(); }
    }
    for (const video of document.querySelectorAll('video')) { video.pause(); video.currentTime = 0; }
    scrollTo({top: 0, left: 0, behavior: 'instant'});
})())js"_s;
}

Task<Result<QJsonValue>> run(std::shared_ptr<Session> session, QString frameId, QString script,
                             Session::Limit limit)
{
    const QJsonObject frame{{u"frameId"_s, frameId}};
    const auto world = co_await session->call(u"Page.createIsolatedWorld"_s, frame);
    if (!world) co_return world.error();
    const QJsonObject params{{u"expression"_s, script},
                             {u"contextId"_s, world->result.value(u"executionContextId"_s)},
                             {u"awaitPromise"_s, true},
                             {u"returnByValue"_s, true}};
    const auto reply = co_await session->call(u"Runtime.evaluate"_s, params, limit);
    if (!reply) co_return reply.error();
    if (reply->result.contains(u"exceptionDetails"_s))
        qCInfo(logPage) << "script:"
                        << reply->result[u"exceptionDetails"][u"exception"][u"description"].toString();
    co_return reply->result.value(u"result"_s)[u"value"];
}

} // namespace

Task<Result<int>> settle(std::shared_ptr<Session> session, QString frameId)
{
    const auto growth = co_await run(std::move(session), std::move(frameId), settleScript(), kSettleLimit);
    if (!growth) co_return growth.error();
    co_return growth->toInt();
}

Task<Result<void>> freeze(std::shared_ptr<Session> session, QString frameId)
{
    const auto done =
        co_await run(std::move(session), std::move(frameId), freezeScript(), Session::kShortCall);
    if (!done) co_return done.error();
    co_return Result<void>();
}

} // namespace vistrel::pageScripts
