#include "tests/capture/page_fixture.h"

#include <QTimer>

using namespace vistrel;

namespace vistrel::test
{
namespace
{

constexpr QRgb kRed = 0xff0000;
constexpr QRgb kGreen = 0x008000;
constexpr QRgb kBlue = 0x0000ff;

using PageOptions = PageTest;

TEST_F(PageOptions, EveryScaleGivesWholePixelsAcrossStrips)
{
    // Bands of 100 CSS px, which are whole pixels at every scale: a strip that begins off by one shows.
    QByteArray html = "<!doctype html><body style='margin:0'>";
    for (int band = 0; band < 177; ++band)
        html +=
            "<div style='height:100px;background:" + QByteArray(band % 2 == 0 ? "red" : "blue") + "'></div>";
    html += "<div style='height:33px;background:green'></div>";
    for (const double scale : {0.5, 1.37, 2.0}) {
        PageRequest request;
        request.scale = scale;
        request.viewport = {901, 333};
        const auto shot = captureHtml(html, request);
        ASSERT_TRUE(shot.ok()) << shot.error().text().toStdString();
        EXPECT_EQ(shot->picture.size(), QSize(901, 17733) * scale);
        int row = 0;
        for (const QByteArray& bytes : shot->picture.strips()) {
            const QImage strip = QImage::fromData(bytes);
            const bool last = &bytes == &shot->picture.strips().last(); // May end in a part of a pixel.
            for (int y = 0; y < strip.height() - (last ? 1 : 0); ++y) {
                const int band = int((row + y) / (100 * scale));
                const QRgb colour = band == 177 ? kGreen : band % 2 == 0 ? kRed : kBlue;
                constexpr QRgb coarse =
                    0xf0f0f0; // Scaling mixes in a trace of the neighbour where tiles meet.
                ASSERT_EQ(pixel(strip, 20, y) & coarse, colour & coarse)
                    << "row " << row + y << " at " << scale;
            }
            row += strip.height();
        }
    }
}

TEST_F(PageOptions, ThePictureShowsThePartThatWasAskedFor)
{
    const QByteArray html =
        "<!doctype html><body style='margin:0;background:red'><div style='height:5000px'></div>"
        "<div class=part style='margin-left:10.5px;width:100.2px;height:700px;background:green'></div>"
        "<div class=part style='display:none'></div><p hidden></p>";
    PageRequest window;
    window.windowOnly = true;
    EXPECT_EQ(image(captureHtml(html, window)).size(), QSize(1280, 800));
    PageRequest cut;
    cut.maxHeight = 1000;
    EXPECT_EQ(image(captureHtml(html, cut)).size(), QSize(1280, 1000));
    PageRequest part;
    part.element = u".part"_s;
    const QImage picture = image(captureHtml(html, part));
    EXPECT_EQ(picture.size(), QSize(101, 700));
    EXPECT_EQ(pixel(picture, 50, 350), kGreen);
    part.maxHeight = 30;
    EXPECT_EQ(image(captureHtml(html, part)).height(), 30);
    const QList<std::pair<QString, Error::Kind>> wrong{
        {u"#none"_s, Error::Kind::Page}, {u"p"_s, Error::Kind::Page}, {u"p["_s, Error::Kind::Usage}};
    for (const auto& [selector, kind] : wrong) {
        part.element = selector;
        const auto shot = captureHtml(html, part);
        ASSERT_FALSE(shot.ok());
        EXPECT_EQ(shot.error().kind, kind);
        EXPECT_TRUE(shot.error().message.contains(selector)) << shot.error().text().toStdString();
    }
}

TEST_F(PageOptions, TheReadersStyleAndScriptComeOnTopOfThePages)
{
    PageRequest request;
    request.dark = true;
    request.wantsTitle = true;
    request.style = u"#style { background: blue !important }"_s;
    request.hidden = QStringList{u".banner"_s, u"[role=dialog]"_s};
    request.script = u"await null; document.getElementById('script').style.background = pageColour;\n"
                     "document.body.append(document.createElement('aside')); // the end"_s;
    const QByteArray html =
        "<!doctype html><title>Tea</title><style>div { height: 40px } @media (prefers-color-scheme: dark) "
        "{ #dark { background: "
        "green } }</style><body style='margin:0'><div class=banner></div><section "
        "role=dialog style='height:9px'>"
        "</section><div id=dark></div><div id=style></div><div "
        "id=script></div><script>pageColour = 'red'</script>";
    const auto shot = captureHtml(html, request);
    const QImage picture = image(shot);
    EXPECT_EQ(pixel(picture, 20, 20), kGreen);
    EXPECT_EQ(pixel(picture, 20, 60), kBlue);
    EXPECT_EQ(pixel(picture, 20, 100), kRed);
    EXPECT_TRUE(shot->warnings.isEmpty());
    EXPECT_EQ(shot->title, u"Tea"_s);
    for (const QString& script :
         {u"throw new Error('out of tea')"_s, u"await Promise.reject('out of tea')"_s}) {
        request.script = script;
        const auto warned = captureHtml(html, request);
        ASSERT_TRUE(warned.ok());
        EXPECT_TRUE(warned->warnings.join(u' ').contains(u"out of tea"_s));
    }
    request.hidden = {u"p {"_s};
    EXPECT_FALSE(captureHtml(html, request).ok());
}

TEST_F(PageOptions, ThePictureWaitsForWhatItIsToldToWaitFor)
{
    const QByteArray html =
        "<!doctype html><body><script>setTimeout(() => fetch('/slow').then(() => { "
        "document.body.style.background = 'green'; document.body.id = 'ready' }), 300)</script>";
    server.on(u"/slow"_s, [](Exchange& exchange) {
        QTimer::singleShot(300, &exchange.socket(), [&socket = exchange.socket()] {
            Exchange(socket, "GET / HTTP/1.1").reply("now");
        });
    });
    PageRequest element;
    element.awaitedElement = u"#ready"_s;
    EXPECT_EQ(pixel(image(captureHtml(html, element)), 600, 400), kGreen);
    PageRequest idle;
    idle.awaitsIdle = true;
    EXPECT_EQ(pixel(image(captureHtml(html, idle)), 600, 400), kGreen);
    element.awaitedElement = u"#never"_s;
    element.timeout = 2s;
    const auto late = captureHtml(html, element);
    ASSERT_FALSE(late.ok());
    EXPECT_EQ(late.error().kind, Error::Kind::Timeout);
    EXPECT_TRUE(late.error().message.contains(u"#never"_s)) << late.error().text().toStdString();
    idle.timeout = 8s;
    const auto polling =
        captureHtml("<!doctype html><script>setInterval(() => fetch('/x'), 50)</script>", idle);
    ASSERT_TRUE(polling.ok()) << polling.error().text().toStdString();
    EXPECT_TRUE(polling->warnings.join(u' ').contains(u"fetching"_s));
    const auto working =
        captureHtml("<!doctype html><script>new Worker(URL.createObjectURL(new Blob(['0'])))</script>", idle);
    ASSERT_TRUE(working.ok()) << working.error().text().toStdString();
    EXPECT_TRUE(working->warnings.isEmpty()) << working->warnings.join(u' ').toStdString();
}

TEST_F(PageOptions, HeadersAndCookiesReachTheOwnHostAlone)
{
    QMap<QString, QByteArray> seen; // By the path asked for.
    const auto note = [&seen](Exchange& exchange) {
        seen[exchange.path()] = exchange.header("x-token") + '|' + exchange.header("cookie");
    };
    const QByteArray elsewhere = "http://localhost:" + QByteArray::number(server.port());
    for (const QString& path : {u"/own"_s, u"/other"_s, u"/redirected"_s}) {
        server.on(path, [note](Exchange& exchange) {
            note(exchange);
            exchange.reply("x", "text/plain");
        });
    }
    server.on(u"/away"_s, [note, elsewhere](Exchange& exchange) {
        note(exchange);
        exchange.redirect(elsewhere + "/redirected");
    });
    server.on(u"/p"_s, [note, elsewhere](Exchange& exchange) {
        note(exchange);
        exchange.reply("<!doctype html><img src=/own><img src=/away><img src=" + elsewhere + "/other>");
    });
    PageRequest request;
    request.headers = {{u"X-Token"_s, u"abc"_s}};
    request.cookies = {{u"a"_s, u"b"_s}, {u"c"_s, u"d"_s}};
    ASSERT_TRUE(capture(server.url(u"/p"_s), request).ok());
    for (const QString& path : {u"/p"_s, u"/own"_s, u"/away"_s})
        EXPECT_EQ(seen.value(path), "abc|a=b; c=d") << path.toStdString();
    for (const QString& path : {u"/other"_s, u"/redirected"_s})
        EXPECT_EQ(seen.value(path), "|") << path.toStdString();
}

TEST_F(PageOptions, TheBrowserIsWhoItIsToldToBe)
{
    BrowserOptions options;
    options.language = u"de-CH,de"_s;
    options.userAgent = u"Tea/1.0"_s;
    options.proxy = u"http://127.0.0.1:%1"_s.arg(server.port());
    BrowserKeeper own(options);
    QByteArray asked;
    server.on(u"/through-the-proxy"_s, [&asked](Exchange& exchange) {
        asked = exchange.header("host") + ' ' + exchange.header("accept-language") + ' ' +
                exchange.header("user-agent");
        exchange.reply("<!doctype html><body><script>document.body.style.background = "
                       "navigator.language === 'de-CH' && navigator.userAgent === 'Tea/1.0' ? 'green' : 'red'"
                       "</script>");
    });
    PageRequest request;
    request.addresses = {QUrl(u"http://shop.example/through-the-proxy"_s)};
    const auto browser = await(own.browser(30s));
    ASSERT_TRUE(browser.ok());
    const auto shot = await(PageRun::create(*browser, request)->run());
    EXPECT_EQ(pixel(image(shot), 600, 400), kGreen);
    EXPECT_EQ(asked, "shop.example de-CH,de Tea/1.0");
}

} // namespace
} // namespace vistrel::test
