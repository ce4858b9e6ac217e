#pragma once

#include <QImage>

#include <functional>

namespace vistrel
{

/// What control has drawn there, in pixels of the screen.
inline QColor pixel(const auto& control, QPoint at) { return control.surface().image().pixelColor(at); }

/// The smallest rectangle around the pixels within area that are wanted; empty when there are none.
inline QRect boundsOf(const QImage& image, const QRect& area, const std::function<bool(QColor)>& isWanted)
{
    QRect bounds;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (isWanted(image.pixelColor(x, y))) bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

} // namespace vistrel
