#include "capture/page/local_files.h"

#include "capture/page/archive.h"
#include "platform/log.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString contentType(const QString& path)
{
    static const QHash<QString, QString> web{{u"html"_s, u"text/html"_s},
                                             {u"htm"_s, u"text/html"_s},
                                             {u"xhtml"_s, u"application/xhtml+xml"_s},
                                             {u"css"_s, u"text/css"_s},
                                             {u"js"_s, u"text/javascript"_s},
                                             {u"mjs"_s, u"text/javascript"_s},
                                             {u"json"_s, u"application/json"_s},
                                             {u"svg"_s, u"image/svg+xml"_s},
                                             {u"png"_s, u"image/png"_s},
                                             {u"jpg"_s, u"image/jpeg"_s},
                                             {u"jpeg"_s, u"image/jpeg"_s},
                                             {u"gif"_s, u"image/gif"_s},
                                             {u"webp"_s, u"image/webp"_s},
                                             {u"avif"_s, u"image/avif"_s},
                                             {u"ico"_s, u"image/x-icon"_s},
                                             {u"woff"_s, u"font/woff"_s},
                                             {u"woff2"_s, u"font/woff2"_s},
                                             {u"ttf"_s, u"font/ttf"_s},
                                             {u"otf"_s, u"font/otf"_s},
                                             {u"txt"_s, u"text/plain"_s},
                                             {u"xml"_s, u"text/xml"_s}};
    const QString known = web.value(QFileInfo(path).suffix().toLower());
    return known.isEmpty() ? QMimeDatabase().mimeTypeForFile(path).name() : known;
}

} // namespace

Result<QUrl> LocalFiles::reachable(Browser& browser, const QUrl& address)
{
    const QString path = address.toLocalFile();
    if (!isArchive(path)) return address;
    const QByteArray repaired = archiveWithLineEnds(path);
    const bool readable = !browser.account() || browser.account()->canRead(path);
    if (repaired.isEmpty() && readable) return address;
    static int copies = 0;
    const QString name = u"page%1.mht"_s.arg(++copies);
    const auto copy =
        repaired.isEmpty() ? browser.folder().copyIn(path, name) : browser.folder().write(repaired, name);
    if (!copy) return copy.error();
    return QUrl::fromLocalFile(*copy);
}

LocalFiles::LocalFiles(Session& session, std::optional<Account> account, const QString& confinement)
    : m_session(session), m_account(account)
{
    if (!confinement.isEmpty()) m_confinement = QFileInfo(confinement).canonicalFilePath();
    if (!confinement.isEmpty() && !m_confinement.endsWith(u'/')) m_confinement += u'/';
    connect(&session, &Session::received, this, [this](const QString& method, const QJsonObject& params) {
        if (method == u"Fetch.requestPaused") answer(params);
    });
    session.post(u"Fetch.enable"_s,
                 {{u"patterns"_s, QJsonArray{QJsonObject{{u"urlPattern"_s, u"file://*"_s}}}}});
}

void LocalFiles::answer(const QJsonObject& params)
{
    const QString requestId = params[u"requestId"].toString();
    const QString path = QUrl(params[u"request"][u"url"].toString()).toLocalFile();
    if (!isConfined(path))
        refuse(requestId, path);
    else if (!m_account || !QFileInfo(path).isFile() || m_account->canRead(path))
        m_session.post(u"Fetch.continueRequest"_s, {{u"requestId"_s, requestId}});
    else
        fulfil(requestId, path);
}

bool LocalFiles::isConfined(const QString& path) const
{
    return m_confinement.isEmpty() || path == m_page ||
           QFileInfo(path).canonicalFilePath().startsWith(m_confinement);
}

void LocalFiles::fulfil(const QString& requestId, const QString& path)
{
    QFile file(path);
    if (file.size() > kLargestBytes || !file.open(QIODevice::ReadOnly)) return refuse(requestId, path);
    const QJsonObject type{{u"name"_s, u"Content-Type"_s}, {u"value"_s, contentType(path)}};
    m_session.post(u"Fetch.fulfillRequest"_s, {{u"requestId"_s, requestId},
                                               {u"responseCode"_s, 200},
                                               {u"responseHeaders"_s, QJsonArray{type}},
                                               {u"body"_s, QString::fromLatin1(file.readAll().toBase64())}});
}

void LocalFiles::refuse(const QString& requestId, const QString& path)
{
    qCInfo(logPage).noquote() << "a local file was not handed over:" << path;
    m_session.post(u"Fetch.failRequest"_s,
                   {{u"requestId"_s, requestId}, {u"errorReason"_s, u"AccessDenied"_s}});
}

} // namespace vistrel
