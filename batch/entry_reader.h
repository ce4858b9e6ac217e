#pragma once

#include "batch/entry.h"

#include <istream>
#include <optional>

namespace vistrel
{

/// Reads the entries of one list as they are asked for: UTF-8, with or without a byte-order mark, lines ended
/// by LF or CR LF. Comments, blank lines and lines of one character are passed over. A line that is no text,
/// or too long for an entry, comes out with its problem; the rest is not affected. Memory use does not depend
/// on the list.
class EntryReader
{
public:
    /// No address is longer than this many bytes.
    static constexpr qsizetype kLongestLine = 2 * 1024 * 1024;

    /// input must outlive this object; list names it in the entries.
    EntryReader(std::istream& input, QString list) : m_input(input), m_list(std::move(list)) {}

    /// The next entry, without its number; nothing at the end.
    [[nodiscard]] std::optional<Entry> next();

private:
    struct Line {
        QByteArray bytes;
        bool tooLong = false;
    };
    [[nodiscard]] std::optional<Line> readLine();
    [[nodiscard]] Entry entryOf(const Line& line) const;

    std::istream& m_input;
    QString m_list;
    qint64 m_line = 0; // The line read last.
};

} // namespace vistrel
