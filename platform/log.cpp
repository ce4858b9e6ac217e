#include "platform/log.h"

namespace vistrel
{

Q_LOGGING_CATEGORY(logBrowser, "vistrel.browser", QtWarningMsg)
Q_LOGGING_CATEGORY(logPage, "vistrel.page", QtWarningMsg)

} // namespace vistrel
