#pragma once

#include "capture/image/page_picture.h"
#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

#include <QRect>

#include <functional>

namespace vistrel
{

/// Pixels are taken in strips of at most this many rows: beyond it browsers have handed out repeated rows.
constexpr int kMostStripRows = 16384;
/// Beyond this a picture is refused rather than cut: 1280 px wide, it is 200,000 px tall.
constexpr qint64 kMostPixels = 256LL * 1000 * 1000;

/// The whole page's rectangle in CSS px: its content and at least the viewport. Error::Kind::TooLarge past
/// kMostPixels.
Task<Result<QRect>> measurePage(std::shared_ptr<Session> session, QSize viewport);

/// Takes area, strip by strip from the top. progress is called after each strip with the rows done so far.
Task<Result<PagePicture>> takePicture(std::shared_ptr<Session> session, QRect area,
                                      PagePicture::Encoding encoding, int quality,
                                      std::function<void(int rows)> progress);

} // namespace vistrel
