#pragma once

#include "batch/entry.h"
#include "platform/result.h"

#include <istream>
#include <optional>

namespace vistrel
{

/// Reads the entries of one list as they are asked for: UTF-8, with or without a byte-order mark, lines ended
/// by LF or CR LF, with blanks of any kind around them. Comments, blank lines and lines of one character are
/// passed over. A line that is no text, or too long for an entry, comes out with its problem; the rest is not
/// affected. Memory use does not depend on the list.
class EntryReader
{
public:
    /// No address is longer than this many bytes.
    static constexpr qsizetype kLongestLine = 2 * 1024 * 1024;

    /// Reads the beginning of input, which must outlive this object; list names it in the entries, "-" is
    /// standard input.
    EntryReader(std::istream& input, QString list);

    /// Whether input looks like a list. Error::Kind::Format, which names it and says what to do instead, for
    /// a page or a sitemap, whose lines are no entries, and for what is no text.
    [[nodiscard]] Result<void> check() const;

    /// The next entry, without its number; nothing at the end.
    [[nodiscard]] std::optional<Entry> next();

private:
    struct Line {
        QByteArray bytes;
        bool tooLong = false;
    };
    [[nodiscard]] std::optional<Line> readLine();
    [[nodiscard]] int readByte();
    [[nodiscard]] Entry entryOf(const Line& line) const;

    std::istream& m_input;
    QString m_list;
    QByteArray m_beginning;
    qsizetype m_taken = 0; // Of m_beginning, by readByte().
    qint64 m_line = 0;     // The line read last.
};

} // namespace vistrel
