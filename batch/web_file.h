#pragma once

#include "batch/plan.h"

#include <QUrl>

namespace vistrel
{

/// Whether address is of origin's host and port and no less safe, so that what is meant for the one may be
/// told the other: https at its usual port will do where origin is plain http at its own.
[[nodiscard]] bool isOwn(const QUrl& address, const QUrl& origin);

/// Fetches the file at an http or https address, the way that the plan's pages are fetched: through its
/// proxy, with its user agent, languages, headers and cookies, the last two only where isOwn(). Waits
/// for it; any thread.
///
/// Errors: Page (the server cannot be reached or refuses, over 5 redirects), Timeout (2 min in all, or 30 s
/// of silence), TooLarge (over limit bytes).
[[nodiscard]] Result<QByteArray> fetchFile(const QUrl& address, const QUrl& origin, const Plan& plan,
                                           qsizetype limit);

} // namespace vistrel
