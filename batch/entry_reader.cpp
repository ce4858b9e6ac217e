#include "batch/entry_reader.h"

#include "convert/entry_list.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");
constexpr qsizetype kBeginning = 1024; // Bytes that tell what a file is.

/// Why what begins so is no list, and what to do with it; empty for a list.
QString objectionTo(QByteArrayView beginning)
{
    if (beginning.startsWith(kByteOrderMark)) beginning = beginning.sliced(kByteOrderMark.size());
    const QByteArray text = beginning.trimmed().toByteArray().toLower();
    const auto isOne = [&](const char* mark) { return text.startsWith(mark); };
    if (isOne("<!doctype html") || isOne("<html"))
        return u"is an HTML page, not a list of pages: to convert the page itself, give it with --url"_s;
    if (isOne("<?xml") || isOne("<urlset") || isOne("<sitemapindex"))
        return u"is XML, not a list of pages: give a sitemap with --sitemap, and a page with --url"_s;
    if (text.contains('\0') || isOne("%pdf-"))
        return u"is not UTF-8 text: a list has one address or local HTML file a line"_s;
    return {};
}

} // namespace

EntryReader::EntryReader(std::istream& input, QString list)
    : m_input(input), m_list(std::move(list)), m_beginning(kBeginning, Qt::Uninitialized)
{
    m_beginning.resize(m_input.rdbuf()->sgetn(m_beginning.data(), kBeginning));
}

Result<void> EntryReader::check() const
{
    const QString objection = objectionTo(m_beginning);
    if (objection.isEmpty()) return {};
    const QString name = m_list == u"-" ? u"standard input"_s : u"the list file "_s + m_list;
    return Error{Error::Kind::Format, name + u' ' + objection, {}};
}

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
    for (int next = readByte(); next != std::char_traits<char>::eof(); next = readByte()) {
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

int EntryReader::readByte()
{
    if (m_taken < m_beginning.size()) return uchar(m_beginning[m_taken++]);
    return m_input.rdbuf()->sbumpc();
}

Entry EntryReader::entryOf(const Line& line) const
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(line.bytes);
    Entry entry;
    entry.line = m_line;
    entry.list = m_list;
    entry.text = entryOfLine(text.left(line.tooLong ? 100 : text.size()).trimmed());
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
