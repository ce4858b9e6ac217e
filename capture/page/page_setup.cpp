#include "capture/page/page_setup.h"

#include "capture/page/scroll_notice.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString emptyingScript()
{
    return uR"js({
        if (window === top) {
            window.name = '';
            localStorage.clear();
            sessionStorage.clear();
        }
    })js"_s;
}

/// Tells pages that the reader prefers dark colours. Nothing need wait for it.
void preferDarkColours(Session& session)
{
    const QJsonObject dark{{u"name"_s, u"prefers-color-scheme"_s}, {u"value"_s, u"dark"_s}};
    session.post(u"Emulation.setEmulatedMedia"_s, {{u"features"_s, QJsonArray{dark}}});
}

/// Puts the request's cookies into the browser, for the hosts of its addresses and all their paths. Settled
/// when they are there, or at once without any. Error::Kind::Protocol when the browser takes one for none.
Completion<Reply> giveCookies(Session& session, const PageRequest& request)
{
    QJsonArray cookies;
    for (const QUrl& address : request.addresses) {
        if (address.isLocalFile()) continue;
        for (const RequestHeader& cookie : request.cookies)
            cookies.append(QJsonObject{{u"name"_s, cookie.name},
                                       {u"value"_s, cookie.value},
                                       {u"url"_s, QString::fromLatin1(address.toEncoded())},
                                       {u"path"_s, u"/"_s}});
    }
    if (!cookies.isEmpty()) return session.call(u"Network.setCookies"_s, {{u"cookies"_s, cookies}});
    Completion<Reply> nothing;
    nothing.settle(Reply());
    return nothing;
}

} // namespace

Task<Result<void>> setUpPage(std::shared_ptr<Session> session, PageRequest request)
{
    session->post(u"Page.enable"_s);
    noteScrollWatchers(*session);
    session->post(u"Page.setLifecycleEventsEnabled"_s, {{u"enabled"_s, true}});
    session->post(u"Network.enable"_s, {{u"maxTotalBufferSize"_s, 1}, {u"maxResourceBufferSize"_s, 1}});
    session->post(u"Network.setBypassServiceWorker"_s, {{u"bypass"_s, true}});
    const auto cookies = giveCookies(*session, request);
    if (request.dark) preferDarkColours(*session);
    const auto sized = resizeWindow(*session, request.viewport, request.scale);
    // The empty page's renderer takes its orders one after the other, and a navigation takes along only those
    // that it has confirmed: so the last of them is waited for.
    const QJsonObject scripts{{u"value"_s, !request.allowScript}};
    const auto confirmed = co_await session->call(u"Emulation.setScriptExecutionDisabled"_s, scripts);
    if (!confirmed) co_return confirmed.error().during(u"preparing the page"_s);
    const auto resized = co_await sized;
    if (!resized) co_return resized.error().during(u"preparing the page"_s);
    const auto given = co_await cookies;
    if (!given) co_return given.error().during(u"preparing the page's cookies"_s);
    co_return Result<void>();
}

QString nameOfSetup(const PageRequest& request)
{
    const QSize window = request.viewport;
    return u"%1 x %2 at %3, dark %4, scripts %5, in "_s.arg(window.width())
               .arg(window.height())
               .arg(request.scale)
               .arg(request.dark)
               .arg(request.allowScript) +
           request.confinement;
}

Completion<Reply> resizeWindow(Session& session, QSize window, double scale)
{
    return session.call(u"Emulation.setDeviceMetricsOverride"_s, {{u"width"_s, window.width()},
                                                                  {u"height"_s, window.height()},
                                                                  {u"deviceScaleFactor"_s, scale},
                                                                  {u"mobile"_s, false}});
}

Task<Result<QString>> forgetDocument(std::shared_ptr<Session> session)
{
    session->post(
        u"Storage.clearDataForOrigin"_s,
        {{u"origin"_s, u"file://"_s}, {u"storageTypes"_s, u"indexeddb,cache_storage,file_systems"_s}});
    session->post(u"Page.resetNavigationHistory"_s);
    const QJsonObject script{{u"source"_s, emptyingScript()}};
    const auto added =
        co_await session->call(u"Page.addScriptToEvaluateOnNewDocument"_s, script, kReuseLimit);
    if (!added) co_return added.error();
    co_return added->result.value(u"identifier"_s).toString();
}

} // namespace vistrel
