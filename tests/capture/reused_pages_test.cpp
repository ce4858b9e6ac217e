#include "tests/capture/page_fixture.h"

#include <QFile>
#include <QJsonArray>
#include <QTimer>

using namespace vistrel;

namespace vistrel::test
{
namespace
{

/// Local pages may share a browser context, one after the other.
class ReusedPages : public PageTest
{
protected:
    Result<PageShot> captureFile(const QByteArray& html)
    {
        QFile file(folder.filePath(u"page%1.html"_s.arg(++pages)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("<!doctype html>" + html) > 0);
        file.close();
        return capture(file.fileName());
    }

    static bool isGreen(const Result<PageShot>& shot) { return pixel(image(shot), 600, 400) == 0x008000u; }

    /// The browser contexts that stand open.
    static QJsonArray contexts()
    {
        const auto browser = await(keeper().browser(30s));
        const auto ask = [&]() -> Task<QJsonArray> {
            const auto reply =
                co_await (*browser)->connection().browser().call(u"Target.getBrowserContexts"_s);
            co_return reply->result.value(u"browserContextIds"_s).toArray();
        };
        return await(ask());
    }

    static void wait(std::chrono::milliseconds time)
    {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }

    QTemporaryDir folder;
};

const QByteArray kGreen = "<body style='background:green'>";

TEST_F(ReusedPages, TheNextOneFindsNothingOfTheOneBefore)
{
    const auto before = captureFile(
        kGreen + "<script>history.pushState(1, ''); indexedDB.open('left'); caches.open('left');"
                 "setInterval(() => { window.name = localStorage.left = sessionStorage.left = 'left'; }, 0);"
                 "</script>");
    EXPECT_TRUE(isGreen(before));
    const QJsonArray shared = contexts();
    EXPECT_EQ(shared.size(), 1);
    const auto after = captureFile(
        "<body><script>const empty = localStorage.length + sessionStorage.length === 0 && name === '' &&"
        "  history.length === 2 && history.state === null;"
        "localStorage.own = 1;"
        "Promise.all([indexedDB.databases(), caches.keys()]).then(([bases, caches]) => {"
        "  if (empty && bases.length + caches.length === 0 && localStorage.own === '1')"
        "    document.body.style.background = 'green'; });</script>");
    EXPECT_TRUE(isGreen(after));
    EXPECT_EQ(contexts(), shared);
}

TEST_F(ReusedPages, OneThatDealtWithTheWorldIsNotShared)
{
    server.page(u"/frame"_s, "<p>Hello");
    const QByteArray remote = "<iframe src='" + server.url(u"/frame"_s).toUtf8() + "'></iframe>";
    for (const QByteArray& html :
         {remote, QByteArray("<script>alert(1)</script>"),
          QByteArray("<script>location.search || location.replace('?x')</script>")}) {
        QElapsedTimer clock;
        clock.start();
        EXPECT_TRUE(isGreen(captureFile(kGreen + html)));
        EXPECT_LT(clock.elapsed(), 2900) << "not even a frame of another renderer is waited for in vain";
        EXPECT_EQ(contexts(), QJsonArray()) << html.toStdString();
    }
}

TEST_F(ReusedPages, OneThatWillNotGoDoesNotHarmTheNext)
{
    for (const QByteArray script :
         {"addEventListener('pagehide', () => { while (true); });",
          "setTimeout(() => { while (true); }, 1000);", "setInterval(() => alert(1), 700);",
          "location.search || setTimeout(() => location = '?x', 700);"}) {
        EXPECT_TRUE(isGreen(captureFile(kGreen + "<script>" + script + "</script>")));
        wait(900ms);
        EXPECT_TRUE(isGreen(captureFile(kGreen))) << script.toStdString();
    }
}

} // namespace
} // namespace vistrel::test
