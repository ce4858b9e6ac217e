#include "capture/page/settling.h"

#include "capture/page/scroll_notice.h"

#include <QDeadlineTimer>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Session::Limit kScrollLimit = std::chrono::seconds(5);
constexpr Session::Limit kImageLimit = std::chrono::seconds(6); // For images and fonts.
constexpr Session::Limit kQuietLimit = std::chrono::seconds(3); // For requests: long polls never end.
constexpr Session::Limit kFrame = std::chrono::milliseconds(17);
constexpr int kMostGrownWindows = 20; // Endless pages grow while they are scrolled through.

/// Scrolls to a height, px. Tells how high the page and the window are once a frame is drawn there and the
/// page's observers have been told what is in sight, as ours is among them.
QString scrollScript(int top)
{
    return uR"js((async () => {
        const root = document.scrollingElement || document.documentElement;
        if (!root) return {height: 0, window: 1};
        window.scrollTo({top: %1, left: 0, behavior: 'instant'});
        await new Promise(drawn => new IntersectionObserver((sights, observer) => {
            observer.disconnect();
            drawn();
        }).observe(document.documentElement));
        return {height: Math.max(root.scrollHeight, document.documentElement.scrollHeight), window: innerHeight};
    })())js"_s.arg(top);
}

/// Asks for what is loaded only when it comes near the window. Tells whether fonts and images are still on
/// their way, and how much of the page is hidden in a container that scrolls in place of the page, CSS px.
QString stateScript()
{
    return uR"js((() => {
        const hasten = tree => {
            for (const part of tree.querySelectorAll('[loading=lazy]')) part.loading = 'eager';
            for (const frame of tree.querySelectorAll('iframe')) if (frame.contentDocument) hasten(frame.contentDocument);
        };
        hasten(document);
        const hiddenPart = () => {
            const root = document.scrollingElement || document.documentElement;
            if (!root || root.scrollHeight > innerHeight + 1) return 0;
            for (let box = document.elementFromPoint(innerWidth / 2, innerHeight / 2); box; box = box.parentElement) {
                const hidden = box.scrollHeight - box.clientHeight;
                const scrolls = ['auto', 'scroll', 'overlay'].includes(getComputedStyle(box).overflowY);
                if (scrolls && hidden > 1 && box.clientHeight > innerHeight / 2) return hidden;
            }
            return 0;
        };
        const restless = (document.fonts && document.fonts.status === 'loading') ||
            Array.from(document.images).some(image => !image.complete);
        return {restless, hidden: hiddenPart()};
    })())js"_s;
}

/// A rule for all elements makes the browser style all of them anew: only a page that may show a caret gets
/// it.
QString freezeScript()
{
    return uR"js((() => {
        const focus = document.activeElement;
        if (focus && (focus !== document.body || focus.isContentEditable)) {
            const sheet = new CSSStyleSheet();
            sheet.replaceSync('* { caret-color: transparent !important }');
            document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
        }
        for (const animation of document.getAnimations()) {
            const timing = animation.effect && animation.effect.getComputedTiming();
            if (timing && timing.endTime !== Infinity && animation.playbackRate !== 0) animation.finish();
            else animation.cancel();
        }
        for (const video of document.querySelectorAll('video')) { video.pause(); video.currentTime = 0; }
        window.scrollTo({top: 0, left: 0, behavior: 'instant'});
    })())js"_s;
}

/// What the page loses on the way moves all below it up, past the window: so much is gone back.
Task<Result<void>> scrollThrough(PageWorld world)
{
    auto seen = co_await world.evaluate(scrollScript(0));
    if (!seen) co_return seen.error();
    const int window = std::max(1, (*seen)[u"window"].toInt());
    int height = (*seen)[u"height"].toInt();
    const int lowest = height + kMostGrownWindows * window;
    const QDeadlineTimer end(kScrollLimit);
    for (int top = window; top < std::min(height, lowest) && !end.hasExpired();) {
        seen = co_await world.evaluate(scrollScript(top));
        if (!seen) co_return seen.error();
        const int lost = height - (*seen)[u"height"].toInt();
        height -= lost;
        top = lost > 0 ? std::max(0, top - lost) : top + window;
    }
    const auto back = co_await world.evaluate(scrollScript(0));
    if (!back) co_return back.error();
    co_return Result<void>();
}

/// Until no request is under way, or end; and then for a frame, in which the page may ask for more.
Task<Result<void>> waitForRequests(std::shared_ptr<Session> session, const PageWatch& watch,
                                   QDeadlineTimer end)
{
    const auto quiet = co_await session->until([&watch] { return watch.isQuiet(); },
                                               Session::Limit(end.remainingTime()), u"the page's requests"_s);
    if (!session->isOpen()) co_return quiet.error();
    const auto paused = co_await session->pause(kFrame);
    if (!paused) co_return paused.error();
    co_return Result<void>();
}

/// The page's hidden part, see stateScript(), once fonts, images and requests are there or the wait is over.
/// What has just arrived may make the page ask for more: after a wait, rest must last for two looks.
Task<Result<int>> waitForRest(PageWorld world, const PageWatch& watch)
{
    const QDeadlineTimer imageEnd(kImageLimit);
    const QDeadlineTimer quietEnd(kQuietLimit);
    bool rested = true;
    for (int requests = watch.requestCount();;) {
        const auto state = co_await world.evaluate(stateScript());
        if (!state) co_return state.error();
        const bool restless = (*state)[u"restless"].toBool();
        const bool resting = !restless && watch.isQuiet() && watch.requestCount() == requests;
        const bool over = restless ? imageEnd.hasExpired() : quietEnd.hasExpired();
        if ((resting && rested) || over) co_return (*state)[u"hidden"].toInt();
        rested = resting;
        requests = watch.requestCount();
        const auto waited = co_await waitForRequests(world.session(), watch, quietEnd);
        if (!waited) co_return waited.error();
    }
}

} // namespace

Task<Result<int>> settlePage(std::shared_ptr<Session> session, const PageWatch& watch)
{
    auto notices = noticesScrolling(session);
    const auto world = co_await PageWorld::enter(session, watch.mainFrame());
    if (!world) co_return world.error();
    const auto noticing = co_await std::move(notices);
    if (!noticing) co_return noticing.error();
    if (*noticing) {
        const auto scrolled = co_await scrollThrough(*world);
        if (!scrolled) co_return scrolled.error();
    }
    co_return co_await waitForRest(*world, watch);
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
