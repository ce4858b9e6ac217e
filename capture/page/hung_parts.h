#pragma once

#include "capture/page/page_watch.h"
#include "capture/protocol/task.h"

namespace vistrel
{

// A page's markup waits for the scripts in it, and these for the style sheets before them. One that is never
// answered would keep all below it from being shown.

/// Waits until the markup is parsed. When it is all there, but waits for such parts even after patience, the
/// page is loaded anew without them; those are what comes back.
Task<Result<QList<QUrl>>> waitForMarkup(std::shared_ptr<Session> session, const PageWatch& watch,
                                        Session::Limit patience);

/// Says that a page is shown without parts, by their hosts.
[[nodiscard]] QString describeLeftOut(const QList<QUrl>& parts);

} // namespace vistrel
