#pragma once

#include <QString>
#include <QStringList>

namespace vistrel
{

/// The work list of one run. Later edits of the text it came from do not reach it.
struct EntryList {
    /// One element per line of the text, in text order. A dropped line keeps its place as an empty element.
    QStringList entries;
    /// Number of kept entries.
    qint32 count = 0;
};

/// The entry that one line holds, or an empty text when the line is dropped. Blanks (U+0020 only, tabs stay)
/// are trimmed from both ends; what is then at most one character long, or begins with "*", is dropped.
/// Nothing else is changed or checked.
[[nodiscard]] QString entryOfLine(const QString& line);

/// Splits text at every "\r\n". A lone carriage return or line feed stays inside its line.
[[nodiscard]] EntryList readEntryList(const QString& text);

} // namespace vistrel
