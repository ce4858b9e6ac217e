#pragma once

#include "capture/image/huffman_code.h"

#include <QList>
#include <QSize>

#include <array>
#include <optional>

namespace vistrel
{

constexpr int kMostDcBits = 11; ///< Of a first coefficient's difference (ITU-T T.81, table F.1).

/// A component of a picture: brightness or a colour difference.
struct JpegComponent {
    char id = 0;
    int blocks = 1;          ///< In a unit, 1 to 10.
    size_t quantisation = 0; ///< Index of its table.
    size_t dcTable = 0;      ///< Index of its table for the first coefficient of a block,
    size_t acTable = 0;      ///< and of that for the others.
};

/// A JPEG file taken apart without decoding its pixels.
struct JpegStrip {
    /// Of a baseline file: the tables 0 and 1 for first coefficients, then those for the others.
    static constexpr size_t kTables = 4;
    static constexpr size_t kAcTables = 2;     ///< Where the latter begin.
    static constexpr qsizetype kFrameRows = 1; ///< Where the height is in the frame header, two bytes.

    QSize size;
    QSize unit; ///< Px of the smallest part that is coded together.
    QList<JpegComponent> components;
    QByteArray head;  ///< Segments that describe the file and its colours.
    QByteArray frame; ///< The frame header's payload with a height of 0.
    QByteArray scan;  ///< The scan header's payload.
    std::array<QByteArray, 4> quantisation;
    std::array<HuffmanDecoder, kTables> decoders;
    QByteArray bits; ///< The coded pixels for a BitReader.
};

/// Nothing when file is no whole baseline JPEG file with all components in one scan and no restart markers.
/// The coded pixels themselves are not looked at.
std::optional<JpegStrip> readJpegStrip(const QByteArray& file);

} // namespace vistrel
