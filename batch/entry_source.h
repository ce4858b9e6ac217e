#pragma once

#include "batch/entry_reader.h"
#include "batch/plan.h"
#include "batch/sitemap_source.h"
#include "platform/result.h"

#include <fstream>

namespace vistrel
{

/// The entries of a whole run, one after the other and numbered: those of the lists in the order given, then
/// those of the sitemaps, then the addresses of the command line. All are read as entries are asked for.
class EntrySource
{
public:
    /// plan and input, which is the list called "-", must outlive this object.
    EntrySource(const Plan& plan, std::istream& input) : m_plan(plan), m_input(input) {}

    /// The next entry; nothing at the end. Fails when a list or a sitemap cannot be read.
    [[nodiscard]] Result<std::optional<Entry>> next();

    /// Error::Kind::Io for the first list, or sitemap that is a file, which cannot be opened, Format for a
    /// list file that is none. Lists that can be read only once are left for next().
    [[nodiscard]] static Result<void> check(const Plan& plan);

private:
    [[nodiscard]] Result<std::optional<Entry>> nextOfLists();
    [[nodiscard]] Result<std::optional<Entry>> nextOfSitemaps();
    [[nodiscard]] std::optional<Entry> nextAddress();
    [[nodiscard]] Result<void> openList(const QString& path);

    const Plan& m_plan;
    std::istream& m_input;
    std::ifstream m_file;
    std::optional<EntryReader> m_reader;    // Of the list being read.
    std::optional<SitemapSource> m_sitemap; // The one being read.
    qsizetype m_nextList = 0;
    qsizetype m_nextSitemap = 0;
    qsizetype m_nextAddress = 0;
    qint64 m_lastNumber = 0;
};

} // namespace vistrel
