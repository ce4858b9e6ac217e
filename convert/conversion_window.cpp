#include "convert/conversion_window.h"

#include "platform/runtime_error.h"

namespace vistrel
{

const ConversionSettings& ConversionWindow::settings() const
{
    const ConversionSettings* live = liveSettings();
    if (!live) throw RuntimeError(RuntimeError::Number::ObjectNotSet);
    return *live;
}

} // namespace vistrel
