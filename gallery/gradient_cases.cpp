#include "gallery/gallery_case.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color blue = Color::rgb(0, 130, 198);
constexpr Color darkBlue = Color::rgb(0, 65, 99);
constexpr Color red = Color::rgb(255, 0, 0);
constexpr Color yellow = Color::rgb(255, 255, 0);

GalleryCase gradient(const QString& state, QSize sizePx, int angle, Color color1, Color color2)
{
    return {state, sizePx, {{u"Color1"_s, color1}, {u"Color2"_s, color2}, {u"Angle"_s, angle}}};
}

} // namespace

QList<GalleryCase> gradientCases()
{
    return {
        gradient(u"caption-strip"_s, {160, 24}, 0, blue, darkBlue),
        gradient(u"title-strip"_s, {160, 48}, 270, blue, darkBlue),
        gradient(u"angle-0"_s, {100, 60}, 0, red, yellow),
        gradient(u"angle-30"_s, {100, 60}, 30, red, yellow),
        gradient(u"angle-90"_s, {100, 60}, 90, red, yellow),
        gradient(u"angle-135"_s, {100, 60}, 135, red, yellow),
        gradient(u"angle-180"_s, {100, 60}, 180, red, yellow),
        gradient(u"angle-225"_s, {100, 60}, 225, red, yellow),
        gradient(u"angle-270"_s, {100, 60}, 270, red, yellow),
        gradient(u"angle-315"_s, {100, 60}, 315, red, yellow),
    };
}

} // namespace vistrel
