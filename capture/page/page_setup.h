#pragma once

#include "capture/page/page_request.h"
#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

namespace vistrel
{

/// Sets all that an empty page has to know before it loads what the request asks for.
Task<Result<void>> setUpPage(std::shared_ptr<Session> session, PageRequest request);

/// The same for local pages for which setUpPage() does the same.
QString nameOfSetup(const PageRequest& request);

/// Gives the page a window of so many CSS px, with scale device pixels for each.
Completion<Reply> resizeWindow(Session& session, QSize window, double scale);

/// How long a page that showed a document may take over what a fresh one does at once.
constexpr Session::Limit kReuseLimit = std::chrono::seconds(2);

/// Lets the next document find nothing of the one that is shown, a local page: no storage, name or history.
/// The script that empties what is at hand runs when that document begins, and is to be removed by the
/// identifier returned before there is another. Fails when the page does not answer within kReuseLimit.
Task<Result<QString>> forgetDocument(std::shared_ptr<Session> session);

} // namespace vistrel
