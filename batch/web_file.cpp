#include "batch/web_file.h"

#include <QEventLoop>
#include <QHostAddress>
#include <QNetworkAccessManager>
#include <QNetworkProxyFactory>
#include <QNetworkReply>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kMostRedirects = 5;
constexpr auto kSilenceLimit = std::chrono::seconds(30);
constexpr auto kWholeLimit = std::chrono::minutes(2);

Error failure(Error::Kind kind, const QString& message) { return {kind, message, {}}; }

/// An answer, or where the server sends us instead.
struct Answer {
    QByteArray body;
    QUrl redirect;
};

QNetworkRequest requestFor(const QUrl& address, const Plan& plan, bool own)
{
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setDecompressedSafetyCheckThreshold(-1); // The limit on what comes out is kept here.
    request.setTransferTimeout(int(std::chrono::milliseconds(kSilenceLimit).count()));
    const QString agent = plan.browser.userAgent.isEmpty() ? u"vistrel-batch"_s : plan.browser.userAgent;
    request.setHeader(QNetworkRequest::UserAgentHeader, agent);
    if (!plan.browser.language.isEmpty())
        request.setRawHeader("Accept-Language", plan.browser.language.toUtf8());
    if (!own) return request;
    for (const RequestHeader& header : plan.page.headers)
        request.setRawHeader(header.name.toUtf8(), header.value.toUtf8());
    QStringList cookies;
    for (const RequestHeader& cookie : plan.page.cookies)
        cookies += cookie.name + u'=' + cookie.value;
    if (!cookies.isEmpty()) request.setRawHeader("Cookie", cookies.join(u"; "_s).toUtf8());
    return request;
}

/// As the browser chooses: this machine is always reached directly.
Result<QNetworkProxy> proxyFor(const QUrl& address, const QString& named)
{
    const QNetworkProxy none(QNetworkProxy::NoProxy);
    if (address.host() == u"localhost" || QHostAddress(address.host()).isLoopback()) return none;
    if (named.isEmpty())
        return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(address)).first();
    const QUrl proxy(named);
    const bool socks = proxy.scheme() == u"socks5";
    if (!socks && proxy.scheme() != u"http")
        return failure(Error::Kind::Usage, u"it cannot be fetched through a proxy of the kind "_s +
                                               proxy.scheme() + u"; fetch it otherwise, and name the file"_s);
    return QNetworkProxy(socks ? QNetworkProxy::Socks5Proxy : QNetworkProxy::HttpProxy, proxy.host(),
                         quint16(proxy.port(socks ? 1080 : 80)));
}

/// Takes in what reply brings, until it has ended or must be ended.
Result<QByteArray> receive(QNetworkReply& reply, qsizetype limit)
{
    QByteArray body;
    std::optional<Error> ended;
    const auto end = [&](Error::Kind kind, const QString& message) {
        if (!ended) ended = failure(kind, message);
        reply.abort();
    };
    QEventLoop loop;
    QObject::connect(&reply, &QNetworkReply::readyRead, &loop, [&] {
        body += reply.readAll();
        if (body.size() > limit)
            end(Error::Kind::TooLarge, u"it is larger than %1 MiB"_s.arg(limit / (1024 * 1024)));
    });
    QObject::connect(&reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(kWholeLimit, &loop, [&] { end(Error::Kind::Timeout, u"it takes over 2 min"_s); });
    if (!reply.isFinished()) loop.exec();
    if (ended) return *ended;
    if (reply.error() == QNetworkReply::OperationCanceledError)
        return failure(Error::Kind::Timeout, u"the server does not answer"_s);
    return body + reply.readAll();
}

Result<Answer> ask(const QUrl& address, const Plan& plan, bool own, qsizetype limit)
{
    const auto proxy = proxyFor(address, plan.browser.proxy);
    if (!proxy) return proxy.error();
    QNetworkAccessManager manager;
    manager.setProxy(*proxy);
    const std::unique_ptr<QNetworkReply> reply(manager.get(requestFor(address, plan, own)));
    if (plan.browser.takeBadCertificates) reply->ignoreSslErrors();
    const auto body = receive(*reply, limit);
    if (!body) return body.error();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl redirect = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (!redirect.isEmpty()) return Answer{{}, address.resolved(redirect)};
    if (status >= 400) return failure(Error::Kind::Page, u"HTTP %1"_s.arg(status));
    if (reply->error() != QNetworkReply::NoError) return failure(Error::Kind::Page, reply->errorString());
    return Answer{*body, {}};
}

} // namespace

bool isOwn(const QUrl& address, const QUrl& origin)
{
    if (address.host() != origin.host()) return false;
    if (address.scheme() == origin.scheme()) return address.port() == origin.port();
    return origin.scheme() == u"http" && origin.port() == -1 && address.port() == -1;
}

Result<QByteArray> fetchFile(const QUrl& address, const QUrl& origin, const Plan& plan, qsizetype limit)
{
    QUrl next = address;
    for (int hops = 0; hops <= kMostRedirects; ++hops) {
        if (next.scheme() != u"http" && next.scheme() != u"https")
            return failure(Error::Kind::Page, u"it leads to an address that is neither http nor https"_s);
        auto answer = ask(next, plan, isOwn(next, origin), limit);
        if (!answer) return answer.error();
        if (answer->redirect.isEmpty()) return std::move(answer->body);
        next = answer->redirect;
    }
    return failure(Error::Kind::Page, u"it is redirected over %1 times"_s.arg(kMostRedirects));
}

} // namespace vistrel
