#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace vistrel
{

/// What stands in the way of writing a file.
struct WriteProblem {
    enum class Cause {
        Exists,     ///< Something is at the path, and it was not to be replaced.
        DiskFull,   ///< No space or quota is left.
        FolderGone, ///< The folder cannot be written or is not there.
        Other,
    };
    Cause cause;
    QString message; ///< Names the file and the system's reason.
};

enum class IfExists { Replace, Refuse };

/// Writes a file that appears at path whole or not at all, and survives a power failure once this returns:
/// bytes go to a temporary file beside it, which is then given its name in one step. A link at path is
/// replaced, not followed. On failure path is as it was, and the temporary file is gone. Any thread.
std::optional<WriteProblem> writeWholeFile(const QString& path, QByteArrayView bytes, IfExists ifExists);

/// Deletes the temporary files that killed runs left in folder. Nothing may be writing there meanwhile.
/// Returns how many were deleted.
int sweepTemporaryFiles(const QString& folder);

} // namespace vistrel
