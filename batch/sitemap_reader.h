#pragma once

#include "platform/result.h"

#include <QByteArray>
#include <QXmlStreamReader>

namespace vistrel
{

/// Reads one sitemap file as its entries are asked for: a list of pages, or an index of further sitemaps
/// (sitemaps.org/protocol.html). What else it says of them is passed over. A document type, and with it every
/// entity of the file's own, is refused.
class SitemapReader
{
public:
    explicit SitemapReader(const QByteArray& xml) : m_xml(xml) {}

    /// The next address, trimmed and never empty; nothing at the end. Error::Kind::Format, with the line,
    /// when the file is no sitemap or breaks off.
    [[nodiscard]] Result<std::optional<QString>> next();

    /// Whether the addresses are sitemaps; known from the first next() on.
    [[nodiscard]] bool isIndex() const { return m_isIndex; }

private:
    [[nodiscard]] bool begin();
    [[nodiscard]] QString readAddress();
    [[nodiscard]] Error failure() const;

    QXmlStreamReader m_xml;
    bool m_begun = false;
    bool m_isIndex = false;
};

} // namespace vistrel
