#pragma once

#include "batch/entry.h"
#include "platform/result.h"

#include <QFile>

namespace vistrel
{

/// A report for programs: one JSON object a line (JSON Lines) for every entry, in the order in which they
/// ended. Keys: line, entry, state, file, thumbnail, width, height, bytes, milliseconds, reason. Those that
/// mean nothing for an entry are null. Credentials in addresses are masked.
class ReportFile
{
public:
    /// Creates the file, or empties it. Error::Kind::Io when that cannot be done.
    Result<void> open(const QString& path);

    void add(const Entry& entry, const Outcome& outcome);

    /// Error::Kind::Io when any part of the report could not be written.
    Result<void> close();

private:
    QFile m_file;
};

/// One line of the report, with its line break.
[[nodiscard]] QByteArray reportLine(const Entry& entry, const Outcome& outcome);

} // namespace vistrel
