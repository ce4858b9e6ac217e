#include "convert/entry_list.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString withoutOuterBlanks(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text[begin] == u' ')
        ++begin;
    while (end > begin && text[end - 1] == u' ')
        --end;
    return text.sliced(begin, end - begin);
}

} // namespace

QString entryOfLine(const QString& line)
{
    QString entry = withoutOuterBlanks(line);
    if (entry.size() <= 1 || entry.startsWith(u'*')) return {};
    return entry;
}

EntryList readEntryList(const QString& text)
{
    EntryList list;
    for (const QString& line : text.split(u"\r\n"_s)) {
        list.entries.append(entryOfLine(line));
        if (!list.entries.last().isEmpty()) ++list.count;
    }
    return list;
}

} // namespace vistrel
