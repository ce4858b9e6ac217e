#include "platform/path_style.h"

#include <QDir>

namespace vistrel
{

PathStyle PathStyle::host() { return {QDir::separator()}; }

QString PathStyle::withTrailingSeparator(const QString& folder) const
{
    return folder.isEmpty() || folder.endsWith(separator) ? folder : folder + separator;
}

} // namespace vistrel
