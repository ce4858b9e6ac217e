#pragma once

#include "capture/page/page_watch.h"
#include "capture/page/page_world.h"

namespace vistrel
{

/// Brings the page that watch follows into the state a reader would see after looking at all of it: asks for
/// lazy images and frames, scrolls through a page that could notice it and goes back to the top, waits for
/// fonts, images and requests. Each wait has a cap of its own, 11 s in all. Returns by how many CSS px the
/// window would have to grow for a page that scrolls inside a container of its own; 0 for all others. watch
/// must outlive the task.
Task<Result<int>> settlePage(std::shared_ptr<Session> session, const PageWatch& watch);

/// Stops what moves: finite animations jump to their end, endless ones and videos to their start; the caret
/// is hidden; the page stands at its top.
Task<Result<void>> freezePage(std::shared_ptr<Session> session, QString frameId);

} // namespace vistrel
