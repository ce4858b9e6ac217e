#pragma once

#include "capture/browser/browser.h"

#include <QSize>

namespace vistrel
{

/// Pixels of a side that every browser draws right in one piece.
constexpr int kSafeSide = 8192;

/// Pixels of a side that browser draws right in one piece, as far as matters to a picture of so many pixels:
/// kSafeSide or more. For the first picture that passes it, the browser draws a tall page of known content
/// once; others wait for that. Fails when it does not manage to, with Error::Kind::Format when not even
/// kSafeSide comes out right, or as session, that of the page to be drawn, when it ends before.
Task<Result<int>> findLongestSide(std::shared_ptr<Browser> browser, std::shared_ptr<Session> session,
                                  QSize picture);

} // namespace vistrel
