#pragma once

#include <QAccessible>
#include <QString>

#include <optional>

namespace vistrel
{

/// What a control tells assistive tools about itself, beyond what every widget does (place, enabled, focus).
struct AccessibleFacts {
    struct Range {
        int minimum = 0;
        int maximum = 0;
        int value = 0;
    };

    QAccessible::Role role = QAccessible::Client;
    QString name; ///< Stands in where the form gave the widget no accessible name.
    QString value;
    QAccessible::State state;   ///< Added to the widget's own: checkable, checked, pressed, readOnly.
    bool canBePressed = false;  ///< Whether ControlWidget::accessiblePress() does anything.
    std::optional<Range> range; ///< For controls with a number; it is set through setAccessibleNumber().
};

/// Makes assistive tools see every ControlWidget through its accessibleFacts(). Calls after the first do
/// nothing.
void installControlAccessibility();

} // namespace vistrel
