#pragma once

#include <QString>

namespace vistrel
{

/// The decimal number that text starts with, as a forgiving reader sees it: blanks and tabs are skipped
/// wherever they stand, reading stops at the first character that cannot continue the number, and 0 stands
/// for no number at all. "12abc" is 12, " 2.50" is 2.5, "1e2" is 100. Infinite beyond the range of double.
[[nodiscard]] double leadingNumber(const QString& text);

/// number in the shortest decimal form that reads back as the same: "12", "2.5", "-0.25"; no exponent.
[[nodiscard]] QString numberText(double number);

} // namespace vistrel
