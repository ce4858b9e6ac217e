#include "platform/drawing/text.h"

#include "platform/drawing/symbol_glyphs.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QStringList linesOf(const QString& text) { return QString(text).replace(u"\r\n"_s, u"\n"_s).split(u'\n'); }

void paintGlyph(QPainter& painter, QPoint leftTopPx, const QPainterPath& glyph, Color color)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(leftTopPx);
    painter.fillPath(glyph, color.toQColor());
    painter.translate(-leftTopPx);
}

} // namespace

QSize textSizePx(const QString& text, const Font& font)
{
    const QFont face = font.toQFont();
    if (symbolGlyph(text, font, face.pixelSize())) return {face.pixelSize(), face.pixelSize()};
    const QFontMetrics metrics(face);
    const QStringList lines = linesOf(text);
    int width = 0;
    for (const QString& line : lines)
        width = qMax(width, metrics.horizontalAdvance(line));
    return {width, static_cast<int>(lines.size()) * metrics.height()};
}

void paintText(QPainter& painter, QPoint leftTopPx, const QString& text, const Font& font, Color color)
{
    const QFont face = font.toQFont();
    if (const auto glyph = symbolGlyph(text, font, face.pixelSize())) {
        paintGlyph(painter, leftTopPx, *glyph, color);
        return;
    }
    const QFontMetrics metrics(face);
    painter.setFont(face);
    painter.setPen(color.toQColor());
    QPoint baseline = leftTopPx + QPoint(0, metrics.ascent());
    for (const QString& line : linesOf(text)) {
        painter.drawText(baseline, line);
        baseline.ry() += metrics.height();
    }
}

} // namespace vistrel
