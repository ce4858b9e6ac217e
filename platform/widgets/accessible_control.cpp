#include "platform/widgets/accessible_control.h"

#include "platform/widgets/control_widget.h"

#include <QAccessibleWidget>

namespace vistrel
{

namespace
{

class AccessibleControl final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit AccessibleControl(ControlWidget* widget) : QAccessibleWidget(widget) {}

    QAccessible::Role role() const override { return facts().role; }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) return facts().value;
        const QString given = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && given.isEmpty() ? facts().name : given;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const QAccessible::State own = facts().state;
        state.checkable = own.checkable;
        state.checked = own.checked;
        state.pressed = own.pressed;
        state.readOnly = own.readOnly;
        return state;
    }

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (facts().canBePressed && widget()->isEnabled()) names.prepend(pressAction());
        return names;
    }

    void doAction(const QString& action) override
    {
        if (action != pressAction())
            QAccessibleWidget::doAction(action);
        else if (actionNames().contains(action))
            control().accessiblePress();
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface && facts().range)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QVariant currentValue() const override { return range().value; }
    QVariant minimumValue() const override { return range().minimum; }
    QVariant maximumValue() const override { return range().maximum; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override { control().setAccessibleNumber(value.toInt()); }

private:
    ControlWidget& control() const { return *static_cast<ControlWidget*>(widget()); }
    AccessibleFacts facts() const { return control().accessibleFacts(); }
    AccessibleFacts::Range range() const { return facts().range.value_or(AccessibleFacts::Range()); }
};

QAccessibleInterface* makeAccessibleControl(const QString&, QObject* object)
{
    auto* control = qobject_cast<ControlWidget*>(object);
    return control != nullptr ? new AccessibleControl(control) : nullptr;
}

} // namespace

void installControlAccessibility()
{
    static const bool installed = (QAccessible::installFactory(makeAccessibleControl), true);
    Q_UNUSED(installed)
}

} // namespace vistrel
