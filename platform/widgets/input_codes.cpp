#include "platform/widgets/input_codes.h"

#include <array>

namespace vistrel
{

namespace
{

struct KeyRow {
    int key;
    qint16 code;
};

// The first row of a code is the key that keyFromCode() gives for it.
constexpr std::array keyRows = std::to_array<KeyRow>({
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},      {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},      {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},         {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},       {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},        {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},          {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},        {Qt::Key_Print, 44},
    {Qt::Key_Insert, 45},      {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},        {Qt::Key_ParenRight, 48},
    {Qt::Key_Exclam, 49},      {Qt::Key_At, 50},
    {Qt::Key_NumberSign, 51},  {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53},     {Qt::Key_AsciiCircum, 54},
    {Qt::Key_Ampersand, 55},   {Qt::Key_Asterisk, 56},
    {Qt::Key_ParenLeft, 57},   {Qt::Key_Meta, 91},
    {Qt::Key_Menu, 93},        {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145}, {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},       {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},       {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},    {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},   {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},  {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},        {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
});

constexpr std::array keypadRows = std::to_array<KeyRow>({
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},
    {Qt::Key_Minus, 109},
    {Qt::Key_Period, 110},
    {Qt::Key_Comma, 110},
    {Qt::Key_Slash, 111},
});

constexpr qint16 keypadZero = 96;
constexpr qint16 firstFunctionKey = 112;
constexpr qint16 lastFunctionKey = 135;

bool isDigit(int key) { return key >= Qt::Key_0 && key <= Qt::Key_9; }
bool isLetter(int key) { return key >= Qt::Key_A && key <= Qt::Key_Z; }

template<typename Rows>
qint16 codeIn(const Rows& rows, int key)
{
    for (const KeyRow& row : rows) {
        if (row.key == key) return row.code;
    }
    return 0;
}

qint16 keypadCode(int key)
{
    return isDigit(key) ? static_cast<qint16>(keypadZero + key - Qt::Key_0) : codeIn(keypadRows, key);
}

} // namespace

qint16 shiftCode(Qt::KeyboardModifiers modifiers)
{
    return static_cast<qint16>((modifiers & Qt::ShiftModifier ? 1 : 0) |
                               (modifiers & Qt::ControlModifier ? 2 : 0) |
                               (modifiers & Qt::AltModifier ? 4 : 0));
}

qint16 buttonCode(Qt::MouseButtons buttons)
{
    return static_cast<qint16>((buttons & Qt::LeftButton ? 1 : 0) | (buttons & Qt::RightButton ? 2 : 0) |
                               (buttons & Qt::MiddleButton ? 4 : 0));
}

qint16 keyCode(const QKeyEvent& event)
{
    const int key = event.key();
    if (event.modifiers() & Qt::KeypadModifier) {
        if (const qint16 code = keypadCode(key); code != 0) return code;
    }
    if (isDigit(key) || isLetter(key)) return static_cast<qint16>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return static_cast<qint16>(firstFunctionKey + key - Qt::Key_F1);
    return codeIn(keyRows, key);
}

Qt::Key keyFromCode(qint16 code)
{
    if (isDigit(code) || isLetter(code)) return static_cast<Qt::Key>(code);
    if (code >= keypadZero && code < keypadZero + 10)
        return static_cast<Qt::Key>(Qt::Key_0 + code - keypadZero);
    if (code >= firstFunctionKey && code <= lastFunctionKey)
        return static_cast<Qt::Key>(Qt::Key_F1 + code - firstFunctionKey);
    for (const KeyRow& row : keypadRows) {
        if (row.code == code) return static_cast<Qt::Key>(row.key);
    }
    for (const KeyRow& row : keyRows) {
        if (row.code == code) return static_cast<Qt::Key>(row.key);
    }
    return Qt::Key_unknown;
}

qint16 characterCode(const QKeyEvent& event)
{
    if (event.text().isEmpty() || event.key() == Qt::Key_Delete) return 0;
    return static_cast<qint16>(event.text().front().unicode());
}

} // namespace vistrel
