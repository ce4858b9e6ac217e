#pragma once

#include "platform/drawing/font.h"

#include <QPainterPath>

#include <optional>

namespace vistrel
{

/// The glyphs of the "Webdings" font that window captions use, for hosts without that font: "0" (minimise)
/// and "r" (close).

/// The outline of the one-letter text in a square of emPx, or nothing where the font itself draws it or
/// text is another one. Edges lie on whole pixels where they are straight.
std::optional<QPainterPath> symbolGlyph(const QString& text, const Font& font, int emPx);

} // namespace vistrel
