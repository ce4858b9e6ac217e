#include "controls/text_line/line_layout.h"

#include <algorithm>

namespace vistrel
{

namespace
{

constexpr float leastWidthPx = 5;
constexpr float standardHeightPx = 15;
constexpr float designedBottomStart = 15; // X1 of the bottom edge: the left edge has the corner.

} // namespace

TextLineLayout layoutTextLine(float width, float height, float TppX, float TppY)
{
    TextLineLayout layout;
    layout.width = std::max(width, leastWidthPx * TppY);
    layout.height = std::max(height, standardHeightPx * TppY);
    layout.IsTall = layout.height > standardHeightPx * TppY ? 1 : 0;

    const float left = TppX;
    const float top = static_cast<float>(layout.IsTall + 1) * TppX;
    const float fieldWidth = layout.width - 2 * TppY;
    const float fieldHeight = layout.height - static_cast<float>(layout.IsTall + 2) * TppX;
    layout.field = QRectF(left, top, fieldWidth, fieldHeight);

    const float right = layout.width - TppX, bottom = layout.height - TppY;
    const float lastRow = top + fieldHeight - TppY;
    layout.LLine = {{{0, 0, 0, layout.height},
                     {0, 0, right, 0},
                     {right, layout.height, right, -TppY},
                     {designedBottomStart, bottom, right, bottom},
                     {left, lastRow, left + fieldWidth, lastRow}}};
    return layout;
}

} // namespace vistrel
