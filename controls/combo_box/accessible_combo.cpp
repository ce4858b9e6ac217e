#include "controls/combo_box/accessible_combo.h"

#include "controls/combo_box/flat_combo.h"
#include "platform/widgets/control_widget.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace vistrel
{

namespace
{

// The toolkit's own interface reports the selected item as the name and leaves no place for a real one.
class AccessibleCombo final : public QAccessibleWidget
{
public:
    explicit AccessibleCombo(FlatCombo* box) : QAccessibleWidget(box, QAccessible::ComboBox) {}

    QString text(QAccessible::Text kind) const override
    {
        switch (kind) {
        case QAccessible::Name: return formsName();
        case QAccessible::Value: return box().currentText();
        default: return QAccessibleWidget::text(kind);
        }
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = state.expandable = true;
        state.expanded = list().isVisible();
        state.collapsed = !state.expanded;
        state.readOnly = box().isLocked();
        return state;
    }

    int childCount() const override { return 1; }

    QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(&list()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child->object() == &list() ? 0 : -1;
    }

    QStringList actionNames() const override { return {showMenuAction(), setFocusAction()}; }

    void doAction(const QString& action) override
    {
        if (action == showMenuAction() && box().isEnabled())
            box().showPopup();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    FlatCombo& box() const { return *static_cast<FlatCombo*>(widget()); }
    QAbstractItemView& list() const { return *box().view(); }

    QString formsName() const
    {
        const QWidget* around = widget();
        while (around != nullptr && qobject_cast<const ControlWidget*>(around) == nullptr)
            around = around->parentWidget();
        return around != nullptr ? around->accessibleName() : widget()->accessibleName();
    }
};

QAccessibleInterface* makeAccessibleCombo(const QString&, QObject* object)
{
    auto* box = dynamic_cast<FlatCombo*>(object);
    return box != nullptr ? new AccessibleCombo(box) : nullptr;
}

} // namespace

void installComboAccessibility()
{
    static const bool installed = (QAccessible::installFactory(makeAccessibleCombo), true);
    Q_UNUSED(installed)
}

} // namespace vistrel
