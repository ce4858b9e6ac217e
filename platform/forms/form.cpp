#include "platform/forms/form.h"

#include "platform/drawing/rounding.h"
#include "platform/forms/frame.h"
#include "platform/forms/label.h"
#include "platform/forms/picture_box.h"
#include "platform/forms/placement.h"
#include "platform/forms/shape.h"
#include "platform/forms/text_box.h"
#include "platform/forms/timer.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);
constexpr Color buttonText = Color::system(SystemColor::ButtonText);

Error formatError(const QString& message) { return {Error::Kind::Format, message, {}}; }

} // namespace

const ControlClasses& hostControlClasses()
{
    static const ControlClasses classes = {
        {u"Frame"_s, makeControl<Frame>},           {u"Label"_s, makeControl<Label>},
        {u"PictureBox"_s, makeControl<PictureBox>}, {u"Shape"_s, makeControl<Shape>},
        {u"TextBox"_s, makeControl<TextBox>},       {u"Timer"_s, makeControl<Timer>},
    };
    return classes;
}

Form::Form(Qt::WindowFlags flags) : QWidget(nullptr, flags) {}

Result<void> Form::create(const QList<ControlDesign>& design, const ControlClasses& classes)
{
    if (design.isEmpty() || design.first().className != u"Form"_s)
        return formatError(u"the design does not start with a form"_s);
    setObjectName(design.first().name);
    readProperties(design.first().properties);
    for (const ControlDesign& control : design.sliced(1)) {
        if (auto added = addControl(control, classes); !added) return added;
    }
    return {};
}

Result<void> Form::addControl(const ControlDesign& design, const ControlClasses& classes)
{
    if (!classes.contains(design.className))
        return formatError(u"%1 is of the unknown class %2"_s.arg(design.name, design.className));
    if (findChild<QWidget*>(design.name) != nullptr)
        return formatError(u"%1 is given twice"_s.arg(design.name));
    const QString container = design.properties.readString(u"Container"_s, {});
    QWidget* parent = container.isEmpty() ? this : findChild<QWidget*>(container);
    if (parent == nullptr) return formatError(u"%1 lies in the unknown %2"_s.arg(design.name, container));

    ControlWidget* control = classes[design.className](parent);
    control->setObjectName(design.name);
    control->setAmbientFont(m_font);
    control->ReadProperties(design.properties);
    readPlacement(*control, design.properties);
    m_controls.append({design.className, control});
    return {};
}

QList<ControlDesign> Form::design() const
{
    QList<ControlDesign> result = {{objectName(), u"Form"_s, {}}};
    writeProperties(result.first().properties);
    for (const auto& [className, control] : m_controls) {
        PropertyBag bag;
        writePlacement(*control, bag);
        control->WriteProperties(bag);
        result.append({control->objectName(), className, bag});
    }
    return result;
}

void Form::readProperties(const PropertyBag& bag)
{
    setFixedSize(twipsToPixels(bag.readInt32(u"ClientWidth"_s, 0)),
                 twipsToPixels(bag.readInt32(u"ClientHeight"_s, 0)));
    m_backColor = bag.readColor(u"BackColor"_s, buttonFace);
    m_foreColor = bag.readColor(u"ForeColor"_s, buttonText);
    m_font = bag.readFont(u"Font"_s, {});
}

void Form::writeProperties(PropertyBag& bag) const
{
    bag.set(u"ClientWidth"_s, width() * twipsPerPixel);
    bag.set(u"ClientHeight"_s, height() * twipsPerPixel);
    bag.writeColor(u"BackColor"_s, m_backColor, buttonFace);
    bag.writeColor(u"ForeColor"_s, m_foreColor, buttonText);
    bag.writeFont(u"Font"_s, m_font, {});
}

void Form::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), m_backColor.toQColor()); }

} // namespace vistrel
