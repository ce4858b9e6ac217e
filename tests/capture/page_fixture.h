#pragma once

#include "capture/browser_keeper.h"
#include "capture/page/address.h"
#include "capture/page/page_run.h"
#include "tests/support/await.h"
#include "tests/support/scripted_server.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vistrel::test
{

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Captures pages with the real browser: one browser for all tests of an executable, one server for each
/// test.
class PageTest : public testing::Test
{
protected:
    static BrowserKeeper& keeper()
    {
        static BrowserKeeper keeper{{}};
        return keeper;
    }
    static void TearDownTestSuite() { keeper().stop(); }

    static Result<PageShot> capture(PageRequest request)
    {
        const auto browser = await(keeper().browser(30s));
        if (!browser) return browser.error();
        return await(PageRun::create(*browser, std::move(request))->run());
    }

    /// As an entry of a list would be captured.
    static Result<PageShot> capture(const QString& entry, PageRequest request = {})
    {
        const auto addresses = resolveAddress(entry);
        if (!addresses) return addresses.error();
        request.addresses = *addresses;
        return capture(std::move(request));
    }

    /// Serves html at a fresh path and captures it.
    Result<PageShot> captureHtml(const QByteArray& html, PageRequest request = {})
    {
        const QString path = u"/page%1"_s.arg(++pages);
        server.page(path, html);
        return capture(server.url(path), std::move(request));
    }

    /// The one strip of a shot, decoded; a null image when the capture failed, with the reason in the test's
    /// log.
    static QImage image(const Result<PageShot>& shot)
    {
        if (!shot) {
            ADD_FAILURE() << shot.error().text().toStdString();
            return {};
        }
        return QImage::fromData(shot->picture.strips().first());
    }

    static QRgb pixel(const QImage& image, int x, int y)
    {
        EXPECT_TRUE(image.valid(x, y))
            << x << ", " << y << " in " << image.width() << " x " << image.height();
        return image.valid(x, y) ? image.pixel(x, y) & 0xffffff : 0;
    }

    ScriptedServer server;
    int pages = 0;
};

} // namespace vistrel::test
