#pragma once

#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

#include <QJsonValue>

namespace vistrel
{

/// Our own scripts in the page. They run in a world of their own: they share the page's document, not its
/// objects, so that a page which replaces Array or Promise does not touch them, and they run where the page's
/// scripts may not.
namespace pageScripts
{

/// Brings the page into the state a reader would see after looking at all of it: scrolls through it so that
/// lazy parts load, goes back to the top, waits for fonts and images. Each wait has a cap of its own; 10 s in
/// all.
Task<Result<void>> settle(std::shared_ptr<Session> session, QString frameId);

/// Stops what moves: finite animations jump to their end, endless ones and videos to their start; the caret
/// is hidden.
Task<Result<void>> freeze(std::shared_ptr<Session> session, QString frameId);

} // namespace pageScripts

} // namespace vistrel
