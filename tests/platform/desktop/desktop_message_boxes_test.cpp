#include "platform/desktop/desktop_message_boxes.h"

#include "tests/support/with_dialog.h"

#include <QLabel>
#include <QMessageBox>

using namespace Qt::StringLiterals;
using namespace vistrel;
using vistrel::test::withDialog;

TEST(DesktopMessageBoxes, ShowPlainTextUnderTheirTitleAndIcon)
{
    DesktopMessageBoxes boxes;
    const auto expectBox = [](const QString& title, const QString& text, QMessageBox::Icon icon) {
        return [=](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), title);
            EXPECT_EQ(box.text(), text);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
            const auto* shown = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
            EXPECT_GE(shown->width(), shown->sizeHint().width()) << "nothing is cut off";
            test::press(box, Qt::Key_Return);
        };
    };
    const QString longText(60, u'W');
    withDialog<QMessageBox>([&] { boxes.information(nullptr, u"Done!\r\n   "_s); },
                            expectBox(u"Vistrel"_s, u"Done!\n   "_s, QMessageBox::Information));
    withDialog<QMessageBox>([&] { boxes.critical(nullptr, u"Invalid file!"_s); },
                            expectBox(u"Vistrel"_s, u"Invalid file!"_s, QMessageBox::Critical));
    withDialog<QMessageBox>([&] { boxes.exclamation(nullptr, longText, u"GradientRect"_s); },
                            expectBox(u"GradientRect"_s, longText, QMessageBox::Warning));
}

TEST(DesktopMessageBoxes, EnterAnswersWithTheDefaultAndEscapeWithNo)
{
    using Button = MessageBoxes::Button;
    DesktopMessageBoxes boxes;
    QWidget owner;
    const auto answer = [&](Button defaultButton, Qt::Key key) {
        Button result{};
        withDialog<QMessageBox>([&] { result = boxes.question(&owner, u"Overwrite?"_s, defaultButton); },
                                [&](QMessageBox& box) {
                                    EXPECT_EQ(box.parentWidget(), &owner);
                                    EXPECT_EQ(box.icon(), QMessageBox::Question);
                                    test::press(box, key);
                                });
        return result;
    };
    EXPECT_EQ(answer(Button::Yes, Qt::Key_Return), Button::Yes);
    EXPECT_EQ(answer(Button::No, Qt::Key_Return), Button::No);
    EXPECT_EQ(answer(Button::Yes, Qt::Key_Escape), Button::No);
}
