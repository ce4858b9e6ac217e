#pragma once

#include <QIODevice>
#include <QString>

namespace vistrel
{

/// The SHA-256 of everything in file, in 64 hexadecimal digits; file is of random access and is read to its
/// end. Empty when it cannot be read.
[[nodiscard]] QString fileHash(QIODevice& file);

} // namespace vistrel
