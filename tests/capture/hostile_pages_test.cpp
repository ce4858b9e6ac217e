#include "tests/capture/page_fixture.h"
#include "tests/support/gzip.h"

#include <QFile>
#include <QProcess>
#include <QTimer>

using namespace vistrel;

namespace vistrel::test
{
namespace
{

/// Each capture here must end in time and leave the browser fit for the next page.
class HostilePages : public PageTest
{
protected:
    static PageRequest within(std::chrono::milliseconds timeout)
    {
        PageRequest request;
        request.timeout = timeout;
        return request;
    }

    void TearDown() override
    {
        const auto next = captureHtml("<!doctype html><body style='background:green'>", within(10s));
        EXPECT_EQ(pixel(image(next), 600, 400), 0x008000u) << "the page after it";
    }

    static Error::Kind failure(const Result<PageShot>& shot)
    {
        if (!shot) return shot.error().kind;
        ADD_FAILURE() << "captured";
        return {};
    }
};

TEST_F(HostilePages, DialogsAreDismissed)
{
    const auto shot =
        captureHtml("<!doctype html><body style='background:green'><script>alert(1); confirm(2); prompt(3);"
                    "addEventListener('beforeunload', e => { e.preventDefault(); e.returnValue = 'stay'; });"
                    "print(); window.open('about:blank'); for (let i = 0; i < 50; ++i) window.open('/x' + i);"
                    "</script>",
                    within(15s));
    EXPECT_EQ(pixel(image(shot), 600, 400), 0x008000u);
    EXPECT_EQ(failure(captureHtml("<script>while (true) alert('again')</script>", within(15s))),
              Error::Kind::Page);
}

TEST_F(HostilePages, EndlessScriptsEndWithTheTimeout)
{
    for (const QByteArray script :
         {"<script>while (true);</script>", "<script>onload = () => { while (true); }</script>",
          "<script>setTimeout(() => { while (true); }, 150)</script>"}) {
        QElapsedTimer clock;
        clock.start();
        PageRequest request = within(3s);
        request.delay = 500ms;
        EXPECT_EQ(failure(captureHtml(script, request)), Error::Kind::Timeout) << script.toStdString();
        EXPECT_LT(clock.elapsed(), 3000 + 2000);
    }
}

TEST_F(HostilePages, BusyPagesAreCapturedAllTheSame)
{
    const auto shot =
        captureHtml("<!doctype html><body style='background:green'><script>setInterval(() => {"
                    "document.body.append(document.createElement('i')); }, 0);"
                    "fetch('/never'); new EventSource('/events');"
                    "requestAnimationFrame(function f() { requestAnimationFrame(f); });</script>",
                    within(20s));
    EXPECT_EQ(pixel(image(shot), 600, 400), 0x008000u);
}

TEST_F(HostilePages, ADocumentThatNeverEndsFailsAndAnImageThatNeverEndsDoesNot)
{
    server.on(u"/silent"_s, [](Exchange&) {});
    server.on(u"/endless"_s, [](Exchange& exchange) {
        exchange.begin("text/html");
        exchange.send("<!doctype html><p>and so on");
        auto* drip = new QTimer(&exchange.socket());
        QObject::connect(drip, &QTimer::timeout, &exchange.socket(),
                         [s = &exchange.socket()] { s->write("."); });
        drip->start(100);
    });
    EXPECT_EQ(failure(capture(server.url(u"/silent"_s), within(2s))), Error::Kind::Timeout);
    EXPECT_EQ(failure(capture(server.url(u"/endless"_s), within(2s))), Error::Kind::Timeout);
    const auto shot =
        captureHtml("<!doctype html><body style='background:green'><img src=/silent>", within(10s));
    EXPECT_EQ(pixel(image(shot), 600, 400), 0x008000u);
    EXPECT_FALSE(shot->warnings.isEmpty());
}

TEST_F(HostilePages, WhatIsNoPageFailsWithItsReason)
{
    server.on(u"/loop"_s, [](Exchange& exchange) { exchange.redirect("/loop"); });
    server.on(u"/to-file"_s, [](Exchange& exchange) { exchange.redirect("file:///etc/passwd"); });
    server.on(u"/empty"_s, [](Exchange& exchange) { exchange.reply({}, "text/html", "204 No Content"); });
    server.on(u"/zip"_s, [](Exchange& exchange) { exchange.reply("PK", "application/zip"); });
    server.on(u"/reset"_s, [](Exchange& exchange) { exchange.socket().abort(); });
    server.page(u"/leads-nowhere"_s, "<script>location = 'http://127.0.0.1:1/'</script>");
    const QList<QPair<QString, QString>> rows{{u"/loop"_s, u"ERR_TOO_MANY_REDIRECTS"_s},
                                              {u"/to-file"_s, u"ERR_UNSAFE_REDIRECT"_s},
                                              {u"/empty"_s, u"ERR_ABORTED"_s},
                                              {u"/zip"_s, u"download"_s},
                                              {u"/reset"_s, u"ERR_"_s},
                                              {u"/leads-nowhere"_s, u"error page"_s}};
    for (const auto& [path, reason] : rows) {
        const auto shot = capture(server.url(path), within(10s));
        EXPECT_EQ(failure(shot), Error::Kind::Page) << path.toStdString();
        if (!shot) {
            EXPECT_TRUE(shot.error().text().contains(reason)) << shot.error().text().toStdString();
        }
    }
    EXPECT_EQ(failure(capture(u"http://127.0.0.1:1/"_s, within(10s))), Error::Kind::Page);
    EXPECT_EQ(failure(capture(u"http://127.0.0.1:25/"_s, within(10s))), Error::Kind::Page);
}

TEST_F(HostilePages, ErrorStatusesAndPasswordPromptsEnd)
{
    server.on(u"/404"_s, [](Exchange& exchange) {
        exchange.reply("<!doctype html><body style='background:red'>", "text/html", "404 Not Found");
    });
    server.on(u"/401"_s, [](Exchange& exchange) {
        exchange.reply("<!doctype html>no", "text/html", "401 Unauthorized",
                       "WWW-Authenticate: Basic realm=\"x\"\r\n");
    });
    const auto missing = capture(server.url(u"/404"_s), within(10s));
    EXPECT_EQ(pixel(image(missing), 600, 400), 0xff0000u);
    EXPECT_EQ(missing->httpStatus, 404);
    const auto locked = capture(server.url(u"/401"_s), within(10s));
    EXPECT_TRUE(!locked || locked->httpStatus == 401);
}

TEST_F(HostilePages, OneThatChangesItsAddressForEverFails)
{
    EXPECT_EQ(failure(captureHtml("<script>location.reload()</script>", within(15s))), Error::Kind::Page);
}

TEST_F(HostilePages, BombsAndCrashesFail)
{
    const QByteArray bomb = gzip(QByteArray(64 * 1024 * 1024, 'x'));
    server.on(u"/bomb"_s, [bomb](Exchange& exchange) {
        exchange.reply(bomb, "text/html", "200 OK", "Content-Encoding: gzip\r\n");
    });
    const QByteArray many =
        "<!doctype html><script>for (let i = 0; i < 12; ++i) fetch('/bomb?' + i).then(async answer => {"
        "const reader = answer.body.getReader(); while (!(await reader.read()).done); });</script>"
        "<img src=/never>";
    server.on(u"/never"_s, [](Exchange&) {});
    const QByteArray hoard =
        "<script>const kept = []; for (;;) kept.push(new Uint8Array(1 << 26).fill(7));</script>";
    EXPECT_FALSE(captureHtml(hoard, within(8s)).ok());
    EXPECT_EQ(failure(captureHtml(many, within(30s))), Error::Kind::TooLarge);

    const auto browser = await(keeper().browser(30s));
    ASSERT_TRUE(browser.ok());
    server.page(u"/crash"_s, "<!doctype html><img src=/never><script>for (;;);</script>");
    PageRequest request = within(20s);
    request.addresses = {QUrl(server.url(u"/crash"_s))};
    const QString group = QString::number((*browser)->processId());
    QTimer::singleShot(700, [group] {
        QProcess::execute(u"pkill"_s, {u"-9"_s, u"-g"_s, group, u"-f"_s, u"type=renderer"_s});
    });
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(failure(await(PageRun::create(*browser, request)->run())), Error::Kind::Page);
    EXPECT_LT(clock.elapsed(), 10000);
}

TEST_F(HostilePages, AKilledBrowserFailsThePageAndIsReplaced)
{
    server.on(u"/silent"_s, [](Exchange&) {});
    const auto browser = await(keeper().browser(30s));
    ASSERT_TRUE(browser.ok());
    QTimer::singleShot(300, [&] {
        QProcess::execute(u"kill"_s, {u"-9"_s, QString::number((*browser)->processId())});
    });
    EXPECT_EQ(failure(capture(server.url(u"/silent"_s), within(20s))), Error::Kind::Closed);
}

TEST_F(HostilePages, AStoppedBrowserFailsThePageAndIsReplaced)
{
    server.on(u"/silent"_s, [](Exchange&) {});
    const auto browser = await(keeper().browser(30s));
    ASSERT_TRUE(browser.ok());
    QProcess::execute(u"kill"_s, {u"-STOP"_s, QString::number((*browser)->processId())});
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(failure(captureHtml("<p>never seen", within(2s))), Error::Kind::Timeout);
    EXPECT_LT(clock.elapsed(), 2000 + 5000);
}

TEST_F(HostilePages, NothingOfOnePageReachesTheNext)
{
    int strangers = 0;
    server.on(u"/shared"_s, [&strangers](Exchange& exchange) {
        if (exchange.header("cookie").contains("left")) ++strangers;
        exchange.reply("<!doctype html><body style='background:red'><script>"
                       "const fresh = !localStorage.left && !document.cookie; localStorage.left = 1;"
                       "document.cookie = 'left=1'; if (fresh) document.body.style.background = 'green';"
                       "</script>",
                       "text/html", "200 OK", "Cache-Control: max-age=3600\r\n");
    });
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(pixel(image(capture(server.url(u"/shared"_s))), 600, 400), 0x008000u);
    EXPECT_EQ(server.requests(u"/shared"_s), 2) << "the cache must not answer for the second page";
    EXPECT_EQ(strangers, 0);
}

TEST_F(HostilePages, LocalFilesStayWhereTheyBelong)
{
    QTemporaryDir folder;
    QTemporaryDir outside;
    const auto write = [](const QString& path, const QByteArray& text) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size();
    };
    const QByteArray frame = "<!doctype html><body style='margin:0;background:red'>";
    const QByteArray secret = outside.filePath(u"secret.html"_s).toUtf8();
    ASSERT_TRUE(write(folder.filePath(u"near.html"_s), frame));
    ASSERT_TRUE(write(outside.filePath(u"secret.html"_s), frame));
    ASSERT_TRUE(write(
        folder.filePath(u"page.html"_s),
        "<!doctype html><body style='margin:0'><iframe style='border:0;display:block' src=near.html></iframe>"
        "<iframe style='border:0;display:block' src='file://" +
            secret + "'></iframe>"));
    const auto page = folder.filePath(u"page.html"_s);
    const QImage free = image(capture(page));
    EXPECT_EQ(pixel(free, 20, 20), 0xff0000u);
    EXPECT_EQ(pixel(free, 20, 170), 0xff0000u);
    PageRequest confined;
    confined.confinement = folder.path();
    const QImage held = image(capture(page, confined));
    EXPECT_EQ(pixel(held, 20, 20), 0xff0000u);
    EXPECT_NE(pixel(held, 20, 170), 0xff0000u);
    const QImage remote =
        image(captureHtml("<!doctype html><body style='margin:0'><iframe style='border:0' src='file://" +
                          secret + "'></iframe>"));
    EXPECT_NE(pixel(remote, 20, 20), 0xff0000u) << "a page from a server shows a local file";
}

TEST_F(HostilePages, TheSandboxIsOnAndNoPortIsOpen)
{
    const auto browser = await(keeper().browser(30s));
    ASSERT_TRUE(browser.ok());
    QFile line(u"/proc/%1/cmdline"_s.arg((*browser)->processId()));
    ASSERT_TRUE(line.open(QIODevice::ReadOnly));
    const QByteArray arguments = line.readAll();
    EXPECT_FALSE(arguments.contains("no-sandbox"));
    EXPECT_FALSE(arguments.contains("debugging-port"));
}

} // namespace
} // namespace vistrel::test
