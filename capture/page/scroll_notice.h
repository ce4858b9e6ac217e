#pragma once

#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

namespace vistrel
{

/// Most pages are the same wherever they are scrolled to. These two find those that are not, because only
/// they are worth scrolling through: on 36 of 44 real pages it would be work for nothing, a tenth of all.

/// Makes the documents that session opens from now on note whether they watch what comes into view. Takes
/// effect in order, so it may be posted right before a navigation.
void noteScrollWatchers(Session& session);

/// Whether the document could notice that it is scrolled: its scripts run, and it listens for scrolling,
/// watches what comes into view, or has parts that cannot be asked (frames of other origins, shadow trees). A
/// page that hinders the question is said to.
Task<Result<bool>> noticesScrolling(std::shared_ptr<Session> session);

} // namespace vistrel
