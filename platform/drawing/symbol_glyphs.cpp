#include "platform/drawing/symbol_glyphs.h"

#include <QFontDatabase>
#include <QPainterPathStroker>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

bool isMissingSymbolFont(const Font& font)
{
    return font.family == u"Webdings"_s && !QFontDatabase::hasFamily(font.family);
}

QPainterPath bar(int emPx)
{
    QPainterPath path;
    path.addRect(emPx / 4, emPx * 2 / 3, emPx / 2, qMax(1, emPx / 6));
    return path;
}

QPainterPath cross(int emPx)
{
    const double near = emPx / 4, far = emPx - near;
    QPainterPath strokes;
    strokes.moveTo(near, near);
    strokes.lineTo(far, far);
    strokes.moveTo(far, near);
    strokes.lineTo(near, far);
    QPainterPathStroker stroker;
    stroker.setWidth(qMax(1.0, emPx / 7.0));
    stroker.setCapStyle(Qt::FlatCap);
    return stroker.createStroke(strokes).simplified();
}

} // namespace

std::optional<QPainterPath> symbolGlyph(const QString& text, const Font& font, int emPx)
{
    if (!isMissingSymbolFont(font)) return std::nullopt;
    if (text == u"0"_s) return bar(emPx);
    if (text == u"r"_s) return cross(emPx);
    return std::nullopt;
}

} // namespace vistrel
