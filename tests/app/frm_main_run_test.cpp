#include "tests/app/wizard_test.h"

#include "platform/forms/timer.h"

#include <algorithm>

namespace vistrel::test
{

namespace
{

const QString completion = u"information: Conversion complete successfully!       "_s;

class MainRunTest : public WizardTest
{
protected:
    MainRunTest()
    {
        startAgain();
        files.folders.insert(u"/out/"_s);
        setList(u"* comment\r\nhttp://a.example/\r\nhttp://b.example/\r\n"_s);
    }

    bool isRunning()
    {
        return listButtonsAre(false) && progressIs(true) && !isEnabled(u"fbConvert"_s) &&
               isEnabled(u"fbStop"_s);
    }
    bool isIdle()
    {
        return listButtonsAre(true) && progressIs(false) && isEnabled(u"fbConvert"_s) &&
               !isEnabled(u"fbStop"_s) && !control<Timer>(u"tmrDelay"_s).Enabled();
    }

private:
    bool isEnabled(const QString& name) { return widget(name).isEnabled(); }
    bool listButtonsAre(bool enabled)
    {
        return std::ranges::all_of(
            QStringList{u"fbLoadList"_s, u"fbClear"_s, u"fbSaveList"_s, u"fbAddFiles"_s},
            [&](const QString& name) { return control<FButton>(name).Enabled() == enabled; });
    }
    bool progressIs(bool shown)
    {
        const QStringList parts = {u"sFrame"_s, u"picProgress"_s, u"lblProgress"_s, u"lblProgress1"_s,
                                   u"lblprogress2"_s};
        return control<Timer>(u"tmrShow"_s).Enabled() == shown &&
               std::ranges::all_of(parts,
                                   [&](const QString& name) { return widget(name).isHidden() != shown; });
    }
};

TEST_F(MainRunTest, ARunShowsItsProgressAndEndsIdle)
{
    EXPECT_TRUE(isIdle());
    QStringList seen;
    script.duringCapture = [&](const PageCapture::ProgressHandler& progress) {
        EXPECT_TRUE(isRunning());
        progress(40);
        for (const QString& name : {u"lblProgress"_s, u"lblProgress1"_s, u"lblprogress2"_s})
            seen += control<Label>(name).Caption();
        click(u"fbMake(1)"_s);
        click(u"chkThum"_s); // The options work meanwhile: a thumbnail of the first entry.
    };
    click(u"fbConvert"_s);

    EXPECT_EQ(seen,
              QStringList({u"1 of 2 URLs"_s, u"40%"_s, u"40%"_s, u"2 of 2 URLs"_s, u"40%"_s, u"40%"_s}));
    EXPECT_EQ(files.contents.size(), 3);
    EXPECT_EQ(opened, QStringList(u"/out/"_s));
    EXPECT_EQ(messages.shown, QStringList(completion));
    EXPECT_EQ(notice(), QString()) << "the notice that a Stop saved, and there was none";
    click(u"fbMake(0)"_s);
    EXPECT_TRUE(isIdle());
}

TEST_F(MainRunTest, StopDuringACaptureLeavesTheWindowRunning)
{
    script.duringCapture = [&](const auto&) { click(u"fbStop"_s); };
    click(u"fbConvert"_s);

    EXPECT_TRUE(isRunning());
    EXPECT_EQ(notice(), u"Stoping, Please wait..."_s);
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_TRUE(files.contents.isEmpty());
    click(u"fbConvert"_s);
    click(u"fbClear"_s);
    EXPECT_TRUE(list().startsWith(u"* comment"_s)) << "locked until the program is closed";
}

TEST_F(MainRunTest, StopBetweenEntriesEndsTheRunAndBringsTheNoticeBack)
{
    script.duringCapture = [&](const auto&) {
        const QPoint middle = widget(u"fbStop"_s).rect().center();
        QTimer::singleShot(0, window.get(), [this, middle] { Pointer::click(widget(u"fbStop"_s), middle); });
    };
    click(u"fbConvert"_s);

    EXPECT_EQ(files.contents.size(), 1);
    EXPECT_EQ(messages.shown, QStringList(completion));
    EXPECT_EQ(notice(), u"Enter URLs in the following edit box, one URL per line"_s);
    EXPECT_TRUE(isIdle());
}

TEST_F(MainRunTest, ClosingTheWindowEndsTheRunSilentlyAndSaves)
{
    program.Config->setJpgQuality(55);
    script.duringCapture = [&](const auto&) { window->close(); };
    click(u"fbConvert"_s);

    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_TRUE(opened.isEmpty());
    EXPECT_EQ(loadConfig(folder.path(u"Config.Ini"_s)).JpgQuality, 55);
}

TEST_F(MainRunTest, TheManualSchemeAsksInTheWindowsOwnDialogs)
{
    program.Config->setNameAs(2);
    setList(u"http://a.example/"_s);
    files.contents[u"/out/mine.jpg"_s] = "old";
    dialogs.chosen = u"/out/mine.jpg"_s;
    messages.answer = MessageBoxes::Button::Yes;
    click(u"fbConvert"_s);

    EXPECT_EQ(dialogs.request.owner, window.get());
    EXPECT_EQ(files.contents.value(u"/out/mine.jpg"_s), "picture");
    ASSERT_EQ(messages.shown.size(), 2);
    EXPECT_TRUE(messages.shown.first().startsWith(u"question, default Yes: The file /out/mine.jpg"_s));
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(MainRunTest, TheBusyBarGrowsByFourTwipsAndStartsAgain)
{
    auto& timer = control<Timer>(u"tmrShow"_s);
    ControlWidget& bar = widget(u"picProgress"_s);
    const auto tick = [&](int times) {
        for (int at = 0; at < times; ++at)
            Q_EMIT timer.Tick();
    };
    EXPECT_EQ(bar.width(), 1);
    tick(4); // 15 + 16 twips
    EXPECT_EQ(bar.width(), 2);
    tick(404); // 15 + 1632 twips; the frame's inside is 1648
    EXPECT_EQ(bar.width(), 110);
    const QImage& painted = bar.surface().image();
    EXPECT_NEAR(painted.pixelColor(109, 9).green(), 128, 3) << "orange at its right end";
    EXPECT_NEAR(painted.pixelColor(0, 9).green(), 255, 3) << "yellow at its left end";
    tick(1);
    EXPECT_EQ(bar.width(), 0);
}

} // namespace

} // namespace vistrel::test
