#pragma once

#include "platform/result.h"

#include <QList>
#include <QUrl>

namespace vistrel
{

/// What to load for a list entry, best first. A path of an existing file gives its file: address. An entry
/// without a scheme is taken as an address bar would take it: https before http for a host name, http alone
/// for this machine, an IP address or a port of its own.
///
/// Error::Kind::Usage, which names the entry, for: the empty entry, a path where there is no regular file, a
/// scheme that is no page's (javascript:, chrome:, about:, blob:, ...), a file: address of another host,
/// control characters, and what is no address at all.
Result<QList<QUrl>> resolveAddress(const QString& entry);

} // namespace vistrel
