#include "platform/result.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

Error Error::during(const QString& phrase) const
{
    return {kind, message, context.isEmpty() ? phrase : phrase + u": "_s + context};
}

QString Error::text() const { return context.isEmpty() ? message : context + u": "_s + message; }

} // namespace vistrel
