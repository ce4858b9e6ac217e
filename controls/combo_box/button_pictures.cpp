#include "controls/combo_box/button_pictures.h"

#include "platform/drawing/color.h"

#include <QPainter>

#include <array>

namespace vistrel
{

namespace
{

constexpr QSize size(13, 20);
constexpr int arrowColumn = 6;

// An arrow of three rows from firstRow on, each widened by so many pixels on both sides of its column.
Picture arrowPicture(int firstRow, const std::array<int, 3>& widened)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Color::rgb(0, 130, 198).toQColor());
    QPainter painter(&image);
    int row = firstRow;
    for (const int side : widened)
        painter.fillRect(arrowColumn - side, row++, 2 * side + 1, 1, Color::rgb(255, 207, 132).toQColor());
    painter.end();
    return Picture(image);
}

} // namespace

const Picture& picUP()
{
    static const Picture picture = arrowPicture(9, {2, 1, 0});
    return picture;
}

const Picture& picDown()
{
    static const Picture picture = arrowPicture(8, {0, 1, 2});
    return picture;
}

} // namespace vistrel
