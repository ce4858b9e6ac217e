#pragma once

#include <QObject>
#include <QStringList>

namespace vistrel
{

/// Writes down the mouse events that control raises: "down 1 0 150,75" has the button, the shift state and
/// the place in twips.
template<typename Control>
void recordMouse(Control& control, QStringList& events)
{
    const auto note = [&events](const char* event) {
        return [&events, event](qint16& Button, qint16& Shift, float& X, float& Y) {
            events += QStringLiteral("%1 %2 %3 %4,%5")
                          .arg(QString::fromLatin1(event), QString::number(Button), QString::number(Shift))
                          .arg(static_cast<double>(X))
                          .arg(static_cast<double>(Y));
        };
    };
    QObject::connect(&control, &Control::MouseDown, note("down"));
    QObject::connect(&control, &Control::MouseMove, note("move"));
    QObject::connect(&control, &Control::MouseUp, note("up"));
}

/// Writes down the key events that control raises: "key down 65 0", "key press 97", "key up 65".
template<typename Control>
void recordKeys(Control& control, QStringList& events)
{
    QObject::connect(&control, &Control::KeyDown, [&events](qint16& KeyCode, qint16& Shift) {
        events += QStringLiteral("key down %1 %2").arg(KeyCode).arg(Shift);
    });
    QObject::connect(&control, &Control::KeyPress,
                     [&events](qint16& KeyAscii) { events += QStringLiteral("key press %1").arg(KeyAscii); });
    QObject::connect(&control, &Control::KeyUp, [&events](qint16& KeyCode, qint16&) {
        events += QStringLiteral("key up %1").arg(KeyCode);
    });
}

} // namespace vistrel
