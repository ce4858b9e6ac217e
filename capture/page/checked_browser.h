#pragma once

#include "capture/browser/browser.h"

namespace vistrel
{

/// Starts browser as Browser::start does, then has it draw a tall page of known content once, and limits the
/// strips that will be asked of it to what came out right. Error::Kind::Format when it draws nothing right.
Task<Result<void>> startChecked(std::shared_ptr<Browser> browser, BrowserOptions options);

} // namespace vistrel
