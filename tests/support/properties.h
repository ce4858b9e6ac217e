#pragma once

#include "platform/widgets/control_widget.h"

#include <QVariant>

#include <gtest/gtest.h>

#include <utility>

namespace vistrel
{

inline PropertyBag saved(const ControlWidget& control)
{
    PropertyBag bag;
    control.WriteProperties(bag);
    return bag;
}

inline QStringList keys(const PropertyBag& bag)
{
    QStringList result;
    for (const auto& entry : bag.entries())
        result += entry.key;
    return result;
}

using PropertySettings = QList<std::pair<QString, QVariant>>;

/// Sets one property after the other; each must report itself, once, and nothing else.
inline void expectReports(ControlWidget& control, const PropertySettings& settings)
{
    QStringList reported;
    const auto connection = QObject::connect(&control, &ControlWidget::propertyChanged,
                                             [&](const QString& name) { reported += name; });
    QStringList expected;
    for (const auto& [property, value] : settings) {
        EXPECT_TRUE(control.setProperty(property.toLatin1().constData(), value)) << property.toStdString();
        expected += property;
    }
    QObject::disconnect(connection);
    EXPECT_EQ(reported, expected);
}

} // namespace vistrel
