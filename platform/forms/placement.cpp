#include "platform/forms/placement.h"

#include "platform/drawing/rounding.h"

#include <QVariant>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr const char* tagProperty = "Tag";

QString containerName(const ControlWidget& control)
{
    const QWidget* container = control.parentWidget();
    return qobject_cast<const ControlWidget*>(container) != nullptr ? container->objectName() : QString();
}

/// A control that is disabled by itself has disabled its widget, too.
bool isDisabledByForm(const ControlWidget& control)
{
    const QVariant own = control.property("Enabled");
    return control.testAttribute(Qt::WA_ForceDisabled) && (!own.isValid() || own.toBool());
}

} // namespace

void readPlacement(ControlWidget& control, const PropertyBag& bag)
{
    const auto twips = [&bag](const QString& key, int pixels) {
        return bag.readInt32(key, pixels * twipsPerPixel);
    };
    control.move(twipsToPixels(twips(u"Left"_s, 0)), twipsToPixels(twips(u"Top"_s, 0)));
    control.setSizeTwips(static_cast<float>(twips(u"Width"_s, control.width())),
                         static_cast<float>(twips(u"Height"_s, control.height())));
    control.setHidden(!bag.readBool(u"Visible"_s, true));
    if (!bag.readBool(u"HostEnabled"_s, true)) control.QWidget::setEnabled(false);
    setTag(control, bag.readString(u"Tag"_s, {}));
    control.setAccessibleName(bag.readString(u"AccessibleName"_s, {}));
}

void writePlacement(const ControlWidget& control, PropertyBag& bag)
{
    bag.writeString(u"Container"_s, containerName(control), {});
    bag.set(u"Left"_s, control.x() * twipsPerPixel);
    bag.set(u"Top"_s, control.y() * twipsPerPixel);
    bag.set(u"Width"_s, control.width() * twipsPerPixel);
    bag.set(u"Height"_s, control.height() * twipsPerPixel);
    bag.writeBool(u"Visible"_s, !control.isHidden(), true);
    bag.writeBool(u"HostEnabled"_s, !isDisabledByForm(control), true);
    bag.writeString(u"Tag"_s, tagOf(control), {});
    bag.writeString(u"AccessibleName"_s, control.accessibleName(), {});
}

QString tagOf(const ControlWidget& control) { return control.property(tagProperty).toString(); }

void setTag(ControlWidget& control, const QString& tag) { control.setProperty(tagProperty, tag); }

} // namespace vistrel
