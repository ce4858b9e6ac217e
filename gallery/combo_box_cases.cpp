#include "gallery/gallery_case.h"
#include "gallery/poses.h"

#include <QAbstractButton>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

using Entries = QList<PropertyBag::Entry>;

constexpr QSize boxSize(110, 17);

Entries selected(int item, const Entries& more = {})
{
    return Entries{{u"ListIndex"_s, QString::number(item)}} + more;
}

void open(ControlWidget& control) { control.findChild<QAbstractButton*>(u"Pic2"_s)->click(); }

Picture redIcon()
{
    QImage image(13, 20, QImage::Format_RGB32);
    image.fill(Color::rgb(192, 0, 0).toQColor());
    return Picture(image);
}

} // namespace

QList<GalleryCase> comboBoxCases()
{
    const PropertyBag::Entry rightToLeft = {u"RightToLeft"_s, true};
    return {
        {u"new"_s, boxSize, {}},
        {u"selected"_s, boxSize, selected(1)},
        {u"focused"_s, boxSize, selected(1), focus},
        {u"disabled"_s, boxSize, selected(1, {{u"Enabled"_s, false}})},
        {u"locked"_s, boxSize, selected(1, {{u"Locked"_s, true}})},
        {u"long-item"_s, boxSize, selected(4)},
        {u"open"_s, boxSize, selected(1), open, true},
        {u"open-locked"_s, boxSize, selected(1, {{u"Locked"_s, true}}), open, true},
        {u"right-to-left"_s, boxSize, selected(1, {rightToLeft})},
        {u"right-to-left-open"_s, boxSize, selected(1, {rightToLeft}), open, true},
        {u"no-button-icon"_s, boxSize, selected(0, {{u"ButtonIcon"_s, Picture()}})},
        {u"own-button-icon"_s, boxSize, selected(0, {{u"ButtonIcon"_s, redIcon()}})},
        {u"colours"_s, boxSize,
         selected(2, {{u"BackColor"_s, Color::rgb(255, 255, 208)}, {u"ForeColor"_s, Color::rgb(0, 0, 192)}})},
        {u"colours-open"_s, boxSize,
         selected(2, {{u"BackColor"_s, Color::rgb(255, 255, 208)}, {u"ForeColor"_s, Color::rgb(0, 0, 192)}}),
         open, true},
        {u"large-font"_s, boxSize, selected(1, {{u"Font"_s, Font{u"Verdana"_s, 11}}})},
        {u"narrow"_s, {40, 17}, selected(1)},
    };
}

} // namespace vistrel
