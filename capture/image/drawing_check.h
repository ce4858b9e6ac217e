#pragma once

#include <QByteArray>
#include <QString>

namespace vistrel
{

/// A picture of known content, to see up to which row a browser draws right: past some limit of its own, a
/// browser has been known to hand out repeated rows and call it success.
namespace drawingCheck
{

constexpr int kWidth = 64;   ///< Px.
constexpr int kRows = 20480; ///< Px: as much as is ever asked for in one piece.

/// The page to draw: bands of 256 rows, each in a colour of its own.
QString page();

/// How many rows, from the top, of the page's picture (a PNG file) are right: a multiple of 256, 0 to kRows.
int trueRows(const QByteArray& png);

} // namespace drawingCheck

} // namespace vistrel
