#pragma once

#include "platform/drawing/property_bag.h"
#include "platform/drawing/surface.h"
#include "platform/widgets/accessible_control.h"

#include <QWidget>

namespace vistrel
{

/// Base of all controls: a widget that shows a Surface, and the control's side of its host.
///
/// Host to control, in this order: construct, set the ambient font, the host mode and the name
/// (objectName()), then InitProperties() for a control placed for the first time or ReadProperties() for a
/// loaded one, then size and show. Control to host: propertyChanged(), from every property setter.
///
/// Qt's events arrive translated: codes as in platform/widgets/input_codes.h, positions in the surface's
/// scale. Arguments that a handler of the host may change travel by reference, also through signals
/// (`void MouseDown(qint16& Button, ...)`): connect those directly, within one thread, to a function or
/// lambda.
class ControlWidget : public QWidget
{
    Q_OBJECT

public:
    enum class HostMode { Run, Design };

    explicit ControlWidget(ScaleMode scaleMode, QWidget* parent = nullptr);

    /// The container's font, default of the controls' Font property. Initially Font{}.
    [[nodiscard]] const Font& ambientFont() const { return m_ambientFont; }
    void setAmbientFont(const Font& font) { m_ambientFont = font; }
    /// Whether the host runs or is being designed. Initially Run.
    [[nodiscard]] HostMode hostMode() const { return m_hostMode; }
    void setHostMode(HostMode mode) { m_hostMode = mode; }
    /// The instance's name in the host.
    [[nodiscard]] QString displayName() const { return objectName(); }

    virtual void InitProperties() = 0;
    virtual void ReadProperties(const PropertyBag& bag) = 0;
    virtual void WriteProperties(PropertyBag& bag) const = 0;

    /// Outer size in twips; setting rounds to whole pixels (twipsToPixels()) and reaches the surface at once,
    /// also before the control is shown.
    [[nodiscard]] float Width() const;
    [[nodiscard]] float Height() const;
    void setWidth(float twips);
    void setHeight(float twips);
    void setSizeTwips(float width, float height);

    /// Handle of the control's own window, which is made on first use.
    [[nodiscard]] qint32 hwnd() const;

    [[nodiscard]] virtual AccessibleFacts accessibleFacts() const;
    /// What a press by an assistive tool does; the facts say whether it can be pressed.
    virtual void accessiblePress();
    /// What an assistive tool's new number does, for a control whose facts have a range.
    virtual void setAccessibleNumber(int number);

    /// What the control has drawn so far.
    [[nodiscard]] const Surface& surface() const { return m_surface; }

Q_SIGNALS:
    /// The named property changed (the persisted name where a property has one), whoever set it.
    void propertyChanged(const QString& name);

    // Focus moving within the window, see followFocus().
    void GotFocus();
    void Validate();
    void LostFocus();

protected:
    /// The surface to draw on; asking for it schedules a repaint of the widget.
    Surface& drawingSurface();

    /// The surface's own enabled flag, initially true. Setting it also enables or disables the widget, that
    /// is, its mouse and key input. The form can do the latter alone (QWidget::setEnabled()) and the flag
    /// stays.
    [[nodiscard]] bool surfaceEnabled() const { return m_surfaceEnabled; }
    void setSurfaceEnabled(bool enabled);

    // What the surface reports. The base does nothing in any of them.

    /// A button went down, also by the second press of a double click. Button holds the one that did.
    virtual void surfaceMouseDown(qint16 Button, qint16 Shift, float X, float Y);
    /// The pointer moved over the control, or anywhere while a button is held that was pressed on it. Button
    /// holds all that are held.
    virtual void surfaceMouseMove(qint16 Button, qint16 Shift, float X, float Y);
    /// The pointer left the control with no button held. (X, Y) is where it is now; one pixel before the
    /// surface's corner if something covers the control there, or if that is X = width or Y = height, which
    /// controls take for inside: no move follows that would take it further out.
    virtual void surfaceMouseLeave(qint16 Shift, float X, float Y);
    virtual void surfaceMouseUp(qint16 Button, qint16 Shift, float X, float Y);
    /// The left button was pressed and released over the control; comes after surfaceMouseUp().
    virtual void surfaceClick();
    /// A key went down. KeyCode set to 0 swallows it: no surfaceKeyPress() follows.
    virtual void surfaceKeyDown(qint16& KeyCode, qint16& Shift);
    virtual void surfaceKeyPress(qint16& KeyAscii);
    virtual void surfaceKeyUp(qint16& KeyCode, qint16& Shift);
    /// The surface has a new size or device pixel ratio; what was drawn is still there.
    virtual void surfaceResize();

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QPointF toScale(QPointF positionPx) const;
    void fitSurface(); // To the widget's size and, after a move to another screen, its device pixel ratio.

    Surface m_surface;
    Font m_ambientFont;
    HostMode m_hostMode = HostMode::Run;
    bool m_surfaceEnabled = true;
    bool m_hasBeenSized = false; // Its first size is reported even if it is that of any new widget.
    bool m_leftPressed = false;  // From a left press on the control until its release.
};

} // namespace vistrel
