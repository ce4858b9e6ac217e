#include "tests/app/wizard_test.h"

#include "controls/combo_box/cool_combo.h"
#include "controls/slider/cpv_slider.h"
#include "controls/text_line/text_line.h"

namespace vistrel::test
{

namespace
{

class OptionsTest : public WizardTest
{
protected:
    OptionsTest()
    {
        startAgain();
        click(u"fbMake(1)"_s);
    }

    clsConfig& config() { return *program.Config; }
    TextLine& box(const QString& name) { return control<TextLine>(name); }

    /// Types text over what the box holds; the focus stays there.
    void type(const QString& name, const QString& text)
    {
        click(name);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Delete);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }
    void typeAndLeave(const QString& name, const QString& text)
    {
        type(name, text);
        press(Qt::Key_Tab);
    }
};

TEST_F(OptionsTest, SecondsOutOfRangeAreRepaired)
{
    const struct {
        QString box, typed, shown;
        qint32 stored;
    } repairs[] = {
        {u"txtDelay"_s, u"300"_s, u"300"_s, 300}, {u"txtDelay"_s, u"301"_s, u"0"_s, 0},
        {u"txtDelay"_s, u"-1"_s, u"0"_s, 0},      {u"txtDelay"_s, u"4x"_s, u"4"_s, 4},
        {u"txtDelay"_s, u" 7"_s, u"7"_s, 7},      {u"txtDelay"_s, u""_s, u"0"_s, 0},
        {u"txtDelay"_s, u"2.50"_s, u"2.5"_s, 2},  {u"txtDelay"_s, u"3.5"_s, u"3.5"_s, 4},
        {u"txtDelay"_s, u"9e99"_s, u"0"_s, 0},    {u"txtTimeOut"_s, u"10"_s, u"10"_s, 10},
        {u"txtTimeOut"_s, u"9"_s, u"60"_s, 60},   {u"txtTimeOut"_s, u"9.99"_s, u"60"_s, 60},
        {u"txtTimeOut"_s, u"301"_s, u"60"_s, 60}, {u"txtTimeOut"_s, u"10.5"_s, u"10.5"_s, 10},
    };
    for (const auto& repair : repairs) {
        config().setDelayTime(99);
        config().setTimeOut(99);
        typeAndLeave(repair.box, repair.typed);
        EXPECT_EQ(box(repair.box).Text(), repair.shown) << repair.typed.toStdString();
        const qint32 stored = repair.box == u"txtDelay"_s ? config().DelayTime() : config().TimeOut();
        EXPECT_EQ(stored, repair.stored) << repair.typed.toStdString();
    }
}

TEST_F(OptionsTest, ANumberIsStoredWhenTheFocusMovesOnAndNotBefore)
{
    type(u"txtDelay"_s, u"42"_s);
    EXPECT_EQ(config().DelayTime(), 1);
    click(u"fbInternetOptions"_s);
    EXPECT_EQ(config().DelayTime(), 42);
    EXPECT_EQ(opened, QStringList(u"internet options"_s));

    type(u"txtTimeOut"_s, u"77"_s);
    window->close();
    EXPECT_EQ(loadConfig(folder.path(u"Config.Ini"_s)).TimeOut, 30) << "closed before the focus moved on";
}

TEST_F(OptionsTest, ThumbnailSizesAreStoredAsTypedAndKeptWhenTheyAreNoNumbers)
{
    click(u"chkThum"_s);
    EXPECT_TRUE(config().Thumbnail());
    typeAndLeave(u"txtThumWidth"_s, u"-20"_s);
    typeAndLeave(u"txtThumHeight"_s, u"0"_s);
    EXPECT_EQ(config().ThumHeight(), 0);
    for (const QString& text : {u"wide"_s, u""_s, u"12px"_s, u"99999999999"_s}) {
        typeAndLeave(u"txtThumWidth"_s, text);
        EXPECT_EQ(config().ThumWidth(), -20) << text.toStdString();
        EXPECT_EQ(box(u"txtThumWidth"_s).Text(), u"-20"_s) << "what is stored is shown";
    }
    click(u"chkThum"_s);
    EXPECT_FALSE(box(u"txtThumWidth"_s).Enabled());
    EXPECT_FALSE(box(u"txtThumHeight"_s).Enabled());
    EXPECT_FALSE(config().Thumbnail());
}

TEST_F(OptionsTest, CheckBoxesStoreTheStateThatTheyChangeTo)
{
    const auto stored = [&] {
        return QList<int>{config().Overwrite(), config().OpenOutput(), config().EnableActiveX(),
                          config().EnableJava(), config().EnableScript()};
    };
    const QStringList boxes = {u"chkOverwrite"_s, u"chkOpenOutput"_s, u"chkEnableActiveX"_s,
                               u"chkEnableJava"_s, u"chkEnableScript"_s};
    QList<int> expected(boxes.size(), 1);
    for (qsizetype at = 0; at < boxes.size(); ++at) {
        for (const int value : {0, 1, 0}) {
            click(boxes[at]);
            expected[at] = value;
            EXPECT_EQ(stored(), expected) << boxes[at].toStdString();
        }
    }
}

TEST_F(OptionsTest, CombosAndSliderStoreWhatIsChosen)
{
    control<coolCombo>(u"cobFileType"_s).setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(config().ImageType(), 4);
    control<coolCombo>(u"cobFileName"_s).setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(config().NameAs(), 1);

    auto& slider = control<cpvSlider>(u"csQuality"_s);
    const auto drag = [&](int x) {
        const QPoint thumb = slider.thumb().center().toPoint();
        Pointer::moveTo(slider, thumb);
        Pointer::press(slider, thumb);
        Pointer::moveTo(slider, {x, thumb.y()});
        Pointer::release(slider, {x, thumb.y()});
    };
    drag(-50);
    EXPECT_EQ(config().JpgQuality(), 1);
    drag(slider.width() + 50);
    EXPECT_EQ(config().JpgQuality(), 100);
}

TEST_F(OptionsTest, OnlyTheBrowseButtonChangesTheOutputFolder)
{
    click(u"txtOutputFolder"_s);
    QApplication::processEvents();
    EXPECT_EQ(box(u"txtOutputFolder"_s).SelText(), u"/out/"_s) << "a click selects it all";
    type(u"txtOutputFolder"_s, u"/elsewhere"_s);
    EXPECT_EQ(box(u"txtOutputFolder"_s).Text(), u"/out/"_s);

    dialogs.confirms = false;
    click(u"fbOutpath"_s);
    EXPECT_EQ(config().OutputFolder(), u"/out/"_s);
    EXPECT_EQ(dialogs.prompt, u"Choose an output folder: "_s);
    EXPECT_EQ(dialogs.request.owner, window.get());

    dialogs.confirms = true;
    dialogs.chosen = u"/pictures"_s;
    click(u"fbOutpath"_s);
    EXPECT_EQ(box(u"txtOutputFolder"_s).Text(), u"/pictures/"_s);
    EXPECT_EQ(config().OutputFolder(), u"/pictures/"_s);
}

} // namespace

} // namespace vistrel::test
