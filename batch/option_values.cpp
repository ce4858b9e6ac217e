#include "batch/option_values.h"

#include "batch/output_names.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kLongestSide = 10000;
constexpr int kMostJobs = 64;
constexpr qint64 kLargestTextFile = 1024 * 1024;

Error usage(const QString& message) { return {Error::Kind::Usage, message, {}}; }

QRegularExpression whole(const QString& pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
}

bool isOneLine(const QString& text)
{
    return std::none_of(text.begin(), text.end(),
                        [](QChar c) { return c.category() == QChar::Other_Control; });
}

} // namespace

Result<QSize> readSize(const QString& text)
{
    static const QRegularExpression pattern = whole(u"(\\d{1,5})[xX](\\d{1,5})"_s);
    const auto match = pattern.match(text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const QSize largest(kLongestSide, kLongestSide);
    if (!size.isEmpty() && size.boundedTo(largest) == size) return size;
    return usage(u"a size is written WIDTHxHEIGHT, in pixels up to 10000, not "_s + text);
}

Result<int> readJobs(const QString& text)
{
    bool isNumber = false;
    const int jobs = text.toInt(&isNumber);
    if (text == u"auto" || (isNumber && jobs >= 1 && jobs <= kMostJobs)) return jobs;
    return usage(u"the number of jobs is auto or 1 to 64, not "_s + text);
}

Result<QList<ImageFormat>> readFormats(const QString& text)
{
    static const QRegularExpression pattern = whole(u"png|jpeg|gif|bmp|tiff"_s);
    QList<ImageFormat> formats;
    for (const QString& name : text.split(u',')) {
        if (!pattern.match(name).hasMatch())
            return usage(u"the formats are png, jpeg, gif, bmp and tiff, not "_s + text);
        const ImageFormat format = *imageFormatOf(name);
        if (!formats.contains(format)) formats.append(format);
    }
    return formats;
}

Result<QString> readNaming(const QString& text)
{
    if (text == u"url" || text == u"number") return text;
    const auto checked = checkNameTemplate(text);
    if (!checked) return checked.error();
    return text;
}

Result<RequestHeader> readHeader(const QString& text)
{
    static const QRegularExpression pattern = whole(u"([A-Za-z0-9!#$%&'*+.^_`|~-]+):(.*)"_s);
    static const QRegularExpression managed = whole(u"host|connection|content-length|transfer-encoding"_s);
    const auto match = pattern.match(text);
    const QString name = match.captured(1);
    if (!match.hasMatch() || !isOneLine(text))
        return usage(u"a header is written \"Name: value\", on one line"_s);
    if (name.toLower() == u"cookie") return usage(u"cookies are given with --cookie name=value"_s);
    if (managed.match(name.toLower()).hasMatch())
        return usage(u"the header %1 belongs to the connection and cannot be set"_s.arg(name));
    return RequestHeader{name, match.captured(2).trimmed()};
}

Result<RequestHeader> readCookie(const QString& text)
{
    static const QRegularExpression pattern = whole(u"([^=;,\\s]+)=([^;]*)"_s);
    const auto match = pattern.match(text);
    if (match.hasMatch() && isOneLine(text)) return RequestHeader{match.captured(1), match.captured(2)};
    return usage(u"a cookie is written name=value, without spaces in its name and without \";\""_s);
}

Result<QString> readLanguages(const QString& text)
{
    static const QRegularExpression pattern =
        whole(u"[A-Za-z]{2,3}(-[A-Za-z0-9]{1,8})*(,[A-Za-z]{2,3}(-[A-Za-z0-9]{1,8})*)*"_s);
    if (pattern.match(text).hasMatch()) return text;
    return usage(u"languages are written like de or de-CH,de,en, best first, not "_s + text);
}

Result<QString> readLine(const QString& text)
{
    if (!text.trimmed().isEmpty() && isOneLine(text)) return text;
    return usage(u"one line of text is needed"_s);
}

Result<QString> readProxy(const QString& text)
{
    static const QRegularExpression scheme = whole(u"https?|socks[45]"_s);
    const QUrl url(text, QUrl::StrictMode);
    const bool bare = url.path().size() <= 1 && !url.hasQuery() && !url.hasFragment();
    if (!url.userInfo().isEmpty())
        return usage(u"a proxy that asks for a user name cannot be used; name one that does not"_s);
    if (scheme.match(url.scheme()).hasMatch() && !url.host().isEmpty() && bare)
        return url.toString(QUrl::RemovePath);
    return usage(u"a proxy is written http://HOST:PORT, or with https, socks4 or socks5, not "_s + text);
}

Result<QString> readTextFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return usage(u"%1 cannot be read: %2"_s.arg(path, file.errorString()));
    const QByteArray bytes = file.read(kLargestTextFile + 1);
    if (bytes.size() > kLargestTextFile) return usage(path + u" is larger than 1 MiB"_s);
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError()) return usage(path + u" is not UTF-8 text"_s);
    return text;
}

} // namespace vistrel
