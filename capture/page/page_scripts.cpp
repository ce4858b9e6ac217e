#include "capture/page/page_scripts.h"

#include "platform/log.h"

using namespace Qt::StringLiterals;

namespace vistrel::pageScripts
{

namespace
{

constexpr Session::Limit kSettleLimit = std::chrono::seconds(12);

// Milliseconds and steps: 3 s for fonts, 3 s for images, at most 40 window heights of scrolling.
QString settleScript()
{
    return uR"js((async () => {
    const pause = ms => new Promise(done => setTimeout(done, ms));
    const within = (work, ms) => Promise.race([work, pause(ms)]);
    const root = document.scrollingElement || document.documentElement;
    if (!root) return;
    const pending = () => Array.from(document.images).filter(image => !image.complete);
    const loaded = image => new Promise(done => { image.onload = image.onerror = done; if (image.complete) done(); });

    const height = () => Math.max(root.scrollHeight, document.documentElement.scrollHeight);
    if (height() > innerHeight) {
        for (let y = innerHeight, steps = 0; y < height() && steps < 40; y += innerHeight, ++steps) {
            scrollTo({top: y, behavior: 'instant'});
            await pause(16);
        }
        scrollTo({top: 0, left: 0, behavior: 'instant'});
    }
    if (document.fonts) await within(document.fonts.ready, 3000);
    await within(Promise.all(pending().map(loaded)), 3000);
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

Task<Result<void>> run(std::shared_ptr<Session> session, QString frameId, QString script,
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
    if (reply->result.contains(u"exceptionDetails"))
        qCInfo(logPage) << "script:"
                        << reply->result[u"exceptionDetails"][u"exception"][u"description"].toString();
    co_return Result<void>();
}

} // namespace

Task<Result<void>> settle(std::shared_ptr<Session> session, QString frameId)
{
    return run(std::move(session), std::move(frameId), settleScript(), kSettleLimit);
}

Task<Result<void>> freeze(std::shared_ptr<Session> session, QString frameId)
{
    return run(std::move(session), std::move(frameId), freezeScript(), Session::kShortCall);
}

} // namespace vistrel::pageScripts
