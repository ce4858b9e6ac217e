#pragma once

#include <QKeyEvent>

namespace vistrel
{

// The 16-bit codes that the controls' mouse and key events carry.

/// 1 Shift, 2 Ctrl, 4 Alt, added up.
qint16 shiftCode(Qt::KeyboardModifiers modifiers);

/// 1 left, 2 right, 4 middle, added up; other buttons are 0.
qint16 buttonCode(Qt::MouseButtons buttons);

/// The host's code of a key: '0' to '9' and 'A' to 'Z' are their own codes, 13 Return, 27 Escape, 37 to 40
/// the arrows, 96 to 105 the keypad's digits, 112 F1, and so on; the symbols of a shifted key give the key's
/// code on a US keyboard. 0 for a key that has none.
qint16 keyCode(const QKeyEvent& event);

/// A key with that code, for handlers that exchange one key for another. Qt::Key_unknown where there is none.
Qt::Key keyFromCode(qint16 code);

/// The character that the key types, as a UTF-16 unit, control characters (8, 9, 13, 27, Ctrl+letter)
/// included. 0 where it types none, and for Delete.
qint16 characterCode(const QKeyEvent& event);

} // namespace vistrel
