#include "platform/profile.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QByteArrayList splitLines(QByteArrayView bytes)
{
    QByteArrayList lines;
    while (!bytes.isEmpty()) {
        const qsizetype lineFeed = bytes.indexOf('\n');
        const qsizetype length = lineFeed < 0 ? bytes.size() : lineFeed + 1;
        lines.append(bytes.first(length).toByteArray());
        bytes = bytes.sliced(length);
    }
    return lines;
}

QByteArray lineEndOf(const QByteArray& line)
{
    if (line.endsWith("\r\n")) return "\r\n";
    return line.endsWith('\n') ? "\n" : "";
}

bool equalNames(QStringView left, QStringView right) { return left.compare(right, Qt::CaseInsensitive) == 0; }

bool isHeader(QStringView line) { return line.startsWith(u'[') && line.contains(u']'); }

QStringView headerName(QStringView line) { return line.sliced(1, line.lastIndexOf(u']') - 1).trimmed(); }

QStringView keyName(QStringView line)
{
    const qsizetype equals = line.indexOf(u'=');
    return equals < 0 ? line : line.first(equals).trimmed();
}

QStringView unquoted(QStringView value)
{
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return isQuoted ? value.sliced(1, value.size() - 2) : value;
}

} // namespace

Profile::Profile(CodePage codePage, QByteArrayView bytes)
    : m_codePage(std::move(codePage)), m_lines(splitLines(bytes))
{
}

QString Profile::value(QStringView section, QStringView key) const
{
    const qsizetype line = lineOf(find(section), key);
    if (line < 0) return {};
    const QString content = text(line);
    const qsizetype equals = content.indexOf(u'=');
    if (equals < 0) return {};
    return unquoted(QStringView(content).sliced(equals + 1).trimmed()).left(valueLimit).toString();
}

void Profile::setValue(QStringView section, QStringView key, const QString& value)
{
    const QByteArray newValue = m_codePage.toBytes(QString(value).replace(u'\r', u' ').replace(u'\n', u' '));
    const QByteArray newKey = m_codePage.toBytes(key) + '=';
    Section lines = find(section);
    if (const qsizetype line = lineOf(lines, key); line >= 0) {
        QByteArray& old = m_lines[line];
        const QByteArray oldKey = old.left(old.indexOf('=') + 1);
        old = (oldKey.isEmpty() ? newKey : oldKey) + newValue + lineEndOf(old);
        return;
    }
    if (lines.first < 0) {
        insert(m_lines.size(), '[' + m_codePage.toBytes(section) + ']');
        lines = {m_lines.size(), m_lines.size()};
    }
    while (lines.end > lines.first && text(lines.end - 1).isEmpty())
        --lines.end;
    insert(lines.end, newKey + newValue);
}

Profile::Section Profile::find(QStringView name) const
{
    qsizetype line = 0;
    const auto isHeaderOf = [&](const QString& text) {
        return isHeader(text) && equalNames(headerName(text), name);
    };
    while (line < m_lines.size() && !isHeaderOf(text(line)))
        ++line;
    if (line == m_lines.size()) return {-1, -1};

    Section section{line + 1, line + 1};
    while (section.end < m_lines.size() && !isHeader(text(section.end)))
        ++section.end;
    return section;
}

qsizetype Profile::lineOf(Section section, QStringView key) const
{
    for (qsizetype line = section.first; line < section.end; ++line) {
        if (equalNames(keyName(text(line)), key)) return line;
    }
    return -1;
}

QString Profile::text(qsizetype line) const
{
    QString text = m_codePage.toText(m_lines[line]);
    if (line == 0 && text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
    return text.trimmed();
}

void Profile::insert(qsizetype line, const QByteArray& content)
{
    const QByteArray firstEnd = m_lines.isEmpty() ? QByteArray() : lineEndOf(m_lines.first());
    const QByteArray lineEnd = firstEnd.isEmpty() ? QByteArray("\r\n") : firstEnd;
    if (line > 0 && lineEndOf(m_lines[line - 1]).isEmpty()) m_lines[line - 1] += lineEnd;
    m_lines.insert(line, content + lineEnd);
}

} // namespace vistrel
