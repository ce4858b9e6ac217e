#include "gallery/gallery_case.h"
#include "gallery/poses.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

using Entries = QList<PropertyBag::Entry>;

constexpr QSize buttonSize(96, 28);

// A floppy disk of 16 x 16 pixels, made for dense screens.
Picture disk()
{
    QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(QRectF(1, 1, 14, 14), QColor(0, 65, 99));
    painter.fillRect(QRectF(4, 1, 8, 5), QColor(212, 208, 200));
    painter.fillRect(QRectF(9, 2, 2, 3), QColor(0, 65, 99));
    painter.fillRect(QRectF(3, 8, 10, 7), Qt::white);
    for (const double y : {10.0, 12.0})
        painter.fillRect(QRectF(4, y, 8, 0.5), QColor(128, 128, 128));
    return Picture(image);
}

Entries designed(const QString& caption, const Entries& more = {})
{
    return Entries{
               {u"Caption"_s, caption}, {u"BackColor"_s, Color::rgb(224, 240, 250)}, {u"IfDraw"_s, true}} +
           more;
}

Entries caption(const QString& glyph)
{
    return {{u"Caption"_s, glyph},
            {u"Font"_s, Font{u"Webdings"_s, 9}},
            {u"BackColor"_s, Color::rgb(0, 65, 99)},
            {u"StyleColor"_s, Color::rgb(0, 65, 99)},
            {u"ForeColor"_s, Color::rgb(255, 255, 0)},
            {u"MouseOnColor"_s, Color::rgb(0, 0, 255)},
            {u"MouseDownColor"_s, Color::rgb(0, 255, 255)},
            {u"Style3DColor1"_s, Color::rgb(128, 255, 255)},
            {u"Style3DColor2"_s, Color::rgb(0, 0, 192)}};
}

} // namespace

QList<GalleryCase> flatButtonCases()
{
    const Entries withPicture = {{u"Picture"_s, disk()}};
    const auto styled = [&](int style, const Entries& more = {}) {
        return designed(u"Save"_s, withPicture + Entries{{u"style"_s, style}} + more);
    };
    const PropertyBag::Entry disabled = {u"Enabled"_s, false};
    const PropertyBag::Entry blueHover = {u"HovForceColor"_s, Color::rgb(0, 0, 192)};
    return {
        {u"new"_s, buttonSize, {{u"style"_s, 0}}},
        {u"resting"_s, buttonSize, designed(u"Convert"_s)},
        {u"hover"_s, buttonSize, designed(u"Convert"_s, {blueHover}), hover},
        {u"pressed"_s, buttonSize, designed(u"Convert"_s), press},
        {u"disabled"_s, buttonSize, designed(u"Convert"_s, {disabled})},
        {u"disabled-by-form"_s, buttonSize, designed(u"Convert"_s), disableByForm},
        {u"no-outline"_s, buttonSize, designed(u"Convert"_s, {{u"IfDraw"_s, false}})},
        {u"black-hover"_s, buttonSize, designed(u"Convert"_s, {{u"MouseOnColor"_s, Color{0}}}), hover},
        {u"empty"_s, buttonSize, designed(u""_s)},
        {u"picture"_s, buttonSize, designed(u""_s, withPicture)},
        {u"picture-left"_s, buttonSize, styled(0)},
        {u"picture-above"_s, {72, 48}, styled(1)},
        {u"picture-right"_s, buttonSize, styled(2)},
        {u"picture-right-disabled"_s, buttonSize, styled(2, {disabled})},
        {u"picture-left-hover"_s, buttonSize, styled(0, {blueHover}), hover},
        {u"two-lines"_s, {96, 40}, designed(u"Load list\r\nfrom file"_s)},
        {u"too-narrow"_s, {48, 28}, designed(u"Internet Options"_s)},
        {u"large-font"_s, {120, 40}, designed(u"Stop"_s, {{u"Font"_s, Font{u"Verdana"_s, 16, true, true}}})},
        {u"page-strip"_s,
         {110, 24},
         {{u"Caption"_s, u"Options    "_s}, {u"BackColor"_s, Color::rgb(140, 220, 255)}}},
        {u"right-to-left"_s, buttonSize, designed(u"\u05d4\u05de\u05e8 (3)"_s), readRightToLeft},
        {u"caption-minimise"_s, {18, 18}, caption(u"0"_s)},
        {u"caption-close"_s, {18, 18}, caption(u"r"_s)},
        {u"caption-close-hover"_s, {18, 18}, caption(u"r"_s), hover},
        {u"caption-close-pressed"_s, {18, 18}, caption(u"r"_s), press},
    };
}

} // namespace vistrel
