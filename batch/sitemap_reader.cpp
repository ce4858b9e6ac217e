#include "batch/sitemap_reader.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

Result<std::optional<QString>> SitemapReader::next()
{
    if (!m_begun && !begin()) return failure();
    while (m_xml.readNextStartElement()) {
        if (m_xml.name() != (m_isIndex ? u"sitemap"_s : u"url"_s)) {
            m_xml.skipCurrentElement();
            continue;
        }
        const QString address = readAddress();
        if (!address.isEmpty()) return std::optional(address);
    }
    if (m_xml.hasError()) return failure();
    return std::optional<QString>();
}

bool SitemapReader::begin()
{
    m_begun = true;
    while (!m_xml.atEnd() && !m_xml.isStartElement()) {
        if (m_xml.readNext() == QXmlStreamReader::DTD)
            m_xml.raiseError(u"it has a document type, which no sitemap has"_s);
    }
    if (m_xml.hasError()) return false;
    m_isIndex = m_xml.name() == u"sitemapindex";
    if (!m_isIndex && m_xml.name() != u"urlset") m_xml.raiseError(u"it is no sitemap"_s);
    return !m_xml.hasError();
}

/// The address in the entry that begins here; reads to the entry's end.
QString SitemapReader::readAddress()
{
    const QString language = m_xml.namespaceUri().toString();
    QString address;
    while (m_xml.readNextStartElement()) {
        if (m_xml.name() == u"loc" && m_xml.namespaceUri() == language)
            address = m_xml.readElementText(QXmlStreamReader::SkipChildElements).trimmed();
        else
            m_xml.skipCurrentElement();
    }
    return address;
}

Error SitemapReader::failure() const
{
    return {Error::Kind::Format, u"line %1: %2"_s.arg(m_xml.lineNumber()).arg(m_xml.errorString()), {}};
}

} // namespace vistrel
