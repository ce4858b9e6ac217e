#include "capture/image/image_encoder.h"
#include "capture/page/screenshot.h"
#include "tests/capture/page_fixture.h"
#include "tests/support/file_of.h"

#include <QFile>
#include <QTimer>

using namespace vistrel;

namespace vistrel::test
{
namespace
{

constexpr QRgb kRed = 0xff0000;
constexpr QRgb kGreen = 0x008000;
constexpr QRgb kBlue = 0x0000ff;
constexpr QRgb kWhite = 0xffffff;

using PagePictures = PageTest;

QByteArray box(int top, const QByteArray& colour, const QByteArray& more = {})
{
    return "<div style='position:absolute;left:0;top:" + QByteArray::number(top) +
           "px;width:40px;height:40px;background:" + colour + ";" + more + "'></div>";
}

TEST_F(PagePictures, TallPagesAreCompleteToTheLastMarker)
{
    for (const int height : {60000, 120000}) {
        QByteArray html =
            "<!doctype html><body style='margin:0;height:" + QByteArray::number(height) + "px'>";
        for (int top = 0; top < height; top += 1000)
            html += box(top, top % 2000 == 0 ? "red" : "blue");
        const auto shot = captureHtml(html);
        ASSERT_TRUE(shot.ok()) << shot.error().text().toStdString();
        EXPECT_EQ(shot->picture.size(), QSize(1280, height));
        int row = 0;
        for (const QByteArray& bytes : shot->picture.strips()) {
            const QImage strip = QImage::fromData(bytes);
            for (int y = 0; y < strip.height(); ++y) {
                const int place = (row + y) % 1000;
                if (place != 0 && place != 39 && place != 40) continue;
                const QRgb marker = (row + y) / 1000 % 2 == 0 ? kRed : kBlue;
                ASSERT_EQ(pixel(strip, 20, y), place == 40 ? kWhite : marker) << "row " << row + y;
            }
            row += strip.height();
        }
        EXPECT_EQ(row, height);
    }
}

TEST_F(PagePictures, TallPagesAtOnceWaitForTheSameCheckOfTheirBrowser)
{
    BrowserKeeper fresh{{}};
    const auto browser = await(fresh.browser(30s));
    ASSERT_TRUE(browser.ok());
    PageRequest request;
    server.page(u"/tall"_s, "<!doctype html><body style='margin:0;height:16000px'>" + box(15900, "blue"));
    request.addresses = {QUrl(server.url(u"/tall"_s))};
    std::vector<Task<Result<PageShot>>> runs;
    for (int i = 0; i < 3; ++i)
        runs.push_back(PageRun::create(*browser, request)->run());
    for (auto& run : runs)
        EXPECT_EQ(pixel(image(await(std::move(run))), 20, 15920), kBlue);
}

TEST_F(PagePictures, TallJpegsAreOneFileWithEveryMarkerInItsPlace)
{
    QByteArray html = "<!doctype html><body style='margin:0;height:50000px'>";
    for (int top = 0; top < 50000; top += 1000)
        html += box(top, top % 2000 == 0 ? "red" : "blue");
    for (const double scale : {1.0, 1.3}) {
        PageRequest request;
        request.encoding = PagePicture::Encoding::Jpeg;
        request.viewport = {200, 800};
        request.scale = scale;
        const auto shot = captureHtml(html, request);
        ASSERT_TRUE(shot.ok()) << shot.error().text().toStdString();
        EXPECT_EQ(shot->picture.encoding(), PagePicture::Encoding::Jpeg);
        EXPECT_GT(shot->picture.strips().size(), 2);
        const auto file = fileOf(
            [&](QIODevice& device) { return encodeImage(shot->picture, ImageFormat::Jpeg, 80, device); });
        ASSERT_TRUE(file.ok()) << file.error().text().toStdString();
        const QImage page = QImage::fromData(*file);
        ASSERT_EQ(page.size(), QSize(200, 50000) * scale);
        for (int y = 0; y < 50000; ++y) {
            const int place = y % 1000;
            if (place != 3 && place != 36 && place != 45 && place != 995) continue;
            const QColor seen(page.pixel(int(20 * scale), int(y * scale)));
            const int redness = seen.red() - seen.blue();
            const bool white = std::abs(redness) < 60 && seen.green() > 190;
            const bool marker = (y % 2000 < 1000 ? redness : -redness) > 190;
            ASSERT_TRUE(place < 45 ? marker : white) << "row " << y << " at " << scale;
        }
    }
}

TEST_F(PagePictures, JpegsOfHighQualityKeepTheColourOfEachPixel)
{
    PageRequest request;
    request.encoding = PagePicture::Encoding::Jpeg;
    request.jpegQuality = 95;
    const auto shot = captureHtml(
        "<!doctype html><body style='background:repeating-linear-gradient(90deg,red 0 1px,white 1px 2px)'>",
        request);
    ASSERT_TRUE(shot.ok());
    const auto file = fileOf([&](QIODevice& device) {
        return encodeImage(shot->picture, ImageFormat::Jpeg, request.jpegQuality, device);
    });
    const QImage page = QImage::fromData(*file);
    EXPECT_LT(qGreen(pixel(page, 400, 300)), 60);
    EXPECT_GT(qGreen(pixel(page, 401, 300)), 200);
}

TEST_F(PagePictures, StripsOfAJpegEndWhereTheyCanBeJoined)
{
    for (const int width : {200, 1280, 5000}) {
        for (int hundredths = 50; hundredths <= 400; ++hundredths) {
            const QRect area(0, 0, width, 1000000);
            const ShotSettings settings{PagePicture::Encoding::Jpeg, 80, 20480, hundredths / 100.0};
            const int rows = stripRows(area, settings);
            EXPECT_EQ(rows * hundredths % 1600, 0) << rows << " at " << hundredths;
            EXPECT_LE(qint64(rows) * width * hundredths * hundredths / 10000, kMostStripPixels) << hundredths;
            EXPECT_TRUE(rows > 0 || width * hundredths > 400000) << hundredths;
            EXPECT_EQ(stripRows({0, 0, width, 300}, settings), 300) << hundredths;
        }
    }
}

TEST_F(PagePictures, AShortPageFillsTheWindowAndOnesWithoutHeightToo)
{
    const QImage clear = image(captureHtml("<!doctype html><html style='background:transparent'>hello"));
    EXPECT_EQ(clear.size(), QSize(1280, 800));
    EXPECT_EQ(pixel(clear, 600, 400), kWhite) << "transparent pages stand on white";
    EXPECT_EQ(image(captureHtml("<!doctype html><body style='height:0;display:none'>")).size(),
              QSize(1280, 800));
    const QImage frames =
        image(captureHtml("<frameset cols='50%,50%'><frame src='data:text/html,<body bgcolor=red>'>"
                          "<frame src='data:text/html,<body bgcolor=blue>'></frameset>"));
    EXPECT_EQ(pixel(frames, 300, 400), kRed);
    EXPECT_EQ(pixel(frames, 900, 400), kBlue);
}

TEST_F(PagePictures, HorizontalOverflowIsInThePictureInBothWritingDirections)
{
    const QImage wide =
        image(captureHtml("<!doctype html><body style='margin:0'><div style='width:2000px;height:50px;"
                          "background:linear-gradient(to right,red 0 50%,blue 50%)'></div>"));
    EXPECT_EQ(wide.width(), 2000);
    EXPECT_EQ(pixel(wide, 1990, 20), kBlue);
    const QImage rightToLeft = image(captureHtml(
        "<!doctype html><html dir=rtl><body style='margin:0'><div style='width:2000px;height:50px;"
        "background:linear-gradient(to right,red 0 50%,blue 50%)'></div>"));
    const QByteArray carousel = "<body style='margin:0;background:green'><div style='width:9000px'>.</div>";
    EXPECT_EQ(image(captureHtml("<!doctype html>" + carousel)).width(), 1280);
    const QImage mirrored = image(captureHtml("<!doctype html><html dir=rtl>" + carousel));
    EXPECT_EQ(mirrored.width(), 1280);
    EXPECT_EQ(pixel(mirrored, 1270, 400), kGreen);
    EXPECT_EQ(rightToLeft.width(), 2000);
    EXPECT_EQ(pixel(rightToLeft, 10, 20), kRed);
    EXPECT_EQ(pixel(rightToLeft, 1990, 20), kBlue);
}

TEST_F(PagePictures, FixedAndStickyPartsAppearOnceAndFullHeightSectionsKeepTheWindowsHeight)
{
    const QImage page = image(captureHtml(
        "<!doctype html><body style='margin:0;scroll-behavior:smooth'>"
        "<div style='position:fixed;left:0;top:0;width:100px;height:50px;background:red'></div>"
        "<div style='position:fixed;left:0;bottom:0;width:100px;height:50px;background:blue'></div>"
        "<div style='height:100vh;background:green'></div>"
        "<div style='position:sticky;top:0;height:60px;margin-left:200px;background:red'></div>"
        "<div style='height:3000px'></div><script>addEventListener('scroll', () => {})</script>"));
    EXPECT_EQ(page.height(), 800 + 60 + 3000);
    EXPECT_EQ(pixel(page, 50, 25), kRed);
    EXPECT_EQ(pixel(page, 300, 799), kGreen);
    EXPECT_EQ(pixel(page, 300, 830), kRed);
    EXPECT_EQ(pixel(page, 300, 861), kWhite);
    int redRuns = 0;
    for (int y = 1; y < page.height(); ++y)
        redRuns += pixel(page, 50, y) == kRed && pixel(page, 50, y - 1) != kRed ? 1 : 0;
    EXPECT_EQ(redRuns, 0) << "the fixed part is painted again further down";
}

TEST_F(PagePictures, LazyPartsAreThere)
{
    const auto redAfter = [](std::chrono::milliseconds wait) {
        return [wait](Exchange& exchange) {
            QTimer::singleShot(wait, &exchange.socket(), [&socket = exchange.socket()] {
                Exchange(socket, "GET / HTTP/1.1")
                    .reply("<svg xmlns='http://www.w3.org/2000/svg' width='40' height='40'>"
                           "<rect width='40' height='40' fill='red'/></svg>",
                           "image/svg+xml");
            });
        };
    };
    server.on(u"/red.svg"_s, redAfter(100ms));
    server.on(u"/late.svg"_s, redAfter(800ms));
    const QByteArray lazy = "<img loading=lazy src=/red.svg width=40 height=40 style='display:block'>";
    const QByteArray watched =
        "<div id=late style='height:40px;width:40px'></div><script>new IntersectionObserver(all => {"
        "if (all[0].isIntersecting) late.style.background = 'red'; }).observe(late)</script>";
    const QByteArray fetched =
        "<div id=late></div><script>const show = () => late.innerHTML = '<img src=/late.svg>';"
        "fetch('/red.svg').then(answer => answer.text()).then(() => setTimeout(show, 5))</script>";
    const QByteArray frame = "<iframe style='border:0;display:block' srcdoc='<body style=margin:0>"
                             "<img loading=lazy src=/red.svg>'></iframe>";
    for (const QByteArray& part : {lazy, watched, fetched, frame}) {
        const QByteArray html =
            "<!doctype html><body style='margin:0'><div style='height:8000px'></div>" + part;
        EXPECT_EQ(pixel(image(captureHtml(html)), 20, 8020), kRed) << part.constData();
    }
}

TEST_F(PagePictures, PartsThatShrinkOnTheWayHideNoOthers)
{
    const QImage page =
        image(captureHtml("<!doctype html><style>p { margin:0; height:800px; background:red }</style>"
                          "<body style='margin:0'>" +
                          QByteArray("<p></p>").repeated(12) +
                          "<script>const watch = new IntersectionObserver(all => { for (const one of all) {"
                          "if (one.isIntersecting) one.target.style.background = 'green';"
                          "else if (one.target.style.background) one.target.style.height = '100px'; } });"
                          "for (const part of document.querySelectorAll('p')) watch.observe(part)</script>"));
    for (int y = 50; y < page.height(); y += 100)
        EXPECT_EQ(pixel(page, 20, y), kGreen) << "was not seen: " << y;
}

TEST_F(PagePictures, ThePageDoesNotNoticeItsPicture)
{
    const QImage page = image(captureHtml(
        "<!doctype html><body style='margin:0;height:5000px;background:green'><script>"
        "const spoil = () => document.body.style.background = 'red'; addEventListener('resize', spoil);"
        "matchMedia('(max-width: 9px)').addEventListener('change', spoil)</script>"));
    EXPECT_EQ(pixel(page, 20, 4900), kGreen);
}

TEST_F(PagePictures, EndlessScrollingEnds)
{
    PageRequest request;
    request.timeout = 25s;
    const auto shot =
        captureHtml("<!doctype html><body style='margin:0'><div style='height:2000px'></div><script>"
                    "addEventListener('scroll', () => { const more = document.createElement('div');"
                    "more.style.height = '1000px'; document.body.append(more); })</script>",
                    request);
    ASSERT_TRUE(shot.ok()) << shot.error().text().toStdString();
    EXPECT_GT(shot->picture.size().height(), 4000);
}

TEST_F(PagePictures, AContainerThatScrollsInPlaceOfThePageIsShownInFull)
{
    const QImage page =
        image(captureHtml("<!doctype html><body style='margin:0'><div style='height:100vh;overflow:auto'>"
                          "<div style='height:3000px;background:green'></div>"
                          "<div style='height:40px;background:blue'></div></div>"));
    EXPECT_EQ(page.height(), 3040);
    EXPECT_EQ(pixel(page, 20, 3020), kBlue);
}

TEST_F(PagePictures, LateNavigationsAreFollowed)
{
    server.page(u"/end"_s, "<!doctype html><body style='background:green'>");
    for (const QByteArray how : {"<script>onload = () => location = '/end'</script>",
                                 "<script>setTimeout(() => location = '/end', 30)</script>",
                                 "<meta http-equiv=refresh content='0;url=/end'>"}) {
        const auto shot = captureHtml("<!doctype html><body style='background:red;height:3000px'>" + how);
        EXPECT_EQ(pixel(image(shot), 600, 400), kGreen) << how.toStdString();
        EXPECT_TRUE(shot && shot->finalAddress.path() == u"/end");
    }
}

TEST_F(PagePictures, APageThatMovesOnDuringTheDelayIsMadeReadyAnew)
{
    const QByteArray container =
        "<!doctype html><body style='margin:0'><div style='height:100vh;overflow:auto'>"
        "<div id=banner style='height:100px;background:red'></div>"
        "<div style='height:3000px;background:green'></div></div>";
    server.page(u"/end"_s, container);
    PageRequest request;
    request.delay = 1500ms;
    request.hidden = {u"#banner"_s};
    const auto shot =
        captureHtml(container + "<script>setTimeout(() => location = '/end', 1000)</script>", request);
    EXPECT_TRUE(shot && shot->finalAddress.path() == u"/end");
    EXPECT_EQ(image(shot).height(), 3000);
    EXPECT_EQ(pixel(image(shot), 20, 50), kGreen);
}

TEST_F(PagePictures, TwoCapturesOfALocalPageAreTheSameBytes)
{
    QTemporaryDir folder;
    QFile file(folder.filePath(u"moving.html"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "<!doctype html><style>@keyframes a { from { left: 0 } to { left: 500px } }"
        "div { position: absolute; width: 50px; height: 50px; background: red }"
        ".once { animation: a 90s linear forwards; top: 100px }"
        ".ever { animation: a 3s linear infinite; top: 200px }"
        ".soft { transition: left 60s; left: 0; top: 300px }</style>"
        "<input autofocus value=caret><div class=once></div><div class=ever></div><div class=soft></div>"
        "<script>requestAnimationFrame(() => document.querySelector('.soft').style.left = '400px')</script>");
    file.close();
    const auto first = capture(file.fileName());
    PageRequest later;
    later.delay = 700ms;
    const auto second = capture(file.fileName(), later);
    const QImage picture = image(first);
    ASSERT_TRUE(second.ok());
    EXPECT_EQ(first->picture.strips(), second->picture.strips());
    EXPECT_EQ(pixel(picture, 525, 125), kRed) << "a finite animation stands at its end";
    EXPECT_EQ(pixel(picture, 25, 225), kRed) << "an endless one at its start";
    EXPECT_EQ(pixel(picture, 425, 325), kRed) << "a transition at its end";
}

TEST_F(PagePictures, AnimatedImagesStandStill)
{
    // Two frames of one pixel, red then blue, 20 ms each, for ever.
    const QByteArray gif = QByteArray::fromHex(
        "474946383961010001008000 00ff00000000ff21ff0b4e45545343415045322e300301000000"
        "21f904040200000 02c000000000100010000020244010021f90404020000002c00000000010001000002024c01003b");
    server.on(u"/two.gif"_s, [gif](Exchange& exchange) { exchange.reply(gif, "image/gif"); });
    PageRequest request;
    request.delay = 300ms;
    const QImage page = image(
        captureHtml("<!doctype html><body style='margin:0'><img src=/two.gif width=40 height=40>", request));
    EXPECT_EQ(pixel(page, 20, 20), kRed);
}

TEST_F(PagePictures, ScriptsRunOnlyWhereTheyMay)
{
    const QByteArray html = "<!doctype html><body style='background:red'>"
                            "<script>document.body.style.background = 'green'</script>"
                            "<noscript><div style='height:3000px'></div></noscript>";
    EXPECT_EQ(pixel(image(captureHtml(html)), 600, 400), kGreen);
    PageRequest request;
    request.allowScript = false;
    const QImage still = image(captureHtml(html, request));
    EXPECT_EQ(pixel(still, 600, 400), kRed);
    EXPECT_GT(still.height(), 3000);
}

TEST_F(PagePictures, ThePageCannotReachOurScripts)
{
    const QImage page =
        image(captureHtml("<!doctype html><body style='margin:0;background:green;height:3000px'><script>"
                          "Promise = Array = setTimeout = undefined; window.scrollTo = () => { throw 1; };"
                          "document.body.getAnimations = 7; Element.prototype.querySelectorAll = null;"
                          "</script>"));
    EXPECT_EQ(page.height(), 3000);
    EXPECT_EQ(pixel(page, 600, 2900), kGreen);
}

TEST_F(PagePictures, ProgressRisesFromZeroToAHundred)
{
    server.page(u"/p"_s, "<!doctype html><body style='height:40000px'>");
    const auto browser = await(keeper().browser(30s));
    ASSERT_TRUE(browser.ok());
    PageRequest request;
    request.addresses = {QUrl(server.url(u"/p"_s))};
    const auto run = PageRun::create(*browser, request);
    QList<int> steps;
    QObject::connect(run.get(), &PageRun::progress, run.get(), [&steps](int percent) { steps += percent; });
    ASSERT_TRUE(await(run->run()).ok());
    EXPECT_EQ(steps.first(), 0);
    EXPECT_EQ(steps.last(), 100);
    EXPECT_GE(steps.size(), 6);
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
}

} // namespace
} // namespace vistrel::test
