#include "capture/image/palette.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include <libimagequant.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr quint32 kColours = 1U << 24;
constexpr qsizetype kMostEntries = 256;
constexpr qint64 kLeastFlatShare = 1000; // Of the pixels, the divisor.
constexpr size_t kMostFlat = 64;         // Gradients need the others.
constexpr int kSpeed = 4;                // Of 1 to 10; 0.1 to 0.2 s for the largest picture.

/// Colours that differ in the two lowest bits of each channel only, which the library need not tell apart.
struct Cell {
    quint32 pixels = 0;
    quint32 mostOfOne = 0;
    QRgb colour = 0; ///< The one with mostOfOne.
};

constexpr quint32 cellOf(quint32 colour)
{
    return (colour >> 18) << 12 | (colour >> 10 & 0x3f) << 6 | (colour >> 2 & 0x3f);
}

/// What the counts tell.
struct Census {
    QList<QRgb> first;                          ///< At most one colour more than fits into a palette.
    std::vector<std::pair<quint32, QRgb>> flat; ///< Colours of flat areas, with their pixels.
    std::vector<Cell> cells = std::vector<Cell>(cellOf(kColours - 1) + 1);

    void add(quint32 colour, quint32 pixels, qint64 leastFlat)
    {
        if (first.size() <= kMostEntries) first.append(colour);
        if (pixels >= leastFlat) flat.emplace_back(pixels, colour);
        Cell& cell = cells[cellOf(colour)];
        cell.pixels += pixels;
        if (pixels <= cell.mostOfOne) return;
        cell.mostOfOne = pixels;
        cell.colour = colour;
    }
};

Census censusOf(const quint32* counts, qint64 leastFlat)
{
    Census census;
    for (quint32 colour = 0; colour < kColours; ++colour) {
        if (counts[colour] > 0) census.add(colour, counts[colour], leastFlat);
    }
    std::sort(census.flat.rbegin(), census.flat.rend());
    census.flat.resize(std::min(census.flat.size(), kMostFlat));
    return census;
}

// ---- libimagequant -------------------------------------------------------------------------------------

template<auto destroy>
struct Destroy {
    template<typename T>
    void operator()(T* object) const
    {
        destroy(object);
    }
};
using Options = std::unique_ptr<liq_attr, Destroy<liq_attr_destroy>>;
using Histogram = std::unique_ptr<liq_histogram, Destroy<liq_histogram_destroy>>;
using Quantized = std::unique_ptr<liq_result, Destroy<liq_result_destroy>>;

liq_color libraryColour(QRgb colour)
{
    return {uchar(qRed(colour)), uchar(qGreen(colour)), uchar(qBlue(colour)), 255};
}

liq_error fill(liq_histogram* histogram, const liq_attr* options, const Census& census)
{
    std::vector<liq_histogram_entry> entries;
    for (const Cell& cell : census.cells) {
        if (cell.pixels > 0) entries.push_back({libraryColour(cell.colour), cell.pixels});
    }
    liq_error error = liq_histogram_add_colors(histogram, options, entries.data(), int(entries.size()), 0);
    for (const auto& [pixels, colour] : census.flat) {
        if (error == LIQ_OK) error = liq_histogram_add_fixed_color(histogram, libraryColour(colour), 0);
    }
    return error;
}

QList<QRgb> coloursOf(liq_result* result)
{
    const liq_palette* palette = liq_get_palette(result);
    QList<QRgb> colours;
    for (const liq_color& entry : std::span(palette->entries, palette->count))
        colours.append(qRgb(entry.r, entry.g, entry.b));
    return colours;
}

} // namespace

PaletteChooser::PaletteChooser() : m_counts(static_cast<quint32*>(std::calloc(kColours, sizeof(quint32))))
{
    if (!m_counts) qBadAlloc();
}

void PaletteChooser::add(const Rows& rows, int width)
{
    for (int row = 0; row < rows.count; ++row) {
        const uchar* rgb = rows.row(row);
        for (int x = 0; x < width; ++x, rgb += 3)
            ++m_counts[quint32(rgb[0]) << 16 | quint32(rgb[1]) << 8 | rgb[2]];
    }
    m_pixels += qint64(rows.count) * width;
}

Result<QList<QRgb>> PaletteChooser::palette() const
{
    const Census census = censusOf(m_counts.get(), m_pixels / kLeastFlatShare);
    if (census.first.size() <= kMostEntries) return census.first;
    const Options options(liq_attr_create());
    liq_set_speed(options.get(), kSpeed);
    const Histogram histogram(liq_histogram_create(options.get()));
    liq_error error = fill(histogram.get(), options.get(), census);
    liq_result* result = nullptr;
    if (error == LIQ_OK) error = liq_histogram_quantize(histogram.get(), options.get(), &result);
    if (error == LIQ_OK) return coloursOf(Quantized(result).get());
    return Error{Error::Kind::Format, u"no palette can be chosen"_s, u"encoding the picture"_s};
}

} // namespace vistrel
