#pragma once

#include "capture/page/page_request.h"
#include "capture/protocol/session.h"

namespace vistrel
{

// What a request asks for beyond a plain visit, as far as its page has to know before it loads anything.

/// Tells pages that the reader prefers dark colours (prefers-color-scheme). Nothing need wait for it.
void preferDarkColours(Session& session);

/// Puts the request's cookies into the browser, for the hosts of its addresses and all their paths. Settled
/// when they are there, or at once without any. Error::Kind::Protocol when the browser takes one for none.
Completion<Reply> giveCookies(Session& session, const PageRequest& request);

} // namespace vistrel
