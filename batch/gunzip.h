#pragma once

#include "platform/result.h"

#include <QByteArray>

namespace vistrel
{

/// Whether bytes begin as a gzip file does (RFC 1952).
[[nodiscard]] bool isGzip(const QByteArray& bytes);

/// The content of a gzip file. Error::Kind::TooLarge when it is larger than limit, in bytes, and Format when
/// the file is damaged or cut short.
[[nodiscard]] Result<QByteArray> gunzip(const QByteArray& bytes, qsizetype limit);

} // namespace vistrel
