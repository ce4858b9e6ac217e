#pragma once

#include <QLoggingCategory>

namespace vistrel
{

/// The one logging path: Qt's categories. Silent below "warning" until vistrel-batch --verbose, or a
/// QT_LOGGING_RULES in the environment ("vistrel.*=true"), says otherwise.
Q_DECLARE_LOGGING_CATEGORY(logBrowser) // "vistrel.browser": its process and connection.
Q_DECLARE_LOGGING_CATEGORY(logPage)    // "vistrel.page": one page, from address to picture.

} // namespace vistrel
