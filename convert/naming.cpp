#include "convert/naming.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString localFileName(const QString& path, PathStyle style)
{
    const QString name = path.sliced(path.lastIndexOf(style.separator) + 1);
    return name.left(name.lastIndexOf(u'.'));
}

QString addressName(QString address)
{
    for (QChar& character : address)
        if (u"\\?/:*|<>\""_s.contains(character)) character = u'_';
    return address;
}

/// Unlike QString::replace, finds an empty text nowhere.
QString replaced(QString text, const QString& find, const QString& by)
{
    if (!find.isEmpty()) text.replace(find, by);
    return text;
}

} // namespace

QString extensionForImageType(qint32 imageType)
{
    static const std::array extensions{u".png"_s, u".jpg"_s, u".gif"_s, u".bmp"_s, u".tif"_s};
    const bool known = imageType >= 0 && imageType < qint32(extensions.size());
    return known ? extensions[size_t(imageType)] : QString();
}

QString urlSchemeName(const QString& entry, const HostFiles& files, PathStyle style)
{
    return files.exists(entry) ? localFileName(entry, style) : addressName(entry);
}

QString numberedPath(const QString& path, const QString& extension, qint64 k)
{
    const auto counter = [&](qint64 number) { return u'(' + QString::number(number) + u')' + extension; };
    return replaced(path, k == 1 ? extension : counter(k - 1), counter(k));
}

QString thumbnailPath(const QString& imagePath, const QString& extension)
{
    return replaced(imagePath, extension, u"_T"_s + extension);
}

} // namespace vistrel
