#include "capture/ordane2.h"

#include "platform/runtime_error.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vistrel::test
{
namespace
{

class Ordane2Test : public testing::Test
{
protected:
    QString page(const QString& name, const QByteArray& html)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(html);
        return file.fileName();
    }

    static QStringList scratchFolders()
    {
        return QDir(QDir::tempPath()).entryList({u"vistrel-browser-%1-*"_s.arg(getpid())});
    }

    QTemporaryDir folder;
};

TEST_F(Ordane2Test, KeepsOnePictureForEveryFormatUntilItIsReleased)
{
    for (const auto intended : {std::optional<ImageFormat>(), std::optional(ImageFormat::Jpeg)}) {
        Ordane2 component({}, intended);
        component.SetCaptureTimeout(20000);
        EXPECT_NE(component.GetCaptureStatus(), 1);
        EXPECT_THROW(static_cast<void>(component.GetImageBytes(u"*..png"_s)), RuntimeError);
        component.CapturePage(page(u"a.html"_s, "<!doctype html><body style='margin:0;height:1500px'>"),
                              u"*"_s);
        ASSERT_EQ(component.GetCaptureStatus(), 1);
        EXPECT_TRUE(component.GetImageBytes(u"*..png"_s).startsWith("\x89PNG"));
        EXPECT_TRUE(component.GetImageBytes(u"*..jpg"_s).startsWith("\xff\xd8"));
        EXPECT_TRUE(component.GetThumbnailBytes(u"*..gif"_s, 50, 40, 0).startsWith("GIF8"));
        EXPECT_TRUE(component.GetThumbnailBytes(u"*..bmp"_s, 50, 40, 0).startsWith("BM"));
        EXPECT_TRUE(component.GetImageBytes(u"*..tif"_s).startsWith("II*"));
        const QByteArray widest = component.GetThumbnailBytes(u"*..png"_s, 70000, 0, 0);
        EXPECT_EQ(*encodedSize(widest, PagePicture::Encoding::Png),
                  QSize(16384, 1)); // What can be made of it.
        EXPECT_THROW(static_cast<void>(component.GetImageBytes(u"*..xyz"_s)), RuntimeError);
        component.ReleaseImage();
        EXPECT_NE(component.GetCaptureStatus(), 1);
    }
}

TEST_F(Ordane2Test, WhatIsNoPageIsAStatusAndTheNextCaptureWorks)
{
    Ordane2 component;
    component.SetCaptureTimeout(20000);
    for (const QString& entry :
         {u""_s, u"no address at all"_s, u"/no/such/file.html"_s, u"javascript:1"_s, u"\tx.test"_s}) {
        component.CapturePage(entry, u"*"_s);
        EXPECT_NE(component.GetCaptureStatus(), 1) << entry.toStdString();
    }
    component.CapturePage(page(u"good.html"_s, "<p>hello"), u"*"_s);
    EXPECT_EQ(component.GetCaptureStatus(), 1);
}

TEST_F(Ordane2Test, APageThatTheIntendedFormatCannotHoldIsAStatus)
{
    const QString tall = page(u"tall.html"_s, "<!doctype html><body style='margin:0;height:66000px'>");
    Ordane2 jpeg({}, ImageFormat::Jpeg);
    jpeg.CapturePage(tall, u"*"_s);
    EXPECT_NE(jpeg.GetCaptureStatus(), 1);
    Ordane2 tiff({}, ImageFormat::Tiff);
    tiff.CapturePage(tall, u"*"_s);
    EXPECT_EQ(tiff.GetCaptureStatus(), 1);
}

TEST_F(Ordane2Test, TheTimeoutAndTheDelayAreKept)
{
    Ordane2 component;
    component.SetCaptureTimeout(1500);
    QElapsedTimer clock;
    clock.start();
    component.CapturePage(page(u"endless.html"_s, "<script>for (;;);</script>"), u"*"_s);
    EXPECT_NE(component.GetCaptureStatus(), 1);
    EXPECT_LT(clock.elapsed(), 1500 + 5000);
    component.SetCaptureTimeout(20000);
    component.SetRenderDelay(1200);
    clock.restart();
    component.CapturePage(page(u"short.html"_s, "<p>hello"), u"*"_s);
    EXPECT_EQ(component.GetCaptureStatus(), 1);
    EXPECT_GE(clock.elapsed(), 1200);
}

TEST_F(Ordane2Test, ReleasedDuringACaptureItEndsAtOnce)
{
    const QString endless = page(u"endless.html"_s, "<script>for (;;);</script>");
    for (const int after : {0, 100, 1500}) {
        auto component = std::make_unique<Ordane2>();
        component->SetCaptureTimeout(60000);
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(after, [&component] { component.reset(); });
        component->CapturePage(endless, u"*"_s);
        EXPECT_EQ(component, nullptr);
        EXPECT_LT(clock.elapsed(), after + 3000) << after;
        EXPECT_EQ(scratchFolders(), QStringList()) << after;
    }
}

TEST_F(Ordane2Test, APageThatLosesItsBrowserIsCapturedInAnother)
{
    Ordane2 component;
    component.SetRenderDelay(1500);
    int kills = 0;
    component.setProgressHandler([&kills](qint32 percent) {
        if (percent < 70 || kills++ > 0) return;
        QProcess::execute(u"pkill"_s, {u"-9"_s, u"-f"_s, scratchFolders().first()});
    });
    component.CapturePage(page(u"short.html"_s, "<p>hello"), u"*"_s);
    EXPECT_GT(kills, 0);
    EXPECT_EQ(component.GetCaptureStatus(), 1);
}

TEST_F(Ordane2Test, TheSecondBrowserGetsNoMoreThanWhatIsLeftOfTheTime)
{
    Ordane2 component;
    component.SetCaptureTimeout(4000);
    QElapsedTimer clock;
    clock.start();
    QTimer::singleShot(2500, [] {
        QProcess::execute(u"pkill"_s, {u"-9"_s, u"-f"_s, scratchFolders().first()});
    });
    component.CapturePage(page(u"endless.html"_s, "<script>for (;;);</script>"), u"*"_s);
    EXPECT_NE(component.GetCaptureStatus(), 1);
    EXPECT_GE(clock.elapsed(), 3900);
    EXPECT_LT(clock.elapsed(), 5500);
}

TEST_F(Ordane2Test, TheEventLoopTurnsAndProgressIsTold)
{
    Ordane2 component;
    QList<int> steps;
    component.setProgressHandler([&steps](qint32 percent) { steps += percent; });
    int ticks = 0;
    QTimer ticker;
    QObject::connect(&ticker, &QTimer::timeout, [&ticks] { ++ticks; });
    ticker.start(10);
    component.SetRenderDelay(500);
    component.CapturePage(page(u"short.html"_s, "<p>hello"), u"*"_s);
    EXPECT_GT(ticks, 20);
    EXPECT_EQ(steps.first(), 0);
    EXPECT_EQ(steps.last(), 100);
}

} // namespace
} // namespace vistrel::test
