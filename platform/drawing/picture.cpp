#include "platform/drawing/picture.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

QString denseVariant(const QString& path)
{
    const QFileInfo file(path);
    return file.path() + u'/' + file.completeBaseName() + u"@2x."_s + file.suffix();
}

} // namespace

Picture::Picture(const QImage& image)
{
    if (!image.isNull()) m_images.append(image);
}

Picture Picture::fromResource(const QString& name)
{
    const QString path = u":/pictures/"_s + name;
    Picture picture{QImage(path)};
    if (picture.isNull()) return picture;
    picture.m_name = name;
    if (QImage dense(denseVariant(path)); !dense.isNull()) {
        dense.setDevicePixelRatio(2);
        picture.m_images.append(dense);
    }
    return picture;
}

QSize Picture::size() const
{
    return isNull() ? QSize(0, 0) : m_images.first().deviceIndependentSize().toSize();
}

QImage Picture::imageFor(qreal devicePixelRatio) const
{
    for (const QImage& image : m_images) {
        if (image.devicePixelRatio() >= devicePixelRatio) return image;
    }
    return isNull() ? QImage() : m_images.last();
}

bool operator==(const Picture& one, const Picture& other)
{
    if (one.m_name != other.m_name || one.m_images.size() != other.m_images.size()) return false;
    return one.isNull() || !one.m_name.isEmpty() ||
           one.m_images.first().cacheKey() == other.m_images.first().cacheKey();
}

} // namespace vistrel
