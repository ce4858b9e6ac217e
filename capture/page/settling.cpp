#include "capture/page/settling.h"

#include <QDeadlineTimer>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Session::Limit kScrollLimit = std::chrono::seconds(5);
constexpr Session::Limit kRestLimit = std::chrono::seconds(3); // For fonts and images.
constexpr Session::Limit kFrame = std::chrono::milliseconds(17);
constexpr int kMostGrownWindows = 20; // Endless pages grow while they are scrolled through.

/// Scrolls to a height, px, and tells how high the page and the window are, and whether anything in the page
/// could notice the scrolling.
QString scrollScript(int top)
{
    return uR"js((() => {
        const root = document.scrollingElement || document.documentElement;
        if (!root) return {height: 0, window: 1, notices: false};
        window.scrollTo({top: %1, left: 0, behavior: 'instant'});
        return {height: Math.max(root.scrollHeight, document.documentElement.scrollHeight), window: innerHeight,
                notices: document.scripts.length > 0 || document.querySelector('[loading=lazy]') !== null};
    })())js"_s.arg(top);
}

/// Whether fonts and images that the page asked for are still on their way.
QString restlessScript()
{
    return u"(document.fonts && document.fonts.status === 'loading') || "
           "Array.from(document.images).some(image => !image.complete && image.loading !== 'lazy')"_s;
}

/// How much of the page is hidden in a container that scrolls in place of the page, CSS px.
QString hiddenScript()
{
    return uR"js((() => {
        const root = document.scrollingElement || document.documentElement;
        if (!root || root.scrollHeight > innerHeight + 1) return 0;
        for (let box = document.elementFromPoint(innerWidth / 2, innerHeight / 2); box; box = box.parentElement) {
            const hidden = box.scrollHeight - box.clientHeight;
            const scrolls = ['auto', 'scroll', 'overlay'].includes(getComputedStyle(box).overflowY);
            if (scrolls && hidden > 1 && box.clientHeight > innerHeight / 2) return hidden;
        }
        return 0;
    })())js"_s;
}

QString freezeScript()
{
    return uR"js((() => {
        const sheet = new CSSStyleSheet();
        sheet.replaceSync('* { caret-color: transparent !important }');
        document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
        for (const animation of document.getAnimations()) {
            const timing = animation.effect && animation.effect.getComputedTiming();
            if (timing && timing.endTime !== Infinity && animation.playbackRate !== 0) animation.finish();
            else animation.cancel();
        }
        for (const video of document.querySelectorAll('video')) { video.pause(); video.currentTime = 0; }
        window.scrollTo({top: 0, left: 0, behavior: 'instant'});
    })())js"_s;
}

Task<Result<void>> scrollThrough(PageWorld world)
{
    auto seen = co_await world.evaluate(scrollScript(0));
    if (!seen) co_return seen.error();
    const int window = std::max(1, (*seen)[u"window"].toInt());
    const int lowest = (*seen)[u"height"].toInt() + kMostGrownWindows * window;
    if (!(*seen)[u"notices"].toBool()) co_return Result<void>();
    const QDeadlineTimer end(kScrollLimit);
    for (int top = window; top < std::min((*seen)[u"height"].toInt(), lowest) && !end.hasExpired();
         top += window) {
        seen = co_await world.evaluate(scrollScript(top));
        if (!seen) co_return seen.error();
        const auto paused = co_await world.session()->pause(kFrame);
        if (!paused) co_return paused.error();
    }
    const auto back = co_await world.evaluate(scrollScript(0));
    if (!back) co_return back.error();
    co_return Result<void>();
}

Task<Result<void>> waitForRest(PageWorld world)
{
    const QDeadlineTimer end(kRestLimit);
    while (!end.hasExpired()) {
        const auto restless = co_await world.evaluate(restlessScript());
        if (!restless) co_return restless.error();
        if (!restless->toBool()) break;
        const auto paused = co_await world.session()->pause(kFrame);
        if (!paused) co_return paused.error();
    }
    co_return Result<void>();
}

} // namespace

Task<Result<int>> settlePage(std::shared_ptr<Session> session, QString frameId)
{
    const auto world = co_await PageWorld::enter(std::move(session), std::move(frameId));
    if (!world) co_return world.error();
    const auto scrolled = co_await scrollThrough(*world);
    if (!scrolled) co_return scrolled.error();
    const auto rested = co_await waitForRest(*world);
    if (!rested) co_return rested.error();
    const auto hidden = co_await world->evaluate(hiddenScript());
    if (!hidden) co_return hidden.error();
    co_return hidden->toInt();
}

Task<Result<void>> freezePage(std::shared_ptr<Session> session, QString frameId)
{
    const auto world = co_await PageWorld::enter(std::move(session), std::move(frameId));
    if (!world) co_return world.error();
    const auto frozen = co_await world->evaluate(freezeScript());
    if (!frozen) co_return frozen.error();
    co_return Result<void>();
}

} // namespace vistrel
