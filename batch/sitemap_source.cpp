#include "batch/sitemap_source.h"

#include "batch/entry_reader.h"
#include "batch/gunzip.h"
#include "batch/web_file.h"
#include "platform/log.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Result<QByteArray> readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Error{Error::Kind::Io, file.errorString(), {}};
    QByteArray bytes = file.read(SitemapSource::kLargestFile + 1);
    if (bytes.size() <= SitemapSource::kLargestFile) return bytes;
    return Error{Error::Kind::TooLarge,
                 u"it is larger than %1 MiB"_s.arg(SitemapSource::kLargestFile / (1024 * 1024)),
                 {}};
}

Error unreadable(const QString& sitemap, const Error& why)
{
    return {why.kind, u"the sitemap %1 cannot be read: %2"_s.arg(sitemap, why.message), {}};
}

} // namespace

SitemapSource::SitemapSource(const Plan& plan, QString sitemap) : m_plan(plan), m_sitemap(std::move(sitemap))
{
}

bool SitemapSource::isAddress(const QString& sitemap)
{
    return sitemap.startsWith(u"http://"_s, Qt::CaseInsensitive) ||
           sitemap.startsWith(u"https://"_s, Qt::CaseInsensitive);
}

Result<std::optional<Entry>> SitemapSource::next()
{
    if (m_opened.isEmpty()) {
        const auto opened = open(m_sitemap);
        if (!opened) return opened.error();
    }
    while (!m_levels.empty()) {
        const auto address = m_levels.back().reader.next();
        if (address && *address) {
            ++m_read;
            const auto entry = follow(**address);
            if (entry) return entry;
            continue;
        }
        const QString sitemap = m_levels.back().sitemap;
        m_levels.pop_back();
        if (address) continue;
        const Error error = unreadable(sitemap, address.error());
        if (m_levels.empty()) return error;
        return std::optional(entryFor(sitemap, error.message));
    }
    return std::optional<Entry>();
}

/// Goes into address when it is a further sitemap; else makes it an entry.
std::optional<Entry> SitemapSource::follow(const QString& address)
{
    if (address.size() > EntryReader::kLongestLine)
        return entryFor(address.left(100), u"the address is longer than 2 MiB"_s);
    if (!isAddress(address)) return entryFor(address, u"a sitemap may name http and https addresses alone"_s);
    if (!m_levels.back().reader.isIndex()) return entryFor(address, {});
    if (m_opened.contains(address)) return std::nullopt;
    if (m_levels.size() >= kMostLevels || m_opened.size() >= kMostFiles)
        return entryFor(address, u"the sitemap lies too deep, or after too many others"_s);
    const auto opened = open(address);
    if (opened) return std::nullopt;
    return entryFor(address, opened.error().message);
}

Entry SitemapSource::entryFor(const QString& address, const QString& problem) const
{
    Entry entry;
    entry.line = m_read;
    entry.list = m_sitemap;
    entry.text = address;
    entry.problem = problem;
    return entry;
}

Result<void> SitemapSource::open(const QString& sitemap)
{
    m_opened.insert(sitemap);
    qCInfo(logPage).noquote() << "reading the sitemap" << sitemap;
    const auto xml = load(sitemap);
    if (!xml) return unreadable(sitemap, xml.error());
    m_levels.emplace_back(*xml, sitemap);
    return {};
}

Result<QByteArray> SitemapSource::load(const QString& sitemap) const
{
    const QUrl origin(isAddress(m_sitemap) ? m_sitemap : sitemap);
    auto bytes =
        isAddress(sitemap) ? fetchFile(QUrl(sitemap), origin, m_plan, kLargestFile) : readFile(sitemap);
    if (!bytes || !isGzip(*bytes)) return bytes;
    return gunzip(*bytes, kLargestFile);
}

bool mayTakeHeaders(const Entry& entry)
{
    return !SitemapSource::isAddress(entry.list) || isOwn(QUrl(entry.target), QUrl(entry.list));
}

} // namespace vistrel
