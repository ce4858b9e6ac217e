#include "batch/entry_reader.h"

#include "convert/entry_list.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");

} // namespace

std::optional<Entry> EntryReader::next()
{
    while (const auto line = readLine()) {
        Entry entry = entryOf(*line);
        if (!entry.text.isEmpty() || !entry.problem.isEmpty()) return entry;
    }
    return std::nullopt;
}

std::optional<EntryReader::Line> EntryReader::readLine()
{
    Line line;
    char byte = 0;
    bool ended = false;
    std::streambuf& buffer = *m_input.rdbuf();
    for (int next = buffer.sbumpc(); next != std::char_traits<char>::eof(); next = buffer.sbumpc()) {
        byte = char(next);
        ended = byte == '\n';
        if (ended) break;
        if (line.bytes.size() < kLongestLine)
            line.bytes.append(byte);
        else
            line.tooLong = true;
    }
    if (!ended && line.bytes.isEmpty()) return std::nullopt;
    if (line.bytes.endsWith('\r')) line.bytes.chop(1);
    if (++m_line == 1 && line.bytes.startsWith(kByteOrderMark)) line.bytes.remove(0, kByteOrderMark.size());
    return line;
}

Entry EntryReader::entryOf(const Line& line) const
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(line.bytes);
    Entry entry;
    entry.line = m_line;
    entry.list = m_list;
    entry.text = entryOfLine(text.left(line.tooLong ? 100 : text.size()));
    if (entry.text.isEmpty()) return entry;
    if (line.tooLong)
        entry.problem = u"the line is longer than %1 MiB"_s.arg(kLongestLine / (1024 * 1024));
    else if (decoder.hasError())
        entry.problem = u"the line is not UTF-8 text"_s;
    else if (text.contains(u'\0'))
        entry.problem = u"the line holds NUL characters"_s;
    return entry;
}

} // namespace vistrel
