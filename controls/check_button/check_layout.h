#pragma once

#include <QRectF>

namespace vistrel
{

/// Where the parts of a check button are, in twips.
struct CheckLayout {
    QRectF p;   ///< The glyph's box; the glyph lies at its left top corner, in its natural size.
    QRectF lbl; ///< The caption.

    /// The part under a point; an empty rectangle at (0, 0) for the surface around them.
    [[nodiscard]] QRectF partAt(QPointF point) const;
};

/// For a button of that height, with a caption of that size.
CheckLayout layoutCheckButton(float height, QSizeF captionSize);

} // namespace vistrel
