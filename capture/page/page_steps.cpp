#include "capture/page/page_steps.h"

#include "capture/page/screenshot.h"

#include <QDeadlineTimer>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Session::Limit kIdleTime = std::chrono::milliseconds(500);
constexpr Session::Limit kLookInterval = std::chrono::milliseconds(50);

/// An array of texts, as a script writes it.
QString literal(const QStringList& texts)
{
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

/// The first selector of those given that is none; null when all are good.
QString styleScript(const QString& rules, const QStringList& hidden)
{
    return uR"js((([rules], hidden) => {
        for (const selector of hidden) {
            try { document.querySelector(selector); } catch { return selector; }
        }
        const sheet = new CSSStyleSheet();
        sheet.replaceSync(rules);
        for (const selector of hidden) sheet.insertRule(selector + ' { display: none !important }', sheet.cssRules.length);
        document.adoptedStyleSheets = [...document.adoptedStyleSheets, sheet];
        return null;
    })(%1, %2))js"_s.arg(literal({rules}), literal(hidden));
}

/// The box of the first element that matches; false when there is none, null when selector is none.
QString boxScript(const QString& selector)
{
    return uR"js((([selector]) => {
        let element;
        try { element = document.querySelector(selector); } catch { return null; }
        if (!element) return false;
        const box = element.getBoundingClientRect();
        return {x: box.x + scrollX, y: box.y + scrollY, width: box.width, height: box.height};
    })(%1))js"_s.arg(literal({selector}));
}

Error noSelector(const QString& selector)
{
    return {Error::Kind::Usage, u"\"%1\" is no CSS selector"_s.arg(selector), {}};
}

using Box = std::optional<QRectF>;

Task<Result<Box>> findElement(PageWorld world, QString selector)
{
    const auto found = co_await world.evaluate(boxScript(selector));
    if (!found) co_return found.error();
    if (found->isNull()) co_return noSelector(selector);
    if (!found->isObject()) co_return Box();
    co_return Box(QRectF((*found)[u"x"].toDouble(), (*found)[u"y"].toDouble(), (*found)[u"width"].toDouble(),
                         (*found)[u"height"].toDouble()));
}

Task<Result<QRect>> measureElement(std::shared_ptr<Session> session, QString frameId, QString selector)
{
    const auto world = co_await PageWorld::enter(std::move(session), std::move(frameId));
    if (!world) co_return world.error();
    const auto found = co_await findElement(*world, selector);
    if (!found) co_return found.error();
    const QString which = u"element that matches \"%1\""_s.arg(selector);
    if (!*found) co_return Error{Error::Kind::Page, u"the page has no "_s + which, {}};
    const QRect box = (*found)->toAlignedRect();
    if (box.isEmpty()) co_return Error{Error::Kind::Page, u"nothing is shown of the first "_s + which, {}};
    co_return box;
}

Task<Result<void>> addStyle(std::shared_ptr<Session> session, QString frameId, QString rules,
                            QStringList hidden)
{
    const auto world = co_await PageWorld::enter(std::move(session), std::move(frameId));
    if (!world) co_return world.error();
    const auto bad = co_await world->evaluate(styleScript(rules, hidden));
    if (!bad) co_return bad.error();
    if (bad->isString()) co_return noSelector(bad->toString());
    co_return Result<void>();
}

Task<Result<void>> runInPage(std::shared_ptr<Session> session, QString script)
{
    const QJsonObject params{{u"expression"_s, u"(async () => {\n%1\n})()"_s.arg(script)},
                             {u"awaitPromise"_s, true},
                             {u"silent"_s, true}};
    const auto reply = co_await session->call(u"Runtime.evaluate"_s, params, Session::kNoLimit);
    if (!reply) co_return reply.error();
    const QJsonObject problem = reply->result.value(u"exceptionDetails"_s).toObject();
    if (problem.isEmpty()) co_return Result<void>();
    const QJsonObject thrown = problem[u"exception"].toObject();
    const QString words = thrown[u"description"].toString(thrown[u"value"].toVariant().toString());
    co_return Error{Error::Kind::Page, words.section(u'\n', 0, 0), u"the script that was added failed"_s};
}

Task<Result<void>> waitForElement(std::shared_ptr<Session> session, QString frameId, QString selector)
{
    auto world = co_await PageWorld::enter(session, frameId);
    while (session->isOpen()) {
        if (world) {
            const auto found = co_await findElement(*world, selector);
            if (found && *found) co_return Result<void>();
            if (!found && found.error().kind == Error::Kind::Usage) co_return found.error();
            if (!found) world = found.error();
        }
        const auto paused = co_await session->pause(kLookInterval);
        if (paused && !world) world = co_await PageWorld::enter(session, frameId); // Of the next document.
    }
    const Error& end = session->reason();
    co_return Error{end.kind, u"no element matched \"%1\": %2"_s.arg(selector, end.message), end.context};
}

/// Whether the page came to be idle.
Task<bool> waitForIdle(std::shared_ptr<Session> session, const PageWatch& watch, Session::Limit limit)
{
    const QDeadlineTimer end(limit);
    while (!end.hasExpired()) {
        const auto quiet = co_await session->until([&watch] { return watch.isQuiet(); },
                                                   Session::Limit(end.remainingTime()), QString());
        const int before = watch.requestCount();
        const auto paused = co_await session->pause(kIdleTime);
        if (!session->isOpen()) break;
        if (quiet && paused && watch.isQuiet() && watch.requestCount() == before) co_return true;
    }
    co_return false;
}

} // namespace

Task<Result<QStringList>> adaptPage(std::shared_ptr<Session> session, const PageWatch& watch,
                                    PageRequest request)
{
    QStringList warnings;
    if (!request.style.isEmpty() || !request.hidden.isEmpty()) {
        const auto added = co_await addStyle(session, watch.mainFrame(), request.style, request.hidden);
        if (!added && added.error().kind == Error::Kind::Usage) co_return added.error();
        if (!added && added.error().kind == Error::Kind::Timeout)
            warnings += u"the style was not added: "_s + added.error().message;
    }
    if (!request.script.isEmpty()) {
        const auto ran = co_await runInPage(session, request.script);
        if (!ran && ran.error().kind == Error::Kind::Page) warnings += ran.error().text();
    }
    if (!request.awaitedElement.isEmpty()) {
        const auto found = co_await waitForElement(session, watch.mainFrame(), request.awaitedElement);
        if (!found) co_return found.error();
    }
    if (request.awaitsIdle) {
        const bool idle = co_await waitForIdle(session, watch, request.timeout / 4);
        if (!idle) warnings += u"the page never stopped fetching"_s;
    }
    if (!session->isOpen()) co_return session->reason().during(u"waiting for the page"_s);
    co_return warnings;
}

Task<Result<QRect>> measureArea(std::shared_ptr<Session> session, QString frameId, PageRequest request)
{
    auto area = Result<QRect>(QRect(QPoint(0, 0), request.viewport));
    if (!request.element.isEmpty())
        area = co_await measureElement(session, frameId, request.element);
    else if (!request.windowOnly)
        area = co_await measurePage(session, request.viewport);
    if (area && request.maxHeight > 0) area->setHeight(std::min(area->height(), request.maxHeight));
    co_return area;
}

Task<QString> readTitle(std::shared_ptr<Session> session, QString frameId)
{
    const auto world = co_await PageWorld::enter(std::move(session), std::move(frameId));
    if (!world) co_return QString();
    const auto title = co_await world->evaluate(u"document.title"_s);
    co_return title ? title->toString() : QString();
}

} // namespace vistrel
