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
    QString target;    ///< What to load: text, its full path for a local file, or the shortcut's address.
    QString problem;   ///< Why the line is no entry, in words; empty for a good one.
};

enum class EntryState { Converted, Failed, Skipped };

/// "converted", "failed" or "skipped".
[[nodiscard]] QString stateName(EntryState state);

/// How one entry ended.
struct Outcome {
    EntryState state = EntryState::Skipped;
    QString file;            ///< Full path of the picture in the first format; empty when there is none.
    QString thumbnail;       ///< Likewise.
    QSize size;              ///< Of the picture, px.
    qint64 bytes = 0;        ///< Length of file.
    QString hash;            ///< SHA-256 of file, in hexadecimal digits.
    qint64 milliseconds = 0; ///< From the opening of the page to the written files.
    qint64 started = 0;      ///< When, in ms since 1970.
    int attempts = 0;        ///< How often the page was opened.
    QString address;         ///< Where the page was found in the end, after redirects.
    int httpStatus = 0;      ///< 0 for what no server answered.
    QString note;            ///< What is odd about a picture: an HTTP error, one colour only.
    QString reason;          ///< Why it was not converted; empty when it was.

    [[nodiscard]] static Outcome failed(const QString& reason);
    [[nodiscard]] static Outcome skipped(const QString& reason);
};

} // namespace vistrel
