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

Result<void> checkFile(const QString& path, const QString& what)
{
    const QFileInfo file(path);
    if (!file.exists()) return Error{Error::Kind::Io, u"there is no %1 %2"_s.arg(what, path), {}};
    if (!file.isDir() && file.isReadable()) return {};
    return Error{Error::Kind::Io, u"the %1 %2 cannot be read"_s.arg(what, path), {}};
}

std::ifstream openFile(const QString& path)
{
    return std::ifstream(QFile::encodeName(path).toStdString(), std::ios::binary);
}

Result<void> checkList(const QString& path)
{
    if (!QFileInfo::exists(path))
        return Error{Error::Kind::Io,
                     u"there is no list file %1; to convert a single page, give it with --url"_s.arg(path),
                     {}};
    const auto readable = checkFile(path, u"list file"_s);
    if (!readable || !QFileInfo(path).isFile()) return readable;
    auto file = openFile(path);
    return EntryReader(file, path).check();
}

} // namespace

Result<void> EntrySource::check(const Plan& plan)
{
    for (const QString& path : plan.lists) {
        if (path == kStandardInput) continue;
        const auto readable = checkList(path);
        if (!readable) return readable;
    }
    for (const QString& sitemap : plan.sitemaps) {
        if (SitemapSource::isAddress(sitemap)) continue;
        const auto readable = checkFile(sitemap, u"sitemap"_s);
        if (!readable) return readable;
    }
    return {};
}

Result<std::optional<Entry>> EntrySource::next()
{
    auto entry = nextOfLists();
    if (entry && !*entry) entry = nextOfSitemaps();
    if (entry && !*entry) entry = nextAddress();
    if (entry && *entry) (*entry)->number = ++m_lastNumber;
    return entry;
}

Result<std::optional<Entry>> EntrySource::nextOfLists()
{
    for (;;) {
        auto entry = m_reader ? m_reader->next() : std::nullopt;
        if (entry || m_nextList == m_plan.lists.size()) return entry;
        const auto opened = openList(m_plan.lists[m_nextList++]);
        if (!opened) return opened.error();
    }
}

Result<std::optional<Entry>> EntrySource::nextOfSitemaps()
{
    for (;;) {
        auto entry = m_sitemap ? m_sitemap->next() : Result(std::optional<Entry>());
        if (!entry || *entry || m_nextSitemap == m_plan.sitemaps.size()) return entry;
        m_sitemap.emplace(m_plan, m_plan.sitemaps[m_nextSitemap++]);
    }
}

std::optional<Entry> EntrySource::nextAddress()
{
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
        return m_reader->check();
    }
    m_file = openFile(path);
    if (!m_file) return Error{Error::Kind::Io, u"the list file %1 cannot be read"_s.arg(path), {}};
    m_reader.emplace(m_file, path);
    return m_reader->check();
}

} // namespace vistrel
