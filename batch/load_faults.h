#pragma once

#include <QString>

namespace vistrel
{

// The browser names what keeps a page from loading by codes such as ERR_CONNECTION_REFUSED.

/// Whether reason holds the code of a fault of the network, or of a server, that may be gone the next minute.
[[nodiscard]] bool isPassingFault(const QString& reason);

/// reason with the code in it, if there is one, put in words for a person, with the remedy where there is
/// one; the code stays behind them in brackets. Codes without words of ours are left as they are.
[[nodiscard]] QString inWords(const QString& reason);

} // namespace vistrel
