#pragma once

#include <QByteArrayView>

#include <optional>

namespace vistrel
{

constexpr QByteArrayView kJpegStart("\xFF\xD8"); ///< How a JPEG file begins,
constexpr QByteArrayView kJpegEnd("\xFF\xD9");   ///< and ends.

/// What a segment holds, by the byte after its 0xFF (ITU-T T.81, table B.1).
namespace jpegMarker
{
constexpr uchar kBaselineFrame = 0xC0;
constexpr uchar kHuffmanTables = 0xC4;
constexpr uchar kScan = 0xDA;
constexpr uchar kQuantisation = 0xDB;
constexpr uchar kFirstApplication = 0xE0;
constexpr uchar kLastApplication = 0xEF;
constexpr uchar kComment = 0xFE;
} // namespace jpegMarker

/// A marker segment of a JPEG file: what stands between the file's start and its pixels (ITU-T T.81,
/// B.1.1.4).
struct JpegSegment {
    uchar marker;           ///< One of jpegMarker or another.
    QByteArrayView whole;   ///< A part of the file.
    QByteArrayView payload; ///< Without marker and length.
};

/// The segment that begins at position, 0 or more; nothing when none does or when it is not whole.
std::optional<JpegSegment> jpegSegmentAt(QByteArrayView file, qsizetype position);

} // namespace vistrel
