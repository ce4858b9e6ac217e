#include "platform/drawing/font.h"

namespace vistrel
{

namespace
{

constexpr double pixelsPerPoint = 96.0 / 72.0;

} // namespace

QFont Font::toQFont() const
{
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(qMax(1, qRound(sizePt * pixelsPerPoint)));
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    return font;
}

} // namespace vistrel
