#include "controls/text_line/edit_field.h"

#include "platform/drawing/rounding.h"
#include "platform/widgets/input_codes.h"

#include <QKeyEvent>

namespace vistrel
{

namespace
{

constexpr qint16 firstPrintable = 32;

QString textOf(qint16 character) { return QString(QChar(static_cast<char16_t>(character))); }

// What is left of event when handlers have exchanged its key or its character.
QKeyEvent exchanged(const QKeyEvent& event, qint16 code, qint16 character)
{
    if (character == characterCode(event))
        return {event.type(), keyFromCode(code), event.modifiers(), event.text()};
    const Qt::Key key = character < firstPrintable ? keyFromCode(character) : Qt::Key_unknown;
    return {event.type(), key, Qt::NoModifier, textOf(character)};
}

} // namespace

EditField::EditField(QWidget* parent) : QLineEdit(parent)
{
    setFrame(false);
    setMouseTracking(true);
}

void EditField::keyPressEvent(QKeyEvent* event)
{
    const qint16 typedCode = keyCode(*event), typedCharacter = characterCode(*event);
    qint16 code = typedCode, character = typedCharacter, shift = shiftCode(event->modifiers());
    Q_EMIT KeyDown(code, shift);
    if (code == 0 && typedCode != 0) return;
    if (character != 0) {
        Q_EMIT KeyPress(character);
        if (character == 0) return;
    }
    if (code == typedCode && character == typedCharacter) {
        QLineEdit::keyPressEvent(event);
    } else {
        QKeyEvent replacement = exchanged(*event, code, character);
        QLineEdit::keyPressEvent(&replacement);
    }
}

void EditField::keyReleaseEvent(QKeyEvent* event)
{
    qint16 code = keyCode(*event), shift = shiftCode(event->modifiers());
    if (!event->isAutoRepeat()) Q_EMIT KeyUp(code, shift);
    QLineEdit::keyReleaseEvent(event);
}

void EditField::inputMethodEvent(QInputMethodEvent* event)
{
    QString accepted;
    for (const QChar typed : event->commitString()) {
        auto character = static_cast<qint16>(typed.unicode());
        Q_EMIT KeyPress(character);
        if (character != 0) accepted += textOf(character);
    }
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(accepted, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

void EditField::raise(MouseSignal signal, Qt::MouseButtons buttons, const QMouseEvent& event)
{
    qint16 button = buttonCode(buttons), shift = shiftCode(event.modifiers());
    auto x = static_cast<float>(event.position().x() * twipsPerPixel);
    auto y = static_cast<float>(event.position().y() * twipsPerPixel);
    Q_EMIT(this->*signal)(button, shift, x, y);
}

void EditField::mousePressEvent(QMouseEvent* event)
{
    m_leftPressed = event->button() == Qt::LeftButton;
    raise(&EditField::MouseDown, event->button(), *event);
    QLineEdit::mousePressEvent(event);
}

void EditField::mouseMoveEvent(QMouseEvent* event)
{
    raise(&EditField::MouseMove, event->buttons(), *event);
    QLineEdit::mouseMoveEvent(event);
    Q_EMIT pointerMoved(rect().contains(event->position().toPoint()));
}

void EditField::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isClick =
        event->button() == Qt::LeftButton && m_leftPressed && rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton) m_leftPressed = false;
    raise(&EditField::MouseUp, event->button(), *event);
    QLineEdit::mouseReleaseEvent(event);
    if (isClick) Q_EMIT Click();
}

void EditField::mouseDoubleClickEvent(QMouseEvent* event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    Q_EMIT DblClick();
}

void EditField::leaveEvent(QEvent* event)
{
    QLineEdit::leaveEvent(event);
    Q_EMIT pointerLeft();
}

void EditField::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason) Q_EMIT focusGained();
}

void EditField::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) Q_EMIT focusLost();
}

} // namespace vistrel
