#pragma once

#include "batch/plan.h"

#include <QUrl>

namespace vistrel
{

/// Fetches the file at an http or https address, the way that the plan's pages are fetched: through its
/// proxy, with its user agent, languages, headers and cookies, the last two for origin's host alone. Waits
/// for it; any thread.
///
/// Errors: Page (the server cannot be reached or refuses, over 5 redirects), Timeout (2 min in all, or 30 s
/// of silence), TooLarge (over limit bytes).
[[nodiscard]] Result<QByteArray> fetchFile(const QUrl& address, const QUrl& origin, const Plan& plan,
                                           qsizetype limit);

} // namespace vistrel
