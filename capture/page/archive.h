#pragma once

#include "capture/protocol/session.h"
#include "capture/protocol/task.h"

namespace vistrel
{

/// A page and its parts in one file (MHT: RFC 2557), by the file's name.
[[nodiscard]] bool isArchive(const QString& path);

/// What is in the archive at path, its lines ended by CR LF, when they end in LF alone: with those the
/// browser finds no part in it. Empty when the archive is good as it is, or cannot be read.
[[nodiscard]] QByteArray archiveWithLineEnds(const QString& path);

/// Whether the frame shows what an archive holds: in place of one that it cannot read, the browser shows an
/// empty page and reports a success. Error::Kind::Page then.
Task<Result<void>> checkArchive(std::shared_ptr<Session> session, QString frameId);

} // namespace vistrel
