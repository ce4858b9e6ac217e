#pragma once

#include <QString>

namespace vistrel
{

/// text up to, not including, its first NUL character; text itself when it holds none.
[[nodiscard]] QString StripNull(const QString& text);

/// text without the blanks (U+0020 only) at both ends; tabs and NUL characters are no blanks.
[[nodiscard]] QString trimBlanks(const QString& text);

} // namespace vistrel
