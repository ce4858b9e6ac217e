#include "controls/slider/cpv_slider.h"
#include "gallery/gallery_case.h"
#include "gallery/poses.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

using Entries = QList<PropertyBag::Entry>;

constexpr QSize lyingSize(120, 16);
constexpr QSize standingSize(16, 90);

void grabThumb(ControlWidget& control)
{
    pressAt(control, static_cast<cpvSlider&>(control).thumb().center().toPoint());
}

Entries lying(const Entries& more = {}) { return Entries{{u"Orientation"_s, 0}, {u"Value"_s, 4}} + more; }

Entries standing(const Entries& more = {}) { return Entries{{u"Value"_s, 4}} + more; }

// Made for dense screens.
QImage canvas(QSize size)
{
    QImage image(size * 2, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::transparent);
    return image;
}

// A slim knob with rounded corners, 8 x 16 pixels, or 16 x 8.
Picture knob(QSize size)
{
    QImage image = canvas(size);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 65, 99), 1));
    painter.setBrush(QColor(140, 220, 255));
    painter.drawRoundedRect(QRectF(QPointF(0.5, 0.5), QSizeF(size) - QSizeF(1, 1)), 2, 2);
    painter.end();
    return Picture(image);
}

Picture groove(QSize size)
{
    QImage image = canvas(size);
    QPainter painter(&image);
    painter.fillRect(QRect(QPoint(), size), QColor(0, 130, 198));
    painter.fillRect(QRect(QPoint(1, 1), size - QSize(2, 2)), QColor(200, 235, 255));
    painter.end();
    return Picture(image);
}

Entries pictures(QSize thumb, QSize rail)
{
    return {{u"SliderIcon"_s, knob(thumb)}, {u"RailPicture"_s, groove(rail)}, {u"RailStyle"_s, 99}};
}

} // namespace

QList<GalleryCase> sliderCases()
{
    QList<GalleryCase> cases = {{u"new"_s, standingSize, {}}};
    for (const int style : {0, 1, 2, 3, 4, 99, 7}) {
        const Entries railed = {{u"RailStyle"_s, style}};
        cases.append({u"horizontal-rail-%1"_s.arg(style), lyingSize, lying(railed)});
        cases.append({u"vertical-rail-%1"_s.arg(style), standingSize, standing(railed)});
    }
    return cases + QList<GalleryCase>{
                       {u"first"_s, lyingSize, lying({{u"Value"_s, 0}})},
                       {u"last"_s, lyingSize, lying({{u"Value"_s, 10}})},
                       {u"disabled"_s, lyingSize, lying({{u"Enabled"_s, false}})},
                       {u"back-colour"_s, lyingSize, lying({{u"BackColor"_s, Color::rgb(224, 240, 250)}})},
                       {u"picture-rail"_s, {179, 16}, lying(pictures({8, 16}, {175, 8}))},
                       {u"thick-picture-rail"_s, {124, 24}, lying(pictures({8, 16}, {120, 24}))},
                       {u"vertical-picture-rail"_s, {16, 94}, standing(pictures({16, 8}, {8, 90}))},
                       {u"dragged"_s, {179, 16}, lying(pictures({8, 16}, {175, 8})), grabThumb, true},
                       {u"dragged-vertical"_s, standingSize, standing(), grabThumb, true},
                       {u"dragged-without-tip"_s, lyingSize, lying({{u"ShowValueTip"_s, false}}), grabThumb},
                   };
}

} // namespace vistrel
