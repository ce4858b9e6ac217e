#include "capture/image/jpeg_joiner.h"

#include "capture/image/bit_stream.h"
#include "capture/image/jpeg_segment.h"
#include "capture/image/jpeg_strip.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <numeric>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kBlockCoefficients = 64;
constexpr int kMostDc = 2047; // Of 8 bits a sample, even where nothing is quantised.
constexpr quint8 kEndOfBlock = 0;

using Strips = std::vector<JpegStrip>;
using AllCounts = std::array<SymbolCounts, JpegStrip::kTables>;
using Tables = std::array<HuffmanTable, JpegStrip::kTables>;

/// Takes symbols and the bits that follow each, and counts the symbols.
class SymbolCounter
{
public:
    void put(size_t table, quint8 symbol, quint32 /*extra*/) { ++m_counts[table][symbol]; }

    [[nodiscard]] const AllCounts& counts() const { return m_counts; }

private:
    AllCounts m_counts{};
};

/// Takes the same and writes them.
class SymbolWriter
{
public:
    SymbolWriter(const Tables& tables, QByteArray& file) : m_writer(file)
    {
        for (size_t table = 0; table < tables.size(); ++table)
            m_encoders[table] = HuffmanEncoder(tables[table]);
    }

    void put(size_t table, quint8 symbol, quint32 extra)
    {
        const HuffmanEncoder::Code code = m_encoders[table][symbol];
        const int size = symbol % 16;
        m_writer.put(quint32(code.bits) << size | extra, code.length + size);
    }

    void finish() { m_writer.finish(); }

private:
    std::array<HuffmanEncoder, JpegStrip::kTables> m_encoders;
    JpegBitWriter m_writer;
};

/// A symbol with the bits that follow it: as many as the symbol's lower half says.
struct Coded {
    HuffmanDecoder::Symbol symbol;
    quint32 extra;
};

inline Coded next(BitReader& reader, const HuffmanDecoder& decoder)
{
    const quint64 ahead = reader.ahead();
    const HuffmanDecoder::Symbol symbol = decoder.first(quint32(ahead >> 48));
    const int size = symbol.value % 16;
    reader.skip(symbol.length + size);
    return {symbol, quint32(ahead << symbol.length >> 1 >> (63 - size))};
}

/// The number that the size bits behind a symbol stand for (T.81, F.2.2.1).
int numberOf(quint32 bits, int size)
{
    const bool negative = size > 0 && bits >> (size - 1) == 0;
    return negative ? int(bits) - (1 << size) + 1 : int(bits);
}

/// The undoing of numberOf(), size being the bits of the number without its sign.
quint32 bitsOf(int number, int size) { return quint32(number < 0 ? number + (1 << size) - 1 : number); }

/// Reads strips downwards and hands on what codes them as one picture.
template<typename Sink>
class Recoder
{
public:
    Recoder(qsizetype components, Sink& sink) : m_dc(size_t(components)), m_sink(sink) {}

    /// False when the strip's coded pixels are damaged or not as many as its size says.
    bool take(const JpegStrip& strip)
    {
        BitReader reader(strip.bits);
        for (Dc& dc : m_dc)
            dc.inStrip = 0;
        const qint64 across = (strip.size.width() + strip.unit.width() - 1) / strip.unit.width();
        const qint64 down = (strip.size.height() + strip.unit.height() - 1) / strip.unit.height();
        for (qint64 left = across * down; left > 0; --left)
            if (!takeUnit(strip, reader)) return false;
        return reader.left() < 8;
    }

private:
    /// The last block's first coefficient, on which the next one's is based.
    struct Dc {
        int inStrip = 0; ///< 0 where a strip begins.
        int joined = 0;
    };

    bool takeUnit(const JpegStrip& strip, BitReader& reader)
    {
        for (size_t index = 0; index < m_dc.size(); ++index) {
            const JpegComponent& component = strip.components[qsizetype(index)];
            for (int block = 0; block < component.blocks; ++block) {
                if (!takeFirst(reader, strip.decoders[component.dcTable], component.dcTable, m_dc[index]))
                    return false;
                if (!takeOthers(reader, strip.decoders[component.acTable], component.acTable)) return false;
            }
        }
        return reader.left() >= 0;
    }

    bool takeFirst(BitReader& reader, const HuffmanDecoder& decoder, size_t table, Dc& dc)
    {
        const Coded coded = next(reader, decoder);
        dc.inStrip += numberOf(coded.extra, coded.symbol.value);
        const int difference = dc.inStrip - std::exchange(dc.joined, dc.inStrip);
        const int size = std::bit_width(unsigned(std::abs(difference)));
        if (coded.symbol.length == 0 || std::abs(dc.inStrip) > kMostDc || size > kMostDcBits) return false;
        m_sink.put(table, quint8(size), bitsOf(difference, size));
        return true;
    }

    bool takeOthers(BitReader& reader, const HuffmanDecoder& decoder, size_t table)
    {
        for (int coefficient = 1; coefficient < kBlockCoefficients; ++coefficient) {
            const Coded coded = next(reader, decoder);
            if (coded.symbol.length == 0) return false;
            m_sink.put(table, coded.symbol.value, coded.extra);
            if (coded.symbol.value == kEndOfBlock) return true;
            coefficient += coded.symbol.value / 16; // Zeros before this one.
            if (coefficient >= kBlockCoefficients) return false;
        }
        return true;
    }

    std::vector<Dc> m_dc;
    Sink& m_sink;
};

template<typename Sink>
bool recode(const Strips& strips, Sink& sink)
{
    Recoder<Sink> recoder(strips.front().components.size(), sink);
    return std::all_of(strips.begin(), strips.end(),
                       [&](const JpegStrip& strip) { return recoder.take(strip); });
}

bool isWhole(const JpegStrip& strip) { return strip.size.height() % strip.unit.height() == 0; }

/// Whether below can follow above.
bool fit(const JpegStrip& above, const JpegStrip& below)
{
    return isWhole(above) && above.frame == below.frame && above.scan == below.scan &&
           above.quantisation == below.quantisation;
}

int rowsOf(const Strips& strips)
{
    return std::accumulate(strips.begin(), strips.end(), 0,
                           [](int rows, const JpegStrip& strip) { return rows + strip.size.height(); });
}

Tables optimalTables(const AllCounts& counts)
{
    Tables tables;
    std::transform(counts.begin(), counts.end(), tables.begin(), optimalTable);
    return tables;
}

void appendSegment(QByteArray& file, uchar marker, const QByteArray& payload)
{
    const auto length = qToBigEndian(quint16(payload.size() + 2));
    file.append('\xFF').append(char(marker));
    file.append(reinterpret_cast<const char*>(&length), sizeof length).append(payload);
}

QByteArray frameOf(const JpegStrip& strip, int rows)
{
    QByteArray frame = strip.frame;
    qToBigEndian(quint16(rows), frame.data() + JpegStrip::kFrameRows);
    return frame;
}

/// Everything up to the coded pixels.
QByteArray headOf(const JpegStrip& strip, int rows, const Tables& tables)
{
    QByteArray file = kJpegStart.toByteArray() + strip.head;
    for (const QByteArray& table : strip.quantisation)
        if (!table.isEmpty()) appendSegment(file, jpegMarker::kQuantisation, table);
    appendSegment(file, jpegMarker::kBaselineFrame, frameOf(strip, rows));
    for (size_t table = 0; table < tables.size(); ++table) {
        const HuffmanTable& huffman = tables[table];
        if (huffman.symbols.isEmpty()) continue;
        const QByteArrayView counts(huffman.counts.data(), huffman.counts.size());
        const char place = char(table / JpegStrip::kAcTables * 16 + table % JpegStrip::kAcTables);
        appendSegment(file, jpegMarker::kHuffmanTables,
                      QByteArray(1, place).append(counts).append(huffman.symbols));
    }
    appendSegment(file, jpegMarker::kScan, strip.scan);
    return file;
}

Error problem(const QString& words)
{
    return {Error::Kind::Format, words, u"joining the picture's strips"_s};
}

Error damaged() { return problem(u"a strip is damaged"_s); }

Result<Strips> readStrips(const QList<QByteArray>& files)
{
    Strips strips;
    for (const QByteArray& file : files) {
        auto strip = readJpegStrip(file);
        if (!strip) return damaged();
        if (!strips.empty() && !fit(strips.back(), *strip))
            return problem(u"the strips are not parts of one picture"_s);
        strips.push_back(std::move(*strip));
    }
    if (strips.empty()) return problem(u"there is no strip"_s);
    return strips;
}

} // namespace

Result<QByteArray> joinJpegStrips(const QList<QByteArray>& files)
{
    const auto strips = readStrips(files);
    if (!strips) return strips.error();
    SymbolCounter counter;
    if (!recode(*strips, counter)) return damaged();
    const Tables tables = optimalTables(counter.counts());
    QByteArray file = headOf(strips->front(), rowsOf(*strips), tables);
    SymbolWriter writer(tables, file);
    if (!recode(*strips, writer)) return damaged();
    writer.finish();
    return file.append(kJpegEnd);
}

} // namespace vistrel
