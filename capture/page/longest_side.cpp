#include "capture/page/longest_side.h"

#include "capture/browser/page_target.h"
#include "capture/image/drawing_check.h"
#include "capture/page/page_setup.h"
#include "capture/page/page_watch.h"
#include "capture/page/screenshot.h"
#include "platform/log.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kWindowRows = 256;
constexpr Session::Limit kLookInterval = std::chrono::milliseconds(10);

PageRequest checkRequest()
{
    PageRequest request;
    request.viewport = {drawingCheck::kWidth, kWindowRows};
    request.allowScript = false;
    return request;
}

Task<Result<void>> loadCheckPage(std::shared_ptr<Session> session)
{
    PageWatch watch(*session);
    const auto prepared = co_await setUpPage(session, checkRequest());
    if (!prepared) co_return prepared.error();
    const QString page = QString::fromLatin1(QUrl::toPercentEncoding(drawingCheck::page()));
    const QJsonObject address{{u"url"_s, u"data:text/html,"_s + page}};
    const auto reply = co_await session->call(u"Page.navigate"_s, address);
    if (!reply) co_return reply.error();
    watch.expectDocument(reply->result.value(u"frameId"_s).toString(),
                         reply->result.value(u"loaderId"_s).toString());
    co_return co_await session->until([&watch] { return watch.isLoaded(); }, Session::kShortCall,
                                      u"the page"_s);
}

Task<Result<PagePicture>> drawCheckPage(std::shared_ptr<Session> session)
{
    const auto loaded = co_await loadCheckPage(session);
    if (!loaded) co_return loaded.error();
    const QRect page(0, 0, drawingCheck::kWidth, drawingCheck::kRows);
    co_return co_await takePicture(session, page, ShotSettings(), [](int /*rows*/) {});
}

Task<Result<int>> checkDrawing(std::shared_ptr<Browser> browser)
{
    const QString step = u"checking what the browser draws"_s;
    const auto target = co_await browser->openPage(Session::kShortCall);
    if (!target) co_return target.error().during(step);
    const auto picture = co_await drawCheckPage((*target)->session());
    if (!picture) co_return picture.error().during(step);
    const int rows = drawingCheck::trueRows(picture->strips().first());
    qCDebug(logBrowser) << "draws" << rows << "rows right in one piece";
    if (rows < kSafeSide) co_return Error{Error::Kind::Format, u"the browser does not draw right"_s, step};
    browser->setLongestSide(rows);
    co_return rows;
}

} // namespace

Task<Result<int>> findLongestSide(std::shared_ptr<Browser> browser, std::shared_ptr<Session> session,
                                  QSize picture)
{
    if (std::max(picture.width(), picture.height()) <= kSafeSide) co_return kSafeSide;
    if (browser->longestSide()) co_return *browser->longestSide();
    const auto check = browser->drawingCheck().join([&browser] { return checkDrawing(browser); });
    while (!check.isSettled()) {
        const auto paused = co_await session->pause(kLookInterval);
        if (!paused) co_return paused.error();
    }
    co_return co_await check;
}

} // namespace vistrel
