#pragma once

#include "platform/result.h"

namespace vistrel
{

/// Writes every case of every control as "<control>-<state>.png" (with "@2x" for another device pixel ratio)
/// into folder, which is created, and "index.json" (index@2x.json): an array of objects with "file",
/// "control", "state", "properties" (in the text form of design data), "width" and "height" (of the file, in
/// pixels). Gives the number of pictures; Error::Kind::Io when one cannot be written.
Result<int> renderGallery(const QString& folder);

} // namespace vistrel
