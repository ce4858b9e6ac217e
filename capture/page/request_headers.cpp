#include "capture/page/request_headers.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QJsonObject patternFor(const QUrl& address)
{
    const auto beyondOrigin =
        QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment;
    const QString origin = QString::fromLatin1(address.adjusted(beyondOrigin).toEncoded());
    return {{u"urlPattern"_s, origin + u"/*"_s}};
}

QUrl withoutUsualPort(QUrl address)
{
    if (address.port() == (address.scheme() == u"https" ? 443 : 80)) address.setPort(-1);
    return address;
}

QJsonArray patternsFor(const QList<QUrl>& addresses)
{
    QJsonArray patterns;
    for (const QUrl& given : addresses) {
        QUrl address = withoutUsualPort(given);
        patterns.append(patternFor(address));
        if (address.scheme() != u"http" || address.port() != -1) continue;
        address.setScheme(u"https"_s);
        patterns.append(patternFor(address));
    }
    return patterns;
}

} // namespace

// The headers of Fetch.continueRequest replace all others and hold for one hop: a redirect is asked about
// anew (Chrome DevTools Protocol, domain Fetch).
RequestHeaders::RequestHeaders(Session& session, QList<RequestHeader> headers, const QList<QUrl>& addresses)
    : m_session(session), m_headers(std::move(headers))
{
    connect(&session, &Session::received, this, [this](const QString& method, const QJsonObject& params) {
        if (method == u"Fetch.requestPaused") answer(params);
    });
    session.post(u"Fetch.enable"_s, {{u"patterns"_s, patternsFor(addresses)}});
}

void RequestHeaders::answer(const QJsonObject& params)
{
    const auto isOurs = [this](const QString& name) {
        return std::any_of(m_headers.begin(), m_headers.end(), [&](const RequestHeader& header) {
            return header.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    };
    QJsonArray headers;
    const QJsonObject sent = params[u"request"][u"headers"].toObject();
    for (auto header = sent.begin(); header != sent.end(); ++header) {
        if (isOurs(header.key())) continue;
        headers.append(QJsonObject{{u"name"_s, header.key()}, {u"value"_s, header.value()}});
    }
    for (const RequestHeader& header : std::as_const(m_headers))
        headers.append(QJsonObject{{u"name"_s, header.name}, {u"value"_s, header.value}});
    m_session.post(u"Fetch.continueRequest"_s,
                   {{u"requestId"_s, params[u"requestId"]}, {u"headers"_s, headers}});
}

} // namespace vistrel
