#pragma once

#include "platform/drawing/design_text.h"
#include "platform/widgets/control_widget.h"

#include <QMap>

namespace vistrel
{

/// Makes the controls of a form, by class name.
using ControlClasses = QMap<QString, ControlWidget* (*)(QWidget* parent)>;

template<typename Control>
ControlWidget* makeControl(QWidget* parent)
{
    return new Control(parent);
}

/// The host's own: Frame, Label, PictureBox, Shape, TextBox and Timer.
const ControlClasses& hostControlClasses();

/// A window whose controls come from design data. Its own properties are those of the first section, which is
/// named after the form and of class Form:
///
///     ClientWidth, ClientHeight     twips; the window keeps that size
///     BackColor, ForeColor          button face and button text without them
///     Font                          the ambient font of the controls
///
/// Controls follow in stacking order, the lowest first, which is also the order of the Tab key; a container
/// stands before what it holds. See placement.h for their keys.
class Form : public QWidget
{
    Q_OBJECT

public:
    explicit Form(Qt::WindowFlags flags);

    /// Creates the controls; once per form. Error::Kind::Format for a class, a container or a first section
    /// that it cannot make sense of, and for a name given twice.
    Result<void> create(const QList<ControlDesign>& design, const ControlClasses& classes);
    /// The form and its controls as they are now, as design data.
    [[nodiscard]] QList<ControlDesign> design() const;

    /// The control of that name. It must exist and be of that class.
    template<typename Control>
    [[nodiscard]] Control& control(const QString& name) const
    {
        auto* found = findChild<Control*>(name);
        Q_ASSERT_X(found != nullptr, "Form", qPrintable(name));
        return *found;
    }

    [[nodiscard]] Color backColor() const { return m_backColor; }
    [[nodiscard]] Color foreColor() const { return m_foreColor; }

protected:
    /// Covers the form with its background colour.
    void paintEvent(QPaintEvent* event) override;

private:
    void readProperties(const PropertyBag& bag);
    void writeProperties(PropertyBag& bag) const;
    Result<void> addControl(const ControlDesign& design, const ControlClasses& classes);

    QList<QPair<QString, ControlWidget*>> m_controls; // With their class, in the design's order.
    Color m_backColor;
    Color m_foreColor;
    Font m_font;
};

} // namespace vistrel
