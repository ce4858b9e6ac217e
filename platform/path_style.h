#pragma once

#include <QChar>
#include <QString>

namespace vistrel
{

/// The one place that knows the path separator. Path rules take a PathStyle, so that they can be run in both
/// styles; programs use PathStyle::host().
struct PathStyle {
    QChar separator;

    static constexpr PathStyle backslash() { return {u'\\'}; }
    static constexpr PathStyle slash() { return {u'/'}; }
    /// The style of the machine that this build runs on.
    static PathStyle host();

    /// folder with exactly one separator added when it ends in none; an empty folder stays empty.
    [[nodiscard]] QString withTrailingSeparator(const QString& folder) const;
};

} // namespace vistrel
