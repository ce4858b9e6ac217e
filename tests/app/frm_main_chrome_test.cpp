#include "tests/app/wizard_test.h"

#include "app/util/mod_functions.h"

namespace vistrel::test
{

namespace
{

constexpr Color lightBlue = Color::rgb(140, 220, 255);
constexpr Color grey = Color::rgb(224, 224, 224);

class ChromeTest : public WizardTest
{
protected:
    ChromeTest() { startAgain(); }

    Color pageColor(int index) { return control<FButton>(u"fbMake(%1)"_s.arg(index)).BackColor(); }
    QColor pixel(QPoint at) { return window->grab().toImage().pixelColor(at); }
};

TEST_F(ChromeTest, PageButtonsSwitchPageColoursAndNotice)
{
    click(u"fbMake(1)"_s);
    for (int turn = 0; turn < 2; ++turn) { // Help is no page: the second turn finds the same.
        EXPECT_TRUE(widget(u"picMain(1)"_s).isVisible());
        EXPECT_FALSE(widget(u"picMain(0)"_s).isVisible());
        EXPECT_EQ(pageColor(1), grey);
        EXPECT_EQ(pageColor(0), lightBlue);
        EXPECT_EQ(notice(), u"Set options to control capturing..."_s);
        click(u"fbMake(3)"_s);
    }
    EXPECT_EQ(opened.first(), GetAppPath() + u"help.chm"_s);
    click(u"fbMake(0)"_s);
    EXPECT_TRUE(widget(u"picMain(0)"_s).isVisible());
    EXPECT_EQ(pageColor(0), grey);
    EXPECT_EQ(pageColor(1), lightBlue);
}

TEST_F(ChromeTest, CaptionStripIsLaidOutAndPainted)
{
    const int width = window->width();
    const QRect minimise = widget(u"winCmd(0)"_s).geometry(), close = widget(u"winCmd(1)"_s).geometry();
    EXPECT_EQ(width - close.right() - 1, 3);
    EXPECT_EQ(close.left() - minimise.right() - 1, 1);
    EXPECT_EQ(widget(u"picCaption"_s).width(), width - 2);
    EXPECT_EQ(pixel({1, 1}), QColor(0, 130, 198)) << "left end of the caption's gradient";
    EXPECT_EQ(pixel(widget(u"picTitel"_s).geometry().topLeft()), QColor(0, 130, 198));
    EXPECT_EQ(pixel(minimise.topLeft()), QColor(0, 65, 99));
    const QColor frame = window->foreColor().toQColor();
    EXPECT_EQ(pixel({0, 0}), frame);
    EXPECT_EQ(pixel({width - 1, window->height() - 1}), frame);
    EXPECT_EQ(window->windowTitle(), u"Vistrel"_s);
    EXPECT_TRUE(window->mask().boundingRect() == window->rect());
}

TEST_F(ChromeTest, AnyButtonOnTheCaptionMovesTheWindowUnlessItIsMaximised)
{
    ControlWidget& caption = widget(u"picCaption"_s);
    const auto drag = [&](Qt::MouseButton button) {
        Pointer::moveTo(caption, {200, 10});
        Pointer::press(caption, {200, 10}, button);
        Pointer::moveTo(caption, {230, 25});
        QApplication::processEvents();
        Pointer::release(caption, {230, 25}, button);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        const QPoint before = window->pos();
        drag(button);
        const QPoint after = window->pos();
        EXPECT_NE(after, before);
        Pointer::moveTo(caption, {100, 12});
        EXPECT_EQ(window->pos(), after) << "released";
    }
    window->setWindowState(Qt::WindowMaximized);
    QApplication::processEvents();
    const QPoint before = window->pos();
    drag(Qt::LeftButton);
    EXPECT_EQ(window->pos(), before);
}

TEST_F(ChromeTest, CaptionButtonsMinimiseAndCloseAndTheLogoOpensTheHomePage)
{
    click(u"picLogo"_s);
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened.first().startsWith(u"https://"_s));
    click(u"winCmd(0)"_s);
    EXPECT_TRUE(window->isMinimized());
    window->showNormal();

    program.Config->setThumWidth(123);
    click(u"winCmd(1)"_s);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(loadConfig(folder.path(u"Config.Ini"_s)).ThumWidth, 123);
}

} // namespace

} // namespace vistrel::test
