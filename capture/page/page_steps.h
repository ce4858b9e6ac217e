#pragma once

#include "capture/page/page_request.h"
#include "capture/page/page_watch.h"
#include "capture/page/page_world.h"

#include <QRect>

namespace vistrel
{

// What a request asks for beyond a plain visit, once its page is loaded. A selector that is none gives
// Error::Kind::Usage.

/// Adds the request's style to the document that watch follows, runs the request's script among the page's
/// own, and waits for its element, however long that takes, and until the page is idle: no request has been
/// under way for 500 ms, or a quarter of the time-out has passed, since pages that poll never are. Returns
/// what went wrong without being the picture's end, in words for a person. Once the session has ended, fails
/// with its reason. watch must outlive the task.
Task<Result<QStringList>> adaptPage(std::shared_ptr<Session> session, const PageWatch& watch,
                                    PageRequest request);

/// What the request's picture shows of the page, in whole CSS px: the box of the first element that matches
/// its selector, the window, or all of the page, down to its greatest height. Error::Kind::Page when no
/// element matches, or that has no box.
Task<Result<QRect>> measureArea(std::shared_ptr<Session> session, QString frameId, PageRequest request);

/// The document's title, empty when there is none.
Task<QString> readTitle(std::shared_ptr<Session> session, QString frameId);

} // namespace vistrel
