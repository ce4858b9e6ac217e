#include "tests/convert/run_test.h"

using namespace vistrel;
using namespace vistrel::test;

namespace
{

const QString stopping = u"Stoping, Please wait..."_s;

} // namespace

class StopTest : public RunTest
{
protected:
    void stop() { converter.fbStop_Click(); }
};

TEST_F(StopTest, BetweenEntriesClosesTheRunAndBringsTheNoticeBack)
{
    config.openOutput = 1;
    window.onEvents = [this] {
        if (logged("progress: 2 of 3 URLs")) stop();
    };
    convert({u"http://a"_s, u"http://b"_s, u"http://c"_s});
    EXPECT_TRUE(log.lines().ends_with(R"(progress: 2 of 3 URLs
events
Ordane2 gone
notice: "Stoping, Please wait..."
tmrDelay off
open /out/
enable list buttons
tmrDelay off
hide progress
enable fbConvert
disable fbStop
tmrShow off
notice colour ffffff
notice: "Enter URLs"
hide percentage
)" + completion + "\n"))
        << log.lines();
    EXPECT_EQ(written(), QStringList{u"/out/http___a.png"_s});
}

TEST_F(StopTest, BesideACaptureClosesTheRunUnlessTheEntryStillNeedsTheComponent)
{
    config.nameAs = 2;
    window.dialogAnswers = {std::nullopt};
    window.onDialog = [this] { stop(); };
    convert({u"http://a"_s, u"http://b"_s});
    EXPECT_FALSE(logged("progress: 2 of 2 URLs"));
    EXPECT_TRUE(logged(completion));

    log.clear();
    config.nameAs = 0;
    files.contents[u"/out/http___a.png"_s] = "taken";
    window.onEvents = [this, turns = 0]() mutable {
        if (++turns == 2) stop();
    };
    convert({u"http://a"_s});
    EXPECT_FALSE(logged("CapturePage http://a *"));
    EXPECT_TRUE(staysRunning()) << "stopped while a free name is looked for";
}

TEST_F(StopTest, DuringACaptureLetsItReturnAndLeavesTheWindowRunning)
{
    script.duringCapture = [this](const auto& progress) {
        stop();
        EXPECT_FALSE(progress) << "the window still listens to a component that it gave up";
    };
    convert({u"http://a"_s});
    EXPECT_TRUE(log.lines().ends_with(R"(CapturePage http://a *
notice: "Stoping, Please wait..."
CapturePage returns
Ordane2 gone
)")) << log.lines();
    EXPECT_TRUE(staysRunning());
    EXPECT_TRUE(written().isEmpty());
    EXPECT_EQ(window.notice, stopping);
}

TEST_F(StopTest, PressedTwiceKeepsItsOwnMessageInTheNoticeLineForGood)
{
    window.onEvents = [this] {
        stop();
        stop();
    };
    convert({u"http://a"_s});
    EXPECT_TRUE(logged(completion));
    EXPECT_EQ(window.notice, stopping);
    window.onEvents = [] {};
    window.notice = u"Enter URLs"_s;
    convert({u"http://a"_s});
    EXPECT_EQ(window.notice, stopping);
    EXPECT_EQ(written(), QStringList{u"/out/http___a.png"_s});
}
