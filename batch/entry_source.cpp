#include "batch/entry_source.h"

#include "convert/entry_list.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QString kStandardInput = u"-"_s;

} // namespace

Result<void> EntrySource::check(const Plan& plan)
{
    for (const QString& path : plan.lists) {
        const QFileInfo file(path);
        if (path == kStandardInput) continue;
        if (!file.exists()) return Error{Error::Kind::Io, u"there is no list file %1"_s.arg(path), {}};
        if (file.isDir() || !file.isReadable())
            return Error{Error::Kind::Io, u"the list file %1 cannot be read"_s.arg(path), {}};
    }
    return {};
}

Result<std::optional<Entry>> EntrySource::next()
{
    for (;;) {
        auto entry = m_reader ? m_reader->next() : std::nullopt;
        if (!entry && m_nextList < m_plan.lists.size()) {
            const auto opened = openList(m_plan.lists[m_nextList++]);
            if (!opened) return opened.error();
            continue;
        }
        if (!entry) entry = nextAddress();
        if (entry) entry->number = ++m_lastNumber;
        return entry;
    }
}

std::optional<Entry> EntrySource::nextAddress()
{
    m_reader.reset();
    while (m_nextAddress < m_plan.addresses.size()) {
        Entry entry;
        entry.text = entryOfLine(m_plan.addresses[m_nextAddress++]);
        entry.line = m_nextAddress;
        if (!entry.text.isEmpty()) return entry;
    }
    return std::nullopt;
}

Result<void> EntrySource::openList(const QString& path)
{
    m_reader.reset();
    if (path == kStandardInput) {
        m_reader.emplace(m_input, path);
        return {};
    }
    m_file = std::ifstream(QFile::encodeName(path).toStdString(), std::ios::binary);
    if (!m_file) return Error{Error::Kind::Io, u"the list file %1 cannot be read"_s.arg(path), {}};
    m_reader.emplace(m_file, path);
    return {};
}

} // namespace vistrel
