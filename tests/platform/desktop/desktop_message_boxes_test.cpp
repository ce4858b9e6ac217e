#include "platform/desktop/desktop_message_boxes.h"

#include "tests/support/with_dialog.h"

#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace vistrel;
using vistrel::test::withDialog;

namespace
{

/// What a box looked like while it was shown. Enter closes it.
struct Seen {
    QString title, text;
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
};

Seen see(const std::function<void()>& show)
{
    Seen seen;
    withDialog<QMessageBox>(show, [&](QMessageBox& box) {
        seen = {box.windowTitle(), box.text(), box.icon(), box.standardButtons()};
        test::press(box, Qt::Key_Return);
    });
    return seen;
}

} // namespace

TEST(DesktopMessageBoxes, ShowTheirIconAndTheProgramsTitle)
{
    DesktopMessageBoxes boxes;
    const Seen information = see([&] { boxes.information(nullptr, u"<b>Done!</b>\r\n   "_s); });
    EXPECT_EQ(information.title, u"Vistrel"_s);
    EXPECT_EQ(information.text, u"<b>Done!</b>\n   "_s);
    EXPECT_EQ(information.icon, QMessageBox::Information);
    EXPECT_EQ(information.buttons, QMessageBox::Ok);

    EXPECT_EQ(see([&] { boxes.critical(nullptr, u"Invalid file!"_s); }).icon, QMessageBox::Critical);
    const Seen exclamation = see([&] { boxes.exclamation(nullptr, u"Overflow"_s, u"GradientRect"_s); });
    EXPECT_EQ(exclamation.icon, QMessageBox::Warning);
    EXPECT_EQ(exclamation.title, u"GradientRect"_s);
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
