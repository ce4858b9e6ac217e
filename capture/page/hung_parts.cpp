#include "capture/page/hung_parts.h"

#include <QJsonArray>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// A URL pattern that matches the address, whatever its query.
QString patternOf(const QUrl& address)
{
    static const QRegularExpression syntax(u"([*+?(){}:\\\\])"_s);
    const QString origin = address.toString(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery |
                                            QUrl::RemoveFragment | QUrl::FullyEncoded);
    return origin + address.path(QUrl::FullyEncoded).replace(syntax, u"\\\\1"_s);
}

QJsonObject blockingOf(const QList<QUrl>& parts)
{
    QJsonArray patterns;
    for (const QUrl& part : parts)
        patterns.append(QJsonObject{{u"urlPattern"_s, patternOf(part)}, {u"block"_s, true}});
    return {{u"urlPatterns"_s, patterns}};
}

Task<Result<void>> reloadWithout(std::shared_ptr<Session> session, const PageWatch& watch, QList<QUrl> parts)
{
    const QJsonObject blocking = blockingOf(parts);
    const auto blocked = co_await session->call(u"Network.setBlockedURLs"_s, blocking);
    if (!blocked) co_return blocked.error();
    const QString before = watch.loaderId();
    const auto isReplaced = [&watch, &before] { return watch.loaderId() != before; };
    const auto reloading = co_await session->call(u"Page.reload"_s);
    if (!reloading) co_return reloading.error();
    co_return co_await session->until(isReplaced, Session::kShortCall, u"the page to load anew"_s);
}

} // namespace

Task<Result<QList<QUrl>>> waitForMarkup(std::shared_ptr<Session> session, const PageWatch& watch,
                                        Session::Limit patience)
{
    const auto isParsed = [&watch] { return watch.isParsed(); };
    const auto parsed = co_await session->until(isParsed, patience, QString());
    if (parsed) co_return QList<QUrl>();
    QList<QUrl> hung = watch.awaitedParts();
    if (!hung.isEmpty()) {
        const auto reloaded = co_await reloadWithout(session, watch, hung);
        if (!reloaded) hung.clear(); // They may come yet.
    }
    const auto parsedLater = co_await session->until(isParsed, Session::kNoLimit, QString());
    if (!parsedLater) co_return parsedLater.error();
    co_return Result(hung);
}

QString describeLeftOut(const QList<QUrl>& parts)
{
    QStringList hosts;
    for (const QUrl& part : parts)
        hosts += part.host();
    hosts.removeDuplicates();
    return u"without scripts or styles that never came from \"%1\""_s.arg(hosts.join(u", "_s));
}

} // namespace vistrel
