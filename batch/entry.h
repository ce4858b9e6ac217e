#pragma once

#include <QSize>
#include <QString>

namespace vistrel
{

/// One page to convert, as its list gives it.
struct Entry {
    qint64 number = 0; ///< 1-based, over all lists of the run.
    qint64 line = 0;   ///< 1-based within its list; for --url, which of them.
    QString list;      ///< The list's path, "-" for standard input, empty for --url.
    QString text;      ///< Trimmed.
    QString problem;   ///< Why the line is no entry, in words; empty for a good one.
};

enum class EntryState { Converted, Failed, Skipped };

/// "converted", "failed" or "skipped".
[[nodiscard]] QString stateName(EntryState state);

/// How one entry ended.
struct Outcome {
    EntryState state = EntryState::Skipped;
    QString file;            ///< Full path; empty when no picture was written.
    QString thumbnail;       ///< Likewise.
    QSize size;              ///< Of the picture, px.
    qint64 bytes = 0;        ///< Length of the file.
    qint64 milliseconds = 0; ///< From the opening of the page to the written files.
    QString reason;          ///< Why it was not converted; empty when it was.

    [[nodiscard]] static Outcome failed(const QString& reason);
    [[nodiscard]] static Outcome skipped(const QString& reason);
};

} // namespace vistrel
