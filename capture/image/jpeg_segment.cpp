#include "capture/image/jpeg_segment.h"

#include <QtEndian>

namespace vistrel
{

std::optional<JpegSegment> jpegSegmentAt(QByteArrayView file, qsizetype position)
{
    if (position + 4 > file.size() || uchar(file[position]) != 0xFF) return {};
    const qsizetype length = qFromBigEndian<quint16>(file.data() + position + 2); // Counts itself.
    if (length < 2 || length - 2 > file.size() - position - 4) return {};
    const QByteArrayView whole = file.sliced(position, 2 + length);
    return JpegSegment{uchar(whole[1]), whole, whole.sliced(4)};
}

} // namespace vistrel
