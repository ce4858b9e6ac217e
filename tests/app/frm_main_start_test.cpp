#include "tests/app/wizard_test.h"

#include "controls/check_button/coolradiobutton.h"
#include "controls/combo_box/cool_combo.h"
#include "controls/slider/cpv_slider.h"
#include "controls/text_line/text_line.h"

namespace vistrel::test
{

namespace
{

const QString firstRunMessage =
    u"information: This is the first time you use the Vistrel, please setup the default configuration for the software."_s;

TEST_F(WizardTest, FirstStartShowsTheOptionsAndTheMessageAndKeepsTheDefaults)
{
    messages.whileShown = [&] {
        EXPECT_TRUE(widget(u"picMain(1)"_s).isVisible()) << "the user sees what the message is about";
        EXPECT_EQ(program.Config->FirstTime(), 0);
    };
    start();

    EXPECT_EQ(messages.shown, QStringList(firstRunMessage));
    EXPECT_FALSE(widget(u"picMain(0)"_s).isVisible());
    EXPECT_EQ(notice(), u"Set options to control capturing..."_s);
    EXPECT_FALSE(QFile::exists(folder.path(u"Config.Ini"_s))) << "written when the window unloads";

    window->close();
    ConfigValues defaults;
    defaults.FirstTime = 1;
    const ConfigValues saved = loadConfig(folder.path(u"Config.Ini"_s));
    defaults.OutputFolder = saved.OutputFolder;
    EXPECT_EQ(saved, defaults);
    EXPECT_EQ(program.Config, nullptr);
    EXPECT_EQ(program.hShell32, nullptr);
}

TEST_F(WizardTest, AnyLaterStartShowsTheConvertPageAndAListOfComments)
{
    start("FirstTime=7\r\n");
    EXPECT_TRUE(messages.shown.isEmpty());
    EXPECT_TRUE(widget(u"picMain(0)"_s).isVisible());
    EXPECT_FALSE(widget(u"picMain(1)"_s).isVisible());
    EXPECT_EQ(notice(), u"Enter URLs in the following edit box, one URL per line"_s);
    EXPECT_TRUE(list().startsWith(u"* The line starts with \"*\" will be treated as comment.\r\n*http"_s));
    EXPECT_TRUE(list().endsWith(u"\r\n"_s));
    EXPECT_EQ(control<TextBox>(u"txtURLList"_s).SelStart(), list().size());
    window->close();
    EXPECT_EQ(loadConfig(folder.path(u"Config.Ini"_s)).FirstTime, 1);
}

TEST_F(WizardTest, ControlsShowTheSettings)
{
    start(
        "FirstTime=1\r\nOutputFolder=/pictures/\r\nImageType=3\r\nNameAs=1\r\nOverWrite=0\r\nOpenOutput=1\r\n"
        "TimeOut=5\r\nDelayTime=300\r\nJpgQuality=1\r\nThumbnail=a\r\nThumWidth=640\r\nThumHeight=2\r\n"
        "EnableActiveX=b\r\nEnableJava=a\r\nEnableScript=b\r\n");

    QStringList texts, ticked;
    for (const QString& name :
         {u"txtOutputFolder"_s, u"txtTimeOut"_s, u"txtDelay"_s, u"txtThumWidth"_s, u"txtThumHeight"_s})
        texts += control<TextLine>(name).Text();
    for (const QString& name : {u"chkOverwrite"_s, u"chkOpenOutput"_s, u"chkThum"_s, u"chkEnableActiveX"_s,
                                u"chkEnableJava"_s, u"chkEnableScript"_s}) {
        if (control<Coolradiobutton>(name).Value()) ticked += name;
    }
    EXPECT_EQ(texts, (QStringList{u"/pictures/"_s, u"5"_s, u"300"_s, u"640"_s, u"2"_s}));
    EXPECT_EQ(ticked, (QStringList{u"chkOpenOutput"_s, u"chkThum"_s, u"chkEnableJava"_s}));
    EXPECT_EQ(control<coolCombo>(u"cobFileType"_s).Text(), u"BitMap Images(*.bmp)"_s);
    EXPECT_EQ(control<coolCombo>(u"cobFileName"_s).Text(), u"Number"_s);
    EXPECT_EQ(control<cpvSlider>(u"csQuality"_s).Value(), 1);
    EXPECT_TRUE(control<TextLine>(u"txtThumWidth"_s).Enabled());
}

TEST_F(WizardTest, RunsOnADesktopWithoutAShell)
{
    program.hShell32.reset();
    startAgain();
    for (const QString& name : {u"fbMake(3)"_s, u"fbMake(1)"_s, u"fbInternetOptions"_s})
        click(name);
    EXPECT_TRUE(widget(u"picMain(1)"_s).isVisible());
}

} // namespace

} // namespace vistrel::test
