#include "capture/page/checked_browser.h"

#include "capture/image/drawing_check.h"
#include "capture/page/page_run.h"
#include "platform/log.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kWindowRows = 256;
constexpr int kLeastUsableSide = 2048; // Below, not even a window's width is safe.

PageRequest checkRequest(const BrowserOptions& options)
{
    PageRequest request;
    const QByteArray page = QUrl::toPercentEncoding(drawingCheck::page());
    request.addresses = {QUrl::fromEncoded("data:text/html," + page)};
    request.viewport = {drawingCheck::kWidth, kWindowRows};
    request.timeout = options.startLimit;
    request.allowScript = false;
    return request;
}

} // namespace

Task<Result<void>> startChecked(std::shared_ptr<Browser> browser, BrowserOptions options)
{
    const auto started = co_await browser->start(options);
    if (!started) co_return started.error();
    const auto shot = co_await PageRun::create(browser, checkRequest(options))->run();
    if (!shot) co_return shot.error().during(u"checking what the browser draws"_s);
    const int rows = drawingCheck::trueRows(shot->picture.strips().first());
    qCDebug(logBrowser) << "draws" << rows << "rows right in one piece";
    if (rows < kLeastUsableSide)
        co_return Error{Error::Kind::Format, u"the browser does not draw right"_s, u"starting the browser"_s};
    browser->setLongestSide(rows);
    co_return Result<void>();
}

} // namespace vistrel
