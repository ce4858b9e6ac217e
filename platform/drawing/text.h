#pragma once

#include "platform/drawing/color.h"
#include "platform/drawing/font.h"

#include <QPoint>
#include <QSize>
#include <QString>

class QPainter;

namespace vistrel
{

/// Width of the widest line and height of all lines of text (line breaks: CR LF or LF), in logical pixels. An
/// empty text is one line high.
QSize textSizePx(const QString& text, const Font& font);

/// Writes text with its left-top corner at leftTopPx, further lines below it at the same x, nothing behind
/// it.
void paintText(QPainter& painter, QPoint leftTopPx, const QString& text, const Font& font, Color color);

} // namespace vistrel
