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
    const auto shot = captureHtml(
        "<!doctype html><body style='background:green'><script>alert(1); confirm(2); prompt(3);"
        "addEventListener('beforeunload', e => { e.preventDefault(); e.returnValue = 'stay'; });"
        "print(); window.open('about:blank'); for (let i = 0; i < 50; ++i) window.open('/x' + i);"
        "navigator.geolocation.getCurrentPosition(() => 0); Notification.requestPermission();"
        "navigator.mediaDevices?.getUserMedia({video: true}).catch(() => 0);"
        "document.body.requestFullscreen().catch(() => 0); const file = document.createElement('input');"
        "file.type = 'file'; document.body.append(file); file.click();</script>",
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

TEST_F(HostilePages, MarkupThatWaitsForWhatNeverComesIsShownWithoutIt)
{
    server.on(u"/a(b)+c/silent.js"_s, [](Exchange&) {});
    server.on(u"/silent.css"_s, [](Exchange&) {});
    const QByteArray inHead = "<!doctype html><link rel=stylesheet href=/silent.css><script>let ran</script>"
                              "<body style='background:green'>";
    const QByteArray inBody =
        "<!doctype html><body style='background:red'><script src='/a(b)+c/silent.js?x'></script>"
        "<script>document.body.style.background = 'green'</script>";
    for (const QByteArray& html : {inHead, inBody}) {
        const auto shot = captureHtml(html, within(6s));
        EXPECT_EQ(pixel(image(shot), 600, 400), 0x008000u) << html.constData();
        EXPECT_EQ(shot ? shot->warnings : QStringList(),
                  QStringList(u"without scripts or styles that never came from \"127.0.0.1\""_s));
    }
}

TEST_F(HostilePages, WhatIsNoPageFailsWithItsReason)
{
    const auto cut = [this](const QString& path, const QByteArray& headers) {
        server.on(path, [headers](Exchange& exchange) {
            exchange.begin("text/html", headers);
            exchange.send("<!doctype html><p>so far");
            exchange.socket().disconnectFromHost();
        });
    };
    server.on(u"/loop"_s, [](Exchange& exchange) { exchange.redirect("/loop"); });
    server.on(u"/to-file"_s, [](Exchange& exchange) { exchange.redirect("file:///etc/passwd"); });
    server.on(u"/empty"_s, [](Exchange& exchange) { exchange.reply({}, "text/html", "204 No Content"); });
    server.on(u"/zip"_s, [](Exchange& exchange) { exchange.reply("PK", "application/zip"); });
    server.on(u"/pdf"_s, [](Exchange& exchange) { exchange.reply("%PDF-1.4", "application/pdf"); });
    server.on(u"/reset"_s, [](Exchange& exchange) { exchange.socket().abort(); });
    server.on(u"/garbage"_s, [](Exchange& exchange) { exchange.send(QByteArray(100, '\1') + "\r\n\r\n"); });
    server.on(u"/not-zipped"_s, [](Exchange& exchange) {
        exchange.reply("plain", "text/html", "200 OK", "Content-Encoding: gzip\r\n");
    });
    cut(u"/short"_s, "Content-Length: 5000\r\n");
    cut(u"/torn"_s, "Transfer-Encoding: chunked\r\n");
    server.page(u"/leads-nowhere"_s, "<script>location = 'http://127.0.0.1:1/'</script>");
    const QList<QPair<QString, QString>> rows{{u"/loop"_s, u"ERR_TOO_MANY_REDIRECTS"_s},
                                              {u"/to-file"_s, u"ERR_UNSAFE_REDIRECT"_s},
                                              {u"/empty"_s, u"ERR_ABORTED"_s},
                                              {u"/zip"_s, u"download"_s},
                                              {u"/pdf"_s, u"download"_s},
                                              {u"/reset"_s, u"ERR_"_s},
                                              {u"/garbage"_s, u"ERR_INVALID_HTTP_RESPONSE"_s},
                                              {u"/not-zipped"_s, u"broke off: net::ERR_CONTENT_DECODING"_s},
                                              {u"/short"_s, u"broke off: net::ERR_CONTENT_LENGTH"_s},
                                              {u"/torn"_s, u"broke off: net::ERR_INCOMPLETE_CHUNKED"_s},
                                              {u"/leads-nowhere"_s, u"error page"_s}};
    for (const auto& [path, reason] : rows) {
        const auto shot = capture(server.url(path), within(10s));
        EXPECT_EQ(failure(shot), Error::Kind::Page) << path.toStdString();
        if (!shot) {
            EXPECT_TRUE(shot.error().text().contains(reason)) << shot.error().text().toStdString();
        }
    }
    for (const QString& address :
         {u"http://127.0.0.1:1/"_s, u"http://127.0.0.1:25/"_s, u"http://no.invalid/"_s})
        EXPECT_EQ(failure(capture(address, within(15s))), Error::Kind::Page) << address.toStdString();
    const auto numbers = capture(u"http://1.2.3.4.5/"_s, within(15s));
    ASSERT_EQ(failure(numbers), Error::Kind::Usage) << "no fault that passes";
    EXPECT_TRUE(numbers.error().message.contains(u"http://1.2.3.4.5/"_s));
}

TEST_F(HostilePages, WhateverTheBrowserShowsIsShownWithItsStatus)
{
    struct Row {
        QByteArray type, body, status, headers;
        QRgb middle;
    };
    const QByteArray red = "<!doctype html><body style='background:red'>";
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='1280' height='900'>"
                           "<rect width='1280' height='900' fill='red'/></svg>";
    const QList<Row> rows{
        {"text/html", red, "404 Not Found", {}, 0xff0000},
        {"text/html", red, "503 Service Unavailable", {}, 0xff0000},
        {"text/html", red, "401 Unauthorized", "WWW-Authenticate: Basic realm=\"x\"\r\n", 0xff0000},
        {"text/html", red, "401 Unauthorized", "WWW-Authenticate: NTLM\r\n", 0xff0000},
        {"text/html", red, "200 OK", "Content-Security-Policy: sandbox\r\n", 0xff0000},
        {"image/svg+xml", svg, "200 OK", {}, 0xff0000},
        {"text/plain", "text", "200 OK", {}, 0xffffff},
        {"application/json", "{}", "200 OK", {}, 0xffffff},
        {"text/xml", "<a/>", "200 OK", {}, 0xffffff},
        {"text/html", {}, "200 OK", {}, 0xffffff}};
    for (const Row& row : rows) {
        server.on(u"/row"_s, [row](Exchange& e) { e.reply(row.body, row.type, row.status, row.headers); });
        const auto shot = capture(server.url(u"/row"_s), within(10s));
        EXPECT_EQ(pixel(image(shot), 600, 400), row.middle) << row.type.constData();
        EXPECT_EQ(shot ? shot->httpStatus : 0, row.status.first(3).toInt());
    }
}

TEST_F(HostilePages, OneThatLeavesForWhatIsNoPageIsShownItself)
{
    server.on(u"/nothing"_s, [](Exchange& exchange) { exchange.reply({}, "text/html", "204 No Content"); });
    server.on(u"/zip"_s, [](Exchange& exchange) { exchange.reply("PK", "application/zip"); });
    for (const QByteArray where :
         {"mailto:a@example.org", "intent://x#Intent;end", "/nothing", "/zip", "javascript:0"}) {
        for (const QByteArray when : {"location = '%1'", "onload = () => location = '%1'"}) {
            const QByteArray script = QByteArray(when).replace("%1", where);
            const auto shot = captureHtml(
                "<!doctype html><body style='background:green'><script>" + script + "</script>", within(10s));
            EXPECT_EQ(pixel(image(shot), 600, 400), 0x008000u) << script.constData();
            EXPECT_EQ(shot ? shot->httpStatus : 0, 200) << script.constData();
        }
    }
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
}

TEST_F(HostilePages, BombsOfPartsEndInTime)
{
    server.page(u"/self"_s, "<!doctype html><iframe src='/self?1'></iframe><iframe src='/self?2'></iframe>");
    const QList<QByteArray> bombs{
        "<iframe src=/self></iframe>",
        "<script>for (let i = 0; i < 300; ++i) { const f = document.createElement('iframe'); f.src = "
        "'/self?' + i;"
        "document.body.append(f); }</script>",
        "<script>const busy = URL.createObjectURL(new Blob(['for (;;);']));"
        "for (let i = 0; i < 50; ++i) new Worker(busy)</script>",
        "<script>const code = 'onmessage = e => { const u = URL.createObjectURL(new Blob([e.data])); for "
        "(let i = 0; i < 3;'"
        "+ '++i) new Worker(u).postMessage(e.data) }';"
        "new Worker(URL.createObjectURL(new Blob([code]))).postMessage(code)</script>",
        "<script>let d = document.body; for (let i = 0; i < 20000; ++i) { const n = "
        "document.createElement('div');"
        "d.append(n); d = n; }</script>",
        "<script>document.body.innerHTML = '<p>x'.repeat(500000)</script>"};
    for (const QByteArray& bomb : bombs) {
        QElapsedTimer clock;
        clock.start();
        const auto shot = captureHtml("<!doctype html><body>" + bomb, within(3s));
        EXPECT_LT(clock.elapsed(), 3000 + 5000) << bomb.constData();
    }
}

TEST_F(HostilePages, AProcessOfTheBrowsersThatDiesIsNotTheEndOfTheRun)
{
    server.on(u"/never"_s, [](Exchange&) {});
    for (const QString& type : {u"renderer"_s, u"utility"_s, u"gpu-process"_s}) {
        const auto browser = await(keeper().browser(30s));
        ASSERT_TRUE(browser.ok());
        const QString group = QString::number((*browser)->processId());
        QTimer::singleShot(700, [&] {
            QProcess::execute(u"pkill"_s, {u"-9"_s, u"-g"_s, group, u"-f"_s, u"type="_s + type});
        });
        QElapsedTimer clock;
        clock.start();
        const auto shot =
            captureHtml("<!doctype html><body style='background:green'><img src=/never>", within(20s));
        EXPECT_TRUE(type != u"renderer" || (!shot && shot.error().kind == Error::Kind::Page));
        EXPECT_LT(clock.elapsed(), 18000) << type.toStdString();
        EXPECT_EQ(pixel(image(captureHtml("<body style='background:green'>")), 600, 400), 0x008000u)
            << type.toStdString();
    }
}

TEST_F(HostilePages, AKilledOrStoppedBrowserFailsThePageAndIsReplaced)
{
    server.on(u"/silent"_s, [](Exchange&) {});
    for (const auto& [signal, kind] :
         {std::pair(u"-KILL"_s, Error::Kind::Closed), {u"-STOP"_s, Error::Kind::Timeout}}) {
        const auto browser = await(keeper().browser(30s));
        ASSERT_TRUE(browser.ok());
        const QStringList command{signal, QString::number((*browser)->processId())};
        QTimer::singleShot(300, [&command] { QProcess::execute(u"kill"_s, command); });
        QElapsedTimer clock;
        clock.start();
        EXPECT_EQ(failure(capture(server.url(u"/silent"_s), within(3s))), kind) << signal.toStdString();
        EXPECT_LT(clock.elapsed(), 3000 + 5000);
    }
    const auto next = captureHtml("<p>never seen", within(20s));
    EXPECT_EQ(failure(next), Error::Kind::Closed) << "lost with the stopped browser, not by itself";
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
    confined.confinement = u"/"_s; // Everything is in there.
    EXPECT_EQ(pixel(image(capture(page, confined)), 20, 170), 0xff0000u);
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
