#include "capture/image/jpeg_strip.h"

#include "capture/image/bit_stream.h"
#include "capture/image/jpeg_segment.h"

#include <QtEndian>

#include <algorithm>
#include <numeric>

namespace vistrel
{

namespace
{

constexpr int kBlockSide = 8; // Px.
constexpr int kMostComponents = 4;
constexpr qsizetype kComponentBytes = 3; // In the frame header.
constexpr int kMostUnitBlocks = 10;      // T.81, B.2.3.
constexpr int kMostAcBits = 10;          // T.81, table F.2.
constexpr qsizetype kQuantisationBytes = 1 + 64;
constexpr qsizetype kHuffmanHead = 1 + HuffmanTable::kLongest;

bool isDcSymbol(uchar symbol) { return symbol <= kMostDcBits; }

/// The end of a block, 16 zeros, or a run of zeros with the size of what follows.
bool isAcSymbol(uchar symbol)
{
    const int size = symbol % 16;
    return size == 0 ? symbol == 0 || symbol == 0xF0 : size <= kMostAcBits;
}

bool isSampling(int factor) { return factor >= 1 && factor <= 4; }

/// The frame header's part for each component: its name, how fine it is beside the others, its table.
bool takeComponents(JpegStrip& strip, QByteArrayView payload)
{
    QSize finest(1, 1);
    for (; !payload.isEmpty(); payload = payload.sliced(kComponentBytes)) {
        const QSize sampling(uchar(payload[1]) / 16, uchar(payload[1]) % 16);
        if (!isSampling(sampling.width()) || !isSampling(sampling.height())) return false;
        strip.components += {payload[0], sampling.width() * sampling.height(), uchar(payload[2])};
        finest = finest.expandedTo(sampling);
    }
    const bool alone = strip.components.size() == 1; // Coded block by block (T.81, A.2.2).
    if (alone) strip.components.first().blocks = 1;
    strip.unit = (alone ? QSize(1, 1) : finest) * kBlockSide;
    return true;
}

/// The frame header (T.81, B.2.2) of a picture of 8 bits a sample.
bool takeFrame(JpegStrip& strip, QByteArrayView payload)
{
    constexpr qsizetype head = 6;
    if (!strip.frame.isEmpty() || payload.size() < head || payload[0] != 8) return false;
    const int count = uchar(payload[5]);
    if (count < 1 || count > kMostComponents || payload.size() != head + kComponentBytes * count)
        return false;
    strip.frame = payload.toByteArray();
    std::fill_n(strip.frame.begin() + JpegStrip::kFrameRows, 2, '\0');
    strip.size = QSize(qFromBigEndian<quint16>(payload.data() + 3),
                       qFromBigEndian<quint16>(payload.data() + JpegStrip::kFrameRows));
    return !strip.size.isEmpty() && takeComponents(strip, payload.sliced(head));
}

/// Quantisation tables (T.81, B.2.4.1) of 8 bits.
bool takeQuantisation(JpegStrip& strip, QByteArrayView payload)
{
    if (payload.size() % kQuantisationBytes != 0) return false;
    for (; !payload.isEmpty(); payload = payload.sliced(kQuantisationBytes)) {
        const auto number = uchar(payload[0]);
        if (number >= strip.quantisation.size()) return false;
        strip.quantisation[number] = payload.first(kQuantisationBytes).toByteArray();
    }
    return true;
}

/// A Huffman table at the beginning of payload, which is cut behind it.
std::optional<HuffmanTable> cutHuffmanTable(QByteArrayView& payload)
{
    HuffmanTable table;
    std::copy_n(payload.begin() + 1, HuffmanTable::kLongest, table.counts.begin());
    const int symbols = std::accumulate(table.counts.begin(), table.counts.end(), 0);
    if (symbols > payload.size() - kHuffmanHead) return {};
    table.symbols = payload.sliced(kHuffmanHead, symbols).toByteArray();
    payload = payload.sliced(kHuffmanHead + symbols);
    return table;
}

/// Huffman tables (T.81, B.2.4.2).
bool takeHuffmanTables(JpegStrip& strip, QByteArrayView payload)
{
    while (payload.size() >= kHuffmanHead) {
        const int kind = uchar(payload[0]) / 16;
        const int number = uchar(payload[0]) % 16;
        const auto table = cutHuffmanTable(payload);
        if (kind > 1 || number > 1 || !table) return false;
        if (!std::all_of(table->symbols.begin(), table->symbols.end(), kind == 0 ? isDcSymbol : isAcSymbol))
            return false;
        const auto decoder = HuffmanDecoder::of(*table);
        if (!decoder) return false;
        strip.decoders[kind * JpegStrip::kAcTables + number] = *decoder;
    }
    return payload.isEmpty();
}

bool hasQuantisation(const JpegStrip& strip, const JpegComponent& component)
{
    return component.quantisation < strip.quantisation.size() &&
           !strip.quantisation[component.quantisation].isEmpty();
}

/// The scan header's part for component: its name again, and which tables it takes.
bool takeTables(JpegComponent& component, QByteArrayView selector)
{
    const auto tables = uchar(selector[1]);
    component.dcTable = tables / 16;
    component.acTable = JpegStrip::kAcTables + tables % 16;
    return selector[0] == component.id && component.dcTable < JpegStrip::kAcTables &&
           component.acTable < JpegStrip::kTables;
}

/// The scan header (T.81, B.2.3): of all components, all coefficients, to the last bit.
bool takeScan(JpegStrip& strip, QByteArrayView payload)
{
    constexpr QByteArrayView whole("\0\x3F\0", 3);
    const qsizetype count = strip.components.size();
    if (count == 0 || payload.size() != 1 + 2 * count + whole.size() || payload[0] != count) return false;
    strip.scan = payload.toByteArray();
    int blocks = 0;
    for (qsizetype index = 0; index < count; ++index) {
        JpegComponent& component = strip.components[index];
        if (!takeTables(component, payload.sliced(1 + 2 * index)) || !hasQuantisation(strip, component))
            return false;
        blocks += component.blocks;
    }
    return blocks <= kMostUnitBlocks && payload.endsWith(whole);
}

/// Texts and application data, which nothing in the pixels depends on.
bool takeDescription(JpegStrip& strip, const JpegSegment& segment)
{
    const bool application =
        segment.marker >= jpegMarker::kFirstApplication && segment.marker <= jpegMarker::kLastApplication;
    if (!application && segment.marker != jpegMarker::kComment) return false;
    strip.head += segment.whole.toByteArray();
    return true;
}

bool take(JpegStrip& strip, const JpegSegment& segment)
{
    switch (segment.marker) {
    case jpegMarker::kBaselineFrame: return takeFrame(strip, segment.payload);
    case jpegMarker::kHuffmanTables: return takeHuffmanTables(strip, segment.payload);
    case jpegMarker::kScan: return takeScan(strip, segment.payload);
    case jpegMarker::kQuantisation: return takeQuantisation(strip, segment.payload);
    default: return takeDescription(strip, segment);
    }
}

/// Takes out the zero bytes behind bytes of all ones; false when anything else follows one.
bool takeBits(JpegStrip& strip, QByteArrayView coded)
{
    strip.bits.reserve(coded.size() + BitReader::kPadding);
    for (qsizetype ones = coded.indexOf('\xFF'); ones >= 0; ones = coded.indexOf('\xFF')) {
        if (ones + 1 == coded.size() || coded[ones + 1] != 0) return false;
        strip.bits.append(coded.first(ones + 1));
        coded = coded.sliced(ones + 2);
    }
    strip.bits.append(coded).append(BitReader::kPadding, '\0');
    return true;
}

} // namespace

std::optional<JpegStrip> readJpegStrip(const QByteArray& file)
{
    if (!file.startsWith(kJpegStart) || !file.endsWith(kJpegEnd)) return {};
    const QByteArrayView segments = QByteArrayView(file).chopped(kJpegEnd.size());
    JpegStrip strip;
    qsizetype at = kJpegStart.size();
    while (strip.scan.isEmpty()) {
        const auto segment = jpegSegmentAt(segments, at);
        if (!segment || !take(strip, *segment)) return {};
        at += segment->whole.size();
    }
    if (!takeBits(strip, segments.sliced(at))) return {};
    return strip;
}

} // namespace vistrel
