#include "capture/page/address.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qsizetype kLongestAddress = 2 * 1024 * 1024; // Chromium blanks what is longer.

Error unusable(const QString& entry, const QString& why)
{
    return {Error::Kind::Usage, u"\"%1\" %2"_s.arg(entry.left(200), why), {}};
}

bool hasControlCharacter(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() < 0x20 || c.unicode() == 0x7f; });
}

/// The part before the first colon, when it reads as a scheme and not as a host with a port.
QString schemeOf(const QString& entry)
{
    static const QRegularExpression pattern(u"^([A-Za-z][A-Za-z0-9+.-]*):(?!\\d+(?:[/?#]|$))"_s);
    return pattern.match(entry).captured(1).toLower();
}

Result<QList<QUrl>> localFile(const QString& entry, const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists()) return unusable(entry, u"does not exist"_s);
    if (!file.isFile()) return unusable(entry, u"is a folder or a device, not a page"_s);
    return QList{QUrl::fromLocalFile(file.absoluteFilePath())};
}

Result<QList<QUrl>> withScheme(const QString& entry, const QString& scheme)
{
    const QUrl url(entry);
    if (scheme == u"file") {
        if (!url.host().isEmpty() && url.host() != u"localhost")
            return unusable(entry, u"is a file of another host"_s);
        auto page = localFile(entry, url.path());
        if (page && url.hasQuery()) page->first().setQuery(url.query(QUrl::FullyEncoded));
        if (page && url.hasFragment()) page->first().setFragment(url.fragment(QUrl::FullyEncoded));
        return page;
    }
    if (scheme != u"http" && scheme != u"https")
        return unusable(entry, u"is no page: only http, https and file addresses are"_s);
    if (!url.isValid() || url.host().isEmpty()) return unusable(entry, u"is no usable address"_s);
    return QList{url};
}

/// A host's name may end in anything, but none ends as pages' names do.
bool isPageName(const QString& host)
{
    static const QRegularExpression pattern(u"\\.(x?html?|mhtml?)$"_s);
    return pattern.match(host).hasMatch();
}

bool isIpAddress(const QString& host)
{
    static const QRegularExpression ipv4(u"^\\d{1,3}(\\.\\d{1,3}){3}$"_s);
    return host.contains(u':') || ipv4.match(host).hasMatch();
}

Result<QList<QUrl>> asTyped(const QString& entry)
{
    const QUrl plain(u"http://"_s + entry);
    const QString host = plain.host();
    const bool here = host == u"localhost" || host.endsWith(u".localhost");
    if (!plain.isValid() || host.isEmpty() || entry.contains(u' '))
        return unusable(entry, u"is no usable address"_s);
    if (here || isIpAddress(host) || plain.port() >= 0) return QList{plain};
    if (!host.contains(u'.') || isPageName(host))
        return unusable(entry, u"is neither a file nor an address"_s);
    return QList{QUrl(u"https://"_s + entry), plain};
}

} // namespace

Result<QList<QUrl>> resolveAddress(const QString& entry)
{
    const QString text = entry.trimmed();
    if (text.isEmpty()) return Error{Error::Kind::Usage, u"the entry is empty"_s, {}};
    if (text.size() > kLongestAddress) return unusable(text, u"is too long for an address"_s);
    if (hasControlCharacter(text)) return unusable(text, u"holds a control character"_s);
    if (QFileInfo::exists(entry)) return localFile(entry, entry);
    if (QDir::isAbsolutePath(text)) return unusable(text, u"does not exist"_s);
    const QString scheme = schemeOf(text);
    return scheme.isEmpty() ? asTyped(text) : withScheme(text, scheme);
}

} // namespace vistrel
