#pragma once

#include <QString>

namespace vistrel
{

/// text as it may be shown to people: credentials in an address are masked, control characters, line breaks
/// included, are replaced, so that no page and no list can write to a terminal or forge a line.
[[nodiscard]] QString printable(QString text);

} // namespace vistrel
