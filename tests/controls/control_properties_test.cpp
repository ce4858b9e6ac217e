// What all controls have in common: their properties, reported when they are set, saved and loaded.
#include "controls/check_button/coolradiobutton.h"
#include "controls/combo_box/cool_combo.h"
#include "controls/flat_button/f_button.h"
#include "controls/slider/cpv_slider.h"
#include "controls/text_line/text_line.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QMetaProperty>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

struct Kind {
    std::unique_ptr<ControlWidget> (*make)();
    QString silent;    ///< The property whose setter reports nothing, if there is one.
    QString keys;      ///< What one saves of whose properties none has its default.
    QString newKeys;   ///< What a new one saves.
    QString emptyKeys; ///< What one saves that was loaded from an empty bag.
};

template<typename Control>
std::unique_ptr<ControlWidget> make()
{
    auto control = std::make_unique<Control>();
    control->setObjectName(u"chkThum"_s);
    control->setAmbientFont({u"Verdana"_s, 9});
    return control;
}

class ControlProperties : public testing::TestWithParam<Kind>
{
protected:
    ControlProperties() { control->InitProperties(); }

    /// All but the selected item, of which a new combo box has none.
    static QList<QMetaProperty> writable(const ControlWidget& control)
    {
        QList<QMetaProperty> properties;
        const QMetaObject& meta = *control.metaObject();
        for (int at = meta.propertyOffset(); at < meta.propertyCount(); ++at) {
            const bool isItem = meta.property(at).name() == "ListIndex"_ba;
            if (meta.property(at).isWritable() && !isItem) properties += meta.property(at);
        }
        return properties;
    }

    static QVariant otherThan(const QVariant& value)
    {
        if (value.typeId() == QMetaType::Bool) return !value.toBool();
        if (value.typeId() == QMetaType::QString) return u"12"_s;
        if (value.canConvert<Color>()) return QVariant::fromValue(Color{0x112233});
        if (value.canConvert<Font>()) return QVariant::fromValue(Font{u"Tahoma"_s, 9, true});
        if (value.canConvert<Picture>()) return QVariant::fromValue(Picture());
        return value.toInt() + 1;
    }

    std::unique_ptr<ControlWidget> control = GetParam().make();
    std::unique_ptr<ControlWidget> loaded = GetParam().make();
};

const Kind kinds[] = {
    {make<Coolradiobutton>, u"Enabled"_s,
     u"BtnType Font Value Caption Enabled BackColor ForeColor HotColor MousePointer HotUnderLine"_s, u""_s,
     u""_s},
    {make<coolCombo>, u"Text"_s, u"Text ForeColor Font Enabled RightToLeft BackColor Locked"_s, u""_s, u""_s},
    {make<FButton>, u""_s,
     u"Caption BackColor ForeColor MouseDownColor MouseOnColor StyleColor Style3dColor1 Style3dColor2 style "
     "Enabled Font IfDraw HovForceColor"_s,
     u"MouseDownColor MouseOnColor StyleColor Style3dColor1 Style3dColor2"_s, u"Caption"_s},
    {make<cpvSlider>, u""_s, u"BackColor Enabled Orientation RailStyle ShowValueTip Min Max Value"_s, u""_s,
     u""_s},
    {make<TextLine>, // What it saves as BackColor is another colour.
     u""_s,
     u"ForeColor Enabled Font Locked MaxLength MousePointer Text ToolTipText WhatsThisHelpID BorderColor "
     "HoverEffect ScrollBars"_s,
     u"Font"_s, u""_s},
};

INSTANTIATE_TEST_SUITE_P(Every, ControlProperties, testing::ValuesIn(kinds), [](const auto& kind) {
    const QByteArray name = kind.param.make()->metaObject()->className();
    return name.mid(name.lastIndexOf(':') + 1).toStdString();
});

} // namespace

TEST_P(ControlProperties, areReportedSavedInTheirOrderAndLoaded)
{
    QStringList reported;
    QObject::connect(control.get(), &ControlWidget::propertyChanged,
                     [&](const QString& name) { reported += name; });
    for (const QMetaProperty& property : writable(*control)) {
        const QString name = QString::fromLatin1(property.name());
        reported.clear();
        EXPECT_TRUE(property.write(control.get(), otherThan(property.read(control.get()))));
        EXPECT_EQ(reported.count(name), name == GetParam().silent ? 0 : 1) << property.name();
        EXPECT_TRUE(name == GetParam().silent || reported.endsWith(name)) << property.name();
    }
    EXPECT_EQ(savedKeys(*control), GetParam().keys);
    loaded->ReadProperties(saved(*control));
    EXPECT_EQ(saved(*loaded), saved(*control));
}

TEST_P(ControlProperties, leaveTheirDefaultsOut)
{
    EXPECT_EQ(savedKeys(*control), GetParam().newKeys);
    loaded->ReadProperties({});
    EXPECT_EQ(savedKeys(*loaded), GetParam().emptyKeys);
}

TEST_P(ControlProperties, areOfTheirKind)
{
    PropertyBag bag;
    for (const char* key : {"Value", "style", "Enabled"})
        bag.set(QString::fromLatin1(key), u"left"_s);
    EXPECT_EQ(errorOf([&] { loaded->ReadProperties(bag); }), RuntimeError::Number::TypeMismatch);
}

} // namespace vistrel
