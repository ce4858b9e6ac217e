#pragma once

#include <QLineEdit>

namespace vistrel
{

/// The edit field inside a text line: a frameless line edit that raises its mouse and key events in the
/// controls' codes before it acts on them. Positions are twips within the field. Arguments travel by
/// reference: connect directly. A KeyCode or KeyAscii that a handler sets to 0 swallows the key, another one
/// replaces it.
class EditField : public QLineEdit
{
    Q_OBJECT

public:
    explicit EditField(QWidget* parent);

Q_SIGNALS:
    /// Left press and release over the field, after MouseUp. The second one of a double click raises
    /// DblClick, in place of MouseDown.
    void Click();
    void DblClick();
    void KeyDown(qint16& KeyCode, qint16& Shift);
    /// Every typed character, those of an input method, too.
    void KeyPress(qint16& KeyAscii);
    void KeyUp(qint16& KeyCode, qint16& Shift);
    void MouseDown(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseMove(qint16& Button, qint16& Shift, float& X, float& Y);
    void MouseUp(qint16& Button, qint16& Shift, float& X, float& Y);

    /// After MouseMove.
    void pointerMoved(bool isInside);
    void pointerLeft();
    /// The field's own menu does not count as a loss.
    void focusGained();
    void focusLost();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    using MouseSignal = void (EditField::*)(qint16&, qint16&, float&, float&);
    void raise(MouseSignal signal, Qt::MouseButtons buttons, const QMouseEvent& event);

    bool m_leftPressed = false; // From a left press that may become a click until the release.
};

} // namespace vistrel
