#include "controls/check_button/coolradiobutton.h"
#include "controls/combo_box/cool_combo.h"
#include "controls/flat_button/f_button.h"
#include "controls/slider/cpv_slider.h"
#include "controls/text_line/text_line.h"
#include "gallery/gallery_case.h"
#include "gallery/gradient_view.h"

#include <QVariant>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

template<typename Control>
ControlWidget* make(QWidget* parent)
{
    return new Control(parent);
}

ControlWidget* makeFilledCombo(QWidget* parent)
{
    auto* combo = new coolCombo(parent);
    for (const QString& item :
         {u"PNG"_s, u"JPEG"_s, u"GIF"_s, u"BMP"_s, u"TIFF, the last and by far the longest"_s})
        combo->AddItem(item);
    return combo;
}

QVariant variant(const PropertyValue& value)
{
    return std::visit([](const auto& held) { return QVariant::fromValue(held); }, value);
}

} // namespace

const QList<GalleryControl>& galleryControls()
{
    static const QList<GalleryControl> controls = {
        {u"clsGradient"_s, make<GradientView>, gradientCases()},
        {u"FButton"_s, make<FButton>, flatButtonCases()},
        {u"TextLine"_s, make<TextLine>, textLineCases()},
        {u"Coolradiobutton"_s, make<Coolradiobutton>, checkButtonCases()},
        {u"coolCombo"_s, makeFilledCombo, comboBoxCases()},
        {u"cpvSlider"_s, make<cpvSlider>, sliderCases()},
    };
    return controls;
}

ControlWidget* makeControl(const GalleryControl& control, const GalleryCase& shown, QWidget* parent)
{
    ControlWidget* widget = control.make(parent);
    widget->setObjectName(control.name + u'-' + shown.state);
    widget->setAmbientFont({u"Verdana"_s, 8.25});
    widget->setHostMode(ControlWidget::HostMode::Design); // As if placed by the form's designer, and loaded.
    widget->InitProperties();
    for (const auto& [key, value] : shown.properties) {
        [[maybe_unused]] const bool isKnown = widget->setProperty(key.toLatin1().constData(), variant(value));
        Q_ASSERT_X(isKnown, "gallery", qPrintable(widget->objectName() + u' ' + key));
    }
    widget->resize(shown.sizePx);
    return widget;
}

} // namespace vistrel
