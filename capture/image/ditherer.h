#pragma once

#include <QList>
#include <QRgb>

#include <array>
#include <vector>

namespace vistrel
{

/// Maps a picture to a palette row by row, from top to bottom: what a pixel misses of its colour is passed on
/// to its neighbours (after Floyd and Steinberg, in alternating directions). Pixels whose very colour is in
/// the palette keep it and pass nothing on, so that flat areas and text stay clean. Rows join without a seam,
/// since what the last one passed on is kept.
class Ditherer
{
public:
    /// palette: 1 to 256 colours. width in px.
    Ditherer(const QList<QRgb>& palette, int width);

    /// The next row: for width pixels of red, green and blue, the indices of as many entries.
    void map(const uchar* rgb, uchar* indices);

private:
    using Colour = std::array<int, 3>; // Red, green and blue; of errors, in sixteenths.

    uchar mapPixel(const uchar* rgb, int x, int step);
    [[nodiscard]] int exactIndex(const uchar* rgb) const;
    [[nodiscard]] Colour wantedColour(const uchar* rgb, const Colour& fromAbove) const;
    [[nodiscard]] int nearestIndex(const Colour& colour);
    [[nodiscard]] qint16 search(const Colour& colour) const;
    void passOn(const Colour& missed, int x, int step);

    const int m_width;
    std::vector<Colour> m_palette;
    // A cell is the colours that differ in the two lowest bits of each channel only.
    std::vector<qint16> m_nearest;     // By cell, the entry nearest to its middle; -1 until it is asked for.
    std::vector<qint16> m_firstInCell; // By cell, an entry that lies in it, or -1.
    std::array<qint16, 256> m_nextInCell{}; // By entry, another one in the same cell, or -1.
    std::vector<Colour> m_errors;           // For the row to come, with one more at each end.
    std::vector<Colour> m_nextErrors;       // For the row below it.
    Colour m_ahead{};                       // For the next pixel of the row.
    bool m_leftwards = false;
};

} // namespace vistrel
