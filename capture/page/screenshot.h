#pragma once

#include "capture/image/page_picture.h"
#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

#include <QRect>

#include <functional>

namespace vistrel
{

/// A strip has at most this many pixels, 20,480 rows of 1280 px: what the browser needs while it draws, up to
/// 24 bytes a pixel, does not grow with the page.
constexpr qint64 kMostStripPixels = 1280LL * 20480;
/// Beyond this a picture is refused rather than cut: 1280 px wide, it is 200,000 px tall.
constexpr qint64 kMostPixels = 256LL * 1000 * 1000;

/// Content that overflows to the side is in the picture up to this width, in windows: a wide table. What
/// reaches further is a carousel or parked out of sight, and the picture is one window wide.
constexpr int kMostWindowWidths = 2;

/// The whole page's rectangle in CSS px: its content and at least the viewport.
Task<Result<QRect>> measurePage(std::shared_ptr<Session> session, QSize viewport);

/// How a picture is taken.
struct ShotSettings {
    PagePicture::Encoding encoding = PagePicture::Encoding::Png;
    int jpegQuality = 80;
    int longestSide = 20480; ///< Pixels that the browser draws right in one piece.
    double scale = 1;        ///< Pixels of a CSS px, in hundredths.
};

/// Error::Kind::TooLarge for an area whose picture would pass kMostPixels or be wider than longestSide.
Result<void> checkArea(QRect area, const ShotSettings& settings);

/// How many rows of area, which passed checkArea(), are taken in one piece, in CSS px. Pieces of a PNG end
/// where a whole pixel does, those of a JPEG where they can be joined; 0 when such a piece would be too
/// large, which happens to a JPEG of a wide area at an odd scale.
int stripRows(QRect area, const ShotSettings& settings);

/// Takes area, strip by strip from the top. progress is called after each strip with the rows done so far.
Task<Result<PagePicture>> takePicture(std::shared_ptr<Session> session, QRect area, ShotSettings settings,
                                      std::function<void(int rows)> progress);

} // namespace vistrel
