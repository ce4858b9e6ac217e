#include "capture/image/huffman_code.h"

#include <QList>

#include <algorithm>
#include <numeric>
#include <queue>
#include <vector>

namespace vistrel
{

namespace
{

constexpr int kReserved = 256; // The symbol that takes the code of all ones, which JPEG does not allow.

using CodeLengths = std::array<int, kReserved + 1>;  // By symbol, 0: none.
using LengthCounts = std::array<int, kReserved + 1>; // By length.

/// Symbols whose codes begin alike.
struct Group {
    quint64 count;
    QList<int> symbols;
};

struct IsRarer {
    bool operator()(const Group& a, const Group& b) const { return a.count > b.count; }
};

using Groups = std::priority_queue<Group, std::vector<Group>, IsRarer>;

Group takeRarest(Groups& groups)
{
    Group rarest = groups.top();
    groups.pop();
    return rarest;
}

/// Huffman's procedure. The reserved symbol is the rarest, so that none has a longer code.
CodeLengths codeLengths(const SymbolCounts& counts)
{
    Groups groups;
    groups.push({0, {kReserved}});
    for (int symbol = 0; symbol < kReserved; ++symbol)
        if (counts[symbol] > 0) groups.push({counts[symbol], {symbol}});
    CodeLengths lengths{};
    while (groups.size() > 1) {
        Group joined = takeRarest(groups);
        const Group other = takeRarest(groups);
        joined.count += other.count;
        joined.symbols += other.symbols;
        for (const int symbol : std::as_const(joined.symbols))
            ++lengths[symbol];
        groups.push(std::move(joined));
    }
    return lengths;
}

/// Moves codes that are too long up the tree (T.81, figure K.3): of two that differ in the last bit one takes
/// their common beginning, and the other one shares the place of a shorter code.
void limitLengths(LengthCounts& counts)
{
    for (int length = kReserved; length > HuffmanTable::kLongest; --length) {
        while (counts[length] > 0) {
            int shorter = length - 2;
            while (counts[shorter] == 0)
                --shorter;
            counts[length] -= 2;
            counts[length - 1] += 1;
            counts[shorter] -= 1;
            counts[shorter + 1] += 2;
        }
    }
}

/// The symbols that have a code, shortest code first.
QByteArray symbolsByLength(const CodeLengths& lengths)
{
    QByteArray symbols;
    for (int symbol = 0; symbol < kReserved; ++symbol)
        if (lengths[symbol] > 0) symbols.append(char(symbol));
    std::stable_sort(symbols.begin(), symbols.end(),
                     [&](char a, char b) { return lengths[uchar(a)] < lengths[uchar(b)]; });
    return symbols;
}

/// Calls visit with the number, the bits and the length of each code.
template<typename Visit>
void forEachCode(const HuffmanTable& table, Visit visit)
{
    int code = 0;
    int number = 0;
    for (int length = 1; length <= HuffmanTable::kLongest; ++length, code *= 2)
        for (int left = table.counts[length - 1]; left > 0; --left)
            visit(number++, code++, length);
}

/// Whether there is a symbol for each code and no more codes than their lengths allow.
bool isCode(const HuffmanTable& table)
{
    int room = 1;
    for (const int count : table.counts) {
        room = room * 2 - count;
        if (room < 0) return false;
    }
    return std::accumulate(table.counts.begin(), table.counts.end(), 0) == table.symbols.size();
}

} // namespace

HuffmanTable optimalTable(const SymbolCounts& counts)
{
    const CodeLengths lengths = codeLengths(counts);
    HuffmanTable table;
    table.symbols = symbolsByLength(lengths);
    if (table.symbols.isEmpty()) return table;
    LengthCounts lengthCounts{};
    for (const int length : lengths)
        if (length > 0) ++lengthCounts[length];
    limitLengths(lengthCounts);
    std::copy_n(lengthCounts.begin() + 1, HuffmanTable::kLongest, table.counts.begin());
    --*std::find_if(table.counts.rbegin(), table.counts.rend(), [](int count) { return count > 0; });
    return table;
}

std::optional<HuffmanDecoder> HuffmanDecoder::of(const HuffmanTable& table)
{
    if (!isCode(table)) return {};
    HuffmanDecoder decoder;
    decoder.m_symbols = table.symbols;
    forEachCode(table, [&](int number, int code, int length) {
        decoder.m_ranges[length] = {code + 1, number - code};
        if (length > kShort) return;
        const Symbol symbol{quint8(length), quint8(table.symbols[number])};
        std::fill_n(decoder.m_short.begin() + (code << (kShort - length)), 1 << (kShort - length), symbol);
    });
    return decoder;
}

HuffmanDecoder::Symbol HuffmanDecoder::firstLong(quint32 bits) const
{
    for (int length = kShort + 1; length <= HuffmanTable::kLongest; ++length) {
        const auto code = qint32(bits >> (HuffmanTable::kLongest - length));
        const Range& range = m_ranges[length];
        if (code < range.end) return {quint8(length), quint8(m_symbols[code + range.shift])};
    }
    return {};
}

HuffmanEncoder::HuffmanEncoder(const HuffmanTable& table)
{
    forEachCode(table, [&](int number, int code, int length) {
        m_codes[uchar(table.symbols[number])] = {quint16(code), quint8(length)};
    });
}

} // namespace vistrel
