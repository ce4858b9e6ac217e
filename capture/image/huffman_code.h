#pragma once

#include <QByteArray>

#include <array>
#include <optional>

namespace vistrel
{

/// A Huffman code as JPEG files hold it (ITU-T T.81, annex C): it is given by how long the codes are alone.
struct HuffmanTable {
    static constexpr int kLongest = 16; ///< Bits of a code.

    std::array<quint8, kLongest> counts{}; ///< Codes of 1, 2, ... 16 bits.
    QByteArray symbols;                    ///< What they stand for, shortest code first.
};

/// How often each symbol occurs.
using SymbolCounts = std::array<quint64, 256>;

/// The table that takes the fewest bits for symbols that occur so often. Those that never do have no code.
HuffmanTable optimalTable(const SymbolCounts& counts);

/// Reads codes. One that was made of no table knows none.
class HuffmanDecoder
{
public:
    struct Symbol {
        quint8 length = 0; ///< Bits of its code; 0: the bits begin with no code.
        quint8 value = 0;
    };

    /// Nothing when table is none: more codes than there are, or not a symbol for each.
    static std::optional<HuffmanDecoder> of(const HuffmanTable& table);

    /// The symbol whose code the 16 bits begin with.
    [[nodiscard]] Symbol first(quint32 bits) const
    {
        const Symbol found = m_short[bits >> (HuffmanTable::kLongest - kShort)];
        return found.length != 0 ? found : firstLong(bits);
    }

private:
    static constexpr int kShort = 9; // Bits of the codes that are looked up at once.

    [[nodiscard]] Symbol firstLong(quint32 bits) const;

    /// Of the codes of one length: the first that is none any more, and by how much a code's number among all
    /// is above the code.
    struct Range {
        qint32 end = 0;
        qint32 shift = 0;
    };

    std::array<Symbol, 1 << kShort> m_short{};
    std::array<Range, HuffmanTable::kLongest + 1> m_ranges{};
    QByteArray m_symbols;
};

/// Writes codes.
class HuffmanEncoder
{
public:
    struct Code {
        quint16 bits = 0;
        quint8 length = 0; ///< Bits; 0: the symbol has no code.
    };

    HuffmanEncoder() = default;
    /// table must be one that HuffmanDecoder reads.
    explicit HuffmanEncoder(const HuffmanTable& table);

    [[nodiscard]] Code operator[](quint8 symbol) const { return m_codes[symbol]; }

private:
    std::array<Code, 256> m_codes{};
};

} // namespace vistrel
