#pragma once

#include "batch/entry.h"
#include "platform/result.h"

#include <QFile>

namespace vistrel
{

/// A report for programs and spreadsheets: for every entry one JSON object a line (JSON Lines), or one row of
/// a CSV file with a heading (RFC 4180) when the file's name ends in ".csv".
///
/// Members, in this order: line, entry, state, file, thumbnail, width, height, bytes, milliseconds, reason,
/// then list, address, status, note, attempts, started (UTC, ISO 8601), sha256. What means nothing for an
/// entry is null, or empty. Credentials in addresses are masked.
class ReportFile
{
public:
    enum class Format { JsonLines, Csv };

    /// Creates the file, or empties it. Error::Kind::Io when that cannot be done.
    Result<void> open(const QString& path);

    void add(const Entry& entry, const Outcome& outcome);

    /// Error::Kind::Io when any part of the report could not be written.
    Result<void> close();

private:
    QFile m_file;
    Format m_format = Format::JsonLines;
};

[[nodiscard]] QByteArray reportHeading(ReportFile::Format format);

/// One line of the report, with its line break. In a CSV file a text that a spreadsheet would take for a
/// formula is put behind an apostrophe.
[[nodiscard]] QByteArray reportLine(ReportFile::Format format, const Entry& entry, const Outcome& outcome);

} // namespace vistrel
