#pragma once

#include "capture/page/page_watch.h"
#include "capture/protocol/task.h"

namespace vistrel
{

// A page's markup waits for the scripts in it, and these for the style sheets before them. One that is never
// answered would keep all below it from being shown.

/// Loads the page of session anew without parts; ends once the new document is there.
Task<Result<void>> reloadWithout(std::shared_ptr<Session> session, const PageWatch& watch, QList<QUrl> parts);

/// Says that a page is shown without parts, by their hosts.
[[nodiscard]] QString describeLeftOut(const QList<QUrl>& parts);

} // namespace vistrel
