#include "capture/page/page_watch.h"

#include "platform/log.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kProxyWantsPassword = 407; // Of HTTP; no page of the address.

} // namespace

PageWatch::PageWatch(Session& session) : m_session(session)
{
    connect(&session, &Session::received, this, &PageWatch::take);
}

void PageWatch::expectDocument(const QString& frameId, const QString& loaderId)
{
    m_mainFrame = frameId;
    if (m_documents.contains(loaderId)) return;
    m_loaderId = loaderId;
    m_leaving = m_parsed = m_loaded = m_errorPage = false;
}

bool PageWatch::keptToItself() const
{
    return isQuiet() && !m_leaving && !m_isOnline && m_documents.size() == 1 && m_dialogs == 0;
}

QList<QUrl> PageWatch::awaitedParts() const
{
    if (m_requests.contains(m_loaderId)) return {}; // A document's request has its loader's id.
    QList<QUrl> parts;
    for (const Request& request : m_requests)
        if (request.frameId == m_mainFrame && !request.part.isEmpty()) parts += request.part;
    return parts;
}

void PageWatch::take(const QString& method, const QJsonObject& params)
{
    using Handler = void (*)(PageWatch&, const QJsonObject&);
    static const QHash<QString, Handler> handlers{
        {u"Page.javascriptDialogOpening"_s, [](PageWatch& w, const QJsonObject& p) { w.answerDialog(p); }},
        {u"Page.frameNavigated"_s,
         [](PageWatch& w, const QJsonObject& p) { w.followNavigation(p[u"frame"].toObject()); }},
        {u"Page.frameRequestedNavigation"_s,
         [](PageWatch& w, const QJsonObject& p) {
             w.m_leaving |= p[u"frameId"].toString() == w.m_mainFrame;
         }},
        {u"Page.frameStoppedLoading"_s,
         [](PageWatch& w, const QJsonObject& p) { w.followStop(p[u"frameId"].toString()); }},
        {u"Page.frameDetached"_s,
         [](PageWatch& w, const QJsonObject& p) {
             w.m_requests.removeIf([frame = p[u"frameId"].toString()](const auto& request) {
                 return request->frameId == frame;
             });
         }},
        {u"Page.lifecycleEvent"_s, [](PageWatch& w, const QJsonObject& p) { w.followLifecycle(p); }},
        {u"Network.requestWillBeSent"_s, [](PageWatch& w, const QJsonObject& p) { w.countRequest(p); }},
        {u"Network.responseReceived"_s, [](PageWatch& w, const QJsonObject& p) { w.followResponse(p); }},
        {u"Network.dataReceived"_s, [](PageWatch& w, const QJsonObject& p) { w.countBytes(p); }},
        {u"Network.loadingFinished"_s,
         [](PageWatch& w, const QJsonObject& p) { w.m_requests.remove(p[u"requestId"].toString()); }},
        {u"Network.webSocketCreated"_s, [](PageWatch& w, const QJsonObject&) { w.m_isOnline = true; }},
        {u"Network.loadingFailed"_s, [](PageWatch& w, const QJsonObject& p) { w.followFailure(p); }},
        {u"Inspector.targetCrashed"_s,
         [](PageWatch& w, const QJsonObject&) {
             w.giveUp(Error::Kind::Page, u"the page crashed its renderer"_s);
         }},
        {u"Inspector.detached"_s,
         [](PageWatch& w, const QJsonObject&) { w.giveUp(Error::Kind::Page, u"the page went away"_s); }}};
    const Handler handler = handlers.value(method);
    if (handler == nullptr) return;
    const QPointer<PageWatch> self(this); // An answer that breaks the pipe ends the page's run.
    handler(*this, params);
    if (self) Q_EMIT changed();
}

Result<void> PageWatch::checkDocument() const
{
    if (m_failure) return *m_failure;
    if (httpStatus() == kProxyWantsPassword)
        return Error{Error::Kind::Page, u"the proxy asks for a password"_s, {}};
    if (m_errorPage) return Error{Error::Kind::Page, u"the browser shows an error page"_s, {}};
    return {};
}

void PageWatch::answerDialog(const QJsonObject& params)
{
    qCInfo(logPage) << "dialog dismissed:" << params[u"type"].toString()
                    << params[u"message"].toString().left(200);
    if (++m_dialogs > kMostDialogs) giveUp(Error::Kind::Page, u"the page opens dialog after dialog"_s);
    const bool leaving = params[u"type"].toString() == u"beforeunload";
    m_session.post(u"Page.handleJavaScriptDialog"_s, {{u"accept"_s, leaving}});
}

/// What no loader fetches is a worker's own script, whose arrival is told to the worker alone.
void PageWatch::countRequest(const QJsonObject& params)
{
    if (params[u"loaderId"].toString().isEmpty()) return;
    const QString type = params[u"type"].toString();
    const QString address = params[u"request"][u"url"].toString();
    const bool isPart = (type == u"Script" || type == u"Stylesheet") && address.startsWith(u"http");
    m_requests.insert(params[u"requestId"].toString(),
                      {params[u"frameId"].toString(), isPart ? QUrl(address) : QUrl()});
    ++m_requestCount;
}

void PageWatch::followNavigation(const QJsonObject& frame)
{
    if (frame.contains(u"parentId")) return;
    m_mainFrame = frame[u"id"].toString();
    m_loaderId = frame[u"loaderId"].toString();
    m_documents += m_loaderId;
    m_address = QUrl(frame[u"url"].toString());
    m_errorPage = m_address.scheme() == u"chrome-error" || frame.contains(u"unreachableUrl");
    m_requests.removeIf([this](const auto& request) {
        return request->frameId == m_mainFrame && request.key() != m_loaderId;
    });
    m_leaving = false;
    m_parsed = false;
    m_loaded = false;
    if (m_documents.size() > kMostNavigations)
        giveUp(Error::Kind::Page, u"the page changes its address again and again"_s);
}

void PageWatch::followLifecycle(const QJsonObject& params)
{
    if (params[u"frameId"].toString() != m_mainFrame || params[u"loaderId"].toString() != m_loaderId) return;
    const QString name = params[u"name"].toString();
    if (name == u"DOMContentLoaded") m_parsed = true;
    if (name == u"load") m_loaded = true;
}

/// A page that leaves for what is no page, while it is still being parsed, stays where it is and is never
/// told to be parsed or loaded.
void PageWatch::followStop(const QString& frameId)
{
    if (frameId != m_mainFrame) return;
    m_leaving = false;
    if (m_loaderId.isEmpty() || m_errorPage) return;
    m_parsed = true;
    m_loaded = true;
}

void PageWatch::followFailure(const QJsonObject& params)
{
    const QString request = params[u"requestId"].toString();
    m_requests.remove(request);
    // The request for a document has its loader's id.
    if (request != m_loaderId || m_errorPage || params[u"canceled"].toBool()) return;
    giveUp(Error::Kind::Page, u"the document broke off: "_s + params[u"errorText"].toString());
}

void PageWatch::followResponse(const QJsonObject& params)
{
    const QJsonObject response = params[u"response"].toObject();
    if (!response[u"url"].toString().startsWith(u"http")) return;
    m_isOnline = true;
    const bool document = params[u"type"].toString() == u"Document";
    const bool main = m_mainFrame.isEmpty() || params[u"frameId"].toString() == m_mainFrame;
    if (document && main) m_statuses.insert(params[u"loaderId"].toString(), response[u"status"].toInt());
}

void PageWatch::countBytes(const QJsonObject& params)
{
    m_bytes += qint64(params[u"dataLength"].toDouble());
    if (m_bytes > kMostBytes)
        giveUp(Error::Kind::TooLarge, u"the page fetches over %1 MiB"_s.arg(kMostBytes / (1024 * 1024)));
}

void PageWatch::giveUp(Error::Kind kind, const QString& why)
{
    m_failure = Error{kind, why, {}};
    // Later, since the flow that ends with the session drops this object.
    const auto end = [&session = m_session, error = *m_failure] { session.end(error); };
    QMetaObject::invokeMethod(&m_session, end, Qt::QueuedConnection);
}

} // namespace vistrel
