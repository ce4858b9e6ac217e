#include "capture/image/page_picture.h"

#include "capture/image/jpeg_segment.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Error damaged() { return {Error::Kind::Format, u"the browser's picture is damaged"_s, {}}; }

template<typename T>
T bigEndianAt(QByteArrayView bytes, qsizetype position)
{
    return qFromBigEndian<T>(bytes.data() + position);
}

// PNG: signature, then the IHDR chunk with width and height (ISO/IEC 15948, 11.2.2); IEND closes a whole
// file.
Result<QSize> pngSize(const QByteArray& file)
{
    constexpr QByteArrayView signature("\x89PNG\r\n\x1a\n");
    if (file.size() < 33 || !file.startsWith(signature) || !file.last(8).startsWith("IEND")) return damaged();
    return QSize(int(bigEndianAt<quint32>(file, 16)), int(bigEndianAt<quint32>(file, 20)));
}

bool isFrameHeader(uchar marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// JPEG: the frame header holds height and width (ITU-T T.81, B.2.2).
Result<QSize> jpegSize(const QByteArray& file)
{
    if (!file.startsWith(kJpegStart) || !file.endsWith(kJpegEnd)) return damaged();
    qsizetype at = kJpegStart.size();
    while (const auto segment = jpegSegmentAt(file, at)) {
        if (isFrameHeader(segment->marker) && segment->payload.size() >= 5)
            return QSize(bigEndianAt<quint16>(segment->payload, 3),
                         bigEndianAt<quint16>(segment->payload, 1));
        at += segment->whole.size();
    }
    return damaged();
}

} // namespace

Result<QSize> encodedSize(const QByteArray& file, PagePicture::Encoding encoding)
{
    return encoding == PagePicture::Encoding::Png ? pngSize(file) : jpegSize(file);
}

Result<void> PagePicture::addStrip(QByteArray encoded, QSize expected)
{
    const auto size = encodedSize(encoded, m_encoding);
    if (!size) return size.error();
    if (*size != expected)
        return Error{Error::Kind::Format,
                     u"the browser drew %1 x %2 px where %3 x %4 were asked for"_s.arg(size->width())
                         .arg(size->height())
                         .arg(expected.width())
                         .arg(expected.height()),
                     {}};
    m_strips.append(std::move(encoded));
    m_size =
        QSize(expected.width(), m_size.isEmpty() ? expected.height() : m_size.height() + expected.height());
    return {};
}

} // namespace vistrel
