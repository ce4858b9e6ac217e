#include "convert/busy_bar.h"
#include "tests/convert/run_test.h"

using namespace vistrel;
using namespace vistrel::test;
using testing::ElementsAre;

TEST_F(RunTest, DrivesWindowAndComponentInOrder)
{
    config.openOutput = 1;
    config.thumbnail = true;
    script.unloadable = u"http://b"_s;
    script.duringCapture = [](const auto& progress) { progress(42); };
    convert({u"* comment"_s, u"http://a"_s, QString(), u"http://b"_s});
    EXPECT_EQ(log.lines(), R"(show progress
disable fbConvert
enable fbStop
tmrShow on
clear picProgress
tmrDelay off
disable list buttons
show percentage
SetCaptureTimeout 30000
SetAllowActiveX 1
SetAllowJava 0
SetAllowScript 1
SetRenderDelay 1000
SetJpegQuality 80
progress: 1 of 2 URLs
events
CapturePage http://a *
percentage: 42%
CapturePage returns
GetCaptureStatus
GetCaptureStatus
GetImageBytes *..png
GetThumbnailBytes *..png 50 40 0
ReleaseImage
progress: 2 of 2 URLs
events
CapturePage http://b *
percentage: 42%
CapturePage returns
GetCaptureStatus
GetCaptureStatus
ReleaseImage
Ordane2 gone
tmrDelay off
open /out/
enable list buttons
tmrDelay off
hide progress
enable fbConvert
disable fbStop
tmrShow off
notice colour ffffff
notice: ""
hide percentage
)" + completion + "\n");
    EXPECT_THAT(written(), ElementsAre(u"/out/http___a.png"_s, u"/out/http___a_T.png"_s));
    EXPECT_EQ(files.contents[u"/out/http___a.png"_s], "picture");
    EXPECT_EQ(files.contents[u"/out/http___a_T.png"_s], "thumb");
}

TEST_F(RunTest, NumbersKeptEntriesAndOpensNoFolderUnlessAskedToAndKnown)
{
    convert({u"* comment"_s, u"x"_s, QString()});
    EXPECT_TRUE(logged("enable fbConvert") && !logged("SetCaptureTimeout 30000") && !logged(completion));
    config.nameAs = 1;
    config.openOutput = 2;
    convert({u"x"_s, u"*"_s, u"http://a"_s});
    EXPECT_TRUE(logged("progress: 1 of 1 URL"));
    config.nameAs = 2;
    config.openOutput = 1;
    window.dialogAnswers = {std::nullopt, u"/out/b.png"_s};
    convert({u"http://a"_s, u"http://b"_s});
    EXPECT_FALSE(logged("open /out/"));
    EXPECT_THAT(written(), ElementsAre(u"/out/1.png"_s, u"/out/b.png"_s))
        << "a cancelled dialog skips one entry";
}

TEST_F(RunTest, NumbersDuplicatesAndReplacesAThumbnailInTheWayWhenItCan)
{
    config.thumbnail = true;
    files.contents[u"/out/http___a_T.png"_s] = "an older thumbnail";
    convert({u"http://a"_s, u"http://a"_s});
    EXPECT_THAT(written(), ElementsAre(u"/out/http___a(1).png"_s, u"/out/http___a(1)_T.png"_s,
                                       u"/out/http___a.png"_s, u"/out/http___a_T.png"_s));
    EXPECT_EQ(files.contents[u"/out/http___a_T.png"_s], "thumb");

    log.clear();
    files.folders.clear();
    files.contents.clear();
    convert({u"http://a"_s});
    EXPECT_TRUE(written().isEmpty() && logged(completion)) << "a success, whatever is written";

    log.clear();
    files.contents[u"/out/http___a_T.png"_s] = "old";
    files.undeletable.insert(u"/out/http___a_T.png"_s);
    convert({u"http://a"_s});
    EXPECT_TRUE(staysRunning());
}

TEST_F(RunTest, NamesALocalFileByItsLongPathAndCapturesTheShortOne)
{
    files.contents[u"/long name.html"_s] = {};
    files.shortPaths[u"/long name.html"_s] = u"/LONGNA~1.HTM"_s;
    files.contents[u"/gone.html"_s] = {};
    files.shortPaths[u"/gone.html"_s] = QString();
    convert({u"/long name.html"_s, u"/gone.html"_s});
    EXPECT_TRUE(logged("CapturePage /LONGNA~1.HTM *"));
    EXPECT_TRUE(logged("CapturePage  *"));
    EXPECT_TRUE(written().contains(u"/out/long name.png"_s));
}

TEST_F(RunTest, SettingsAreReadAsTheyAreWhenTheyAreNeeded)
{
    script.duringCapture = [this](const auto&) {
        config.thumbnail = true;
        config.nameAs = 1;
        config.imageType = 1;
        config.thumWidth = 9;
    };
    convert({u"http://a"_s, u"http://b"_s});
    EXPECT_TRUE(logged("GetThumbnailBytes *..png 9 40 0"));
    EXPECT_THAT(written(), ElementsAre(u"/out/2.png"_s, u"/out/2_T.png"_s, u"/out/http___a.png"_s,
                                       u"/out/http___a_T.png"_s));
    log.clear();
    script.duringCapture = [this](const auto&) { window.config.reset(); };
    convert({u"http://a"_s, u"http://b"_s});
    EXPECT_TRUE(staysRunning()) << "the settings are released";
    EXPECT_FALSE(logged("progress: 2 of 2 URLs"));
}

TEST_F(RunTest, AFailingCallOrAnOverflowingTimeLeavesTheWindowRunning)
{
    config.thumbnail = true;
    for (const char* operation :
         {"SetCaptureTimeout", "SetAllowScript", "SetRenderDelay", "SetJpegQuality", "CapturePage",
          "GetCaptureStatus", "GetImageBytes", "GetThumbnailBytes", "ReleaseImage"}) {
        log.clear();
        script.failing = QString::fromLatin1(operation);
        convert({u"http://a"_s, u"http://b"_s});
        EXPECT_TRUE(staysRunning()) << operation;
        EXPECT_FALSE(logged("progress: 2 of 2 URLs")) << operation;
    }
    script.failing.clear();
    for (qint32 FixedSettings::*seconds : {&FixedSettings::timeOut, &FixedSettings::delayTime}) {
        config.*seconds = 2147483;
        convert({u"http://a"_s});
        EXPECT_TRUE(logged(completion));
        log.clear();
        config.*seconds = 2147484;
        convert({u"http://a"_s});
        EXPECT_TRUE(staysRunning());
        config.*seconds = 0;
    }
}

TEST(BusyBar, GrowsByFourAndStartsAgainAtTheFramesInside)
{
    EXPECT_EQ(nextBusyBarWidth(4, 1650), 8);
    EXPECT_EQ(nextBusyBarWidth(1643, 1650), 1647);
    EXPECT_EQ(nextBusyBarWidth(1644, 1650), 4);
    EXPECT_EQ(nextBusyBarWidth(1700, 1650), 4);
}
