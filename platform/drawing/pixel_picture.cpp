#include "platform/drawing/pixel_picture.h"

namespace vistrel
{

Picture pixelPicture(std::initializer_list<QStringView> rows, const QMap<char16_t, Color>& colors)
{
    QImage image(static_cast<int>(rows.begin()->size()), static_cast<int>(rows.size()),
                 QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    int y = 0;
    for (const QStringView row : rows) {
        for (int x = 0; x < image.width(); ++x) {
            const auto color = colors.constFind(row[x].unicode());
            if (color != colors.constEnd()) image.setPixelColor(x, y, color->toQColor());
        }
        ++y;
    }
    return Picture(image);
}

} // namespace vistrel
