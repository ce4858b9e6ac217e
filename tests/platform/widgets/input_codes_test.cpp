#include "platform/widgets/input_codes.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QKeyEvent key(Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {})
{
    return {QEvent::KeyPress, key, modifiers, text};
}

} // namespace

TEST(InputCodes, keysHaveTheHostsCodes)
{
    const std::pair<Qt::Key, qint16> rows[] = {
        {Qt::Key_A, 65},      {Qt::Key_7, 55},           {Qt::Key_F1, 112},    {Qt::Key_F24, 135},
        {Qt::Key_Escape, 27}, {Qt::Key_Left, 37},        {Qt::Key_Delete, 46}, {Qt::Key_Exclam, 49},
        {Qt::Key_Colon, 186}, {Qt::Key_Apostrophe, 222}, {Qt::Key_Shift, 16},  {Qt::Key_LaunchMail, 0}};
    for (const auto& [qtKey, code] : rows)
        EXPECT_EQ(keyCode(key(qtKey)), code) << qtKey;
    EXPECT_EQ(keyCode(key(Qt::Key_7, {}, Qt::KeypadModifier)), 103);
    EXPECT_EQ(keyCode(key(Qt::Key_Asterisk, {}, Qt::KeypadModifier)), 106);
    EXPECT_EQ(keyCode(key(Qt::Key_Left, {}, Qt::KeypadModifier)), 37);
}

TEST(InputCodes, aCodeLeadsBackToAKeyOfThatCode)
{
    for (qint16 code = 1; code < 256; ++code) {
        const bool isKeypad = code >= 96 && code <= 111;
        const QKeyEvent found = key(keyFromCode(code), {}, isKeypad ? Qt::KeypadModifier : Qt::NoModifier);
        EXPECT_TRUE(found.key() == Qt::Key_unknown || keyCode(found) == code) << code;
    }
    EXPECT_EQ(keyFromCode(13), Qt::Key_Return);
    EXPECT_EQ(keyFromCode(9), Qt::Key_Tab);
    EXPECT_EQ(keyFromCode(7), Qt::Key_unknown);
}

TEST(InputCodes, charactersLeaveDeleteOutAndModifiersAddUp)
{
    EXPECT_EQ(characterCode(key(Qt::Key_Backspace, u"\b"_s)), 8);
    EXPECT_EQ(characterCode(key(Qt::Key_Delete, u"\u007f"_s)), 0);
    EXPECT_EQ(characterCode(key(Qt::Key_Left)), 0);
    EXPECT_EQ(buttonCode(Qt::LeftButton | Qt::MiddleButton | Qt::BackButton), 5);
    EXPECT_EQ(shiftCode(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::KeypadModifier), 7);
}

} // namespace vistrel
