#pragma once

#include "batch/entry.h"
#include "batch/plan.h"
#include "batch/sitemap_reader.h"

#include <QSet>

#include <list>

namespace vistrel
{

/// The pages that a sitemap names, with those of the sitemaps that it refers to, in the order in which they
/// are written; a sitemap that was there before is not read again. Files are read, or fetched, as pages are
/// asked for; one is held at a time for each level.
class SitemapSource
{
public:
    static constexpr qsizetype kLargestFile = 50 * 1024 * 1024; ///< Bytes, unpacked: the format's own limit.
    static constexpr int kMostLevels = 3;                       ///< Of sitemaps within sitemaps.
    static constexpr int kMostFiles = 50000;                    ///< Under one sitemap.

    /// sitemap: an http or https address, or a path. plan must outlive this object.
    SitemapSource(const Plan& plan, QString sitemap);

    /// The next page, without its number; nothing at the end. Its list is the first sitemap, its line counts
    /// the addresses read. What is named and is no http or https address, and a further sitemap that cannot
    /// be read, come out as an entry with a problem. An error when the first sitemap cannot be read, which it
    /// names.
    [[nodiscard]] Result<std::optional<Entry>> next();

    /// Whether sitemap is fetched; else it is a path.
    [[nodiscard]] static bool isAddress(const QString& sitemap);

private:
    struct Level {
        explicit Level(const QByteArray& xml, QString name) : reader(xml), sitemap(std::move(name)) {}
        SitemapReader reader;
        QString sitemap;
    };
    [[nodiscard]] Result<void> open(const QString& sitemap);
    [[nodiscard]] Result<QByteArray> load(const QString& sitemap) const;
    [[nodiscard]] std::optional<Entry> follow(const QString& address);
    [[nodiscard]] Entry entryFor(const QString& address, const QString& problem) const;

    const Plan& m_plan;
    QString m_sitemap;         // The first.
    std::list<Level> m_levels; // From the first to the one being read.
    QSet<QString> m_opened;
    qint64 m_read = 0; // Addresses.
};

/// Whether the page of entry may be sent the user's headers and cookies. A sitemap from the network says
/// which pages there are, not who gets to see those: only its own host does.
[[nodiscard]] bool mayTakeHeaders(const Entry& entry);

} // namespace vistrel
