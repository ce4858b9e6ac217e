#include "capture/image/ditherer.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vistrel
{

namespace
{

constexpr int kCells = 1 << 18;
// What goes to each neighbour, in sixteenths. One in sixteen is lost, which keeps noise down.
constexpr int kAhead = 7;
constexpr int kBelowBehind = 3;
constexpr int kBelow = 4;
constexpr int kBelowAhead = 1;

int cellOf(int red, int green, int blue) { return red >> 2 << 12 | green >> 2 << 6 | blue >> 2; }

std::array<int, 3> middleOfCell(const std::array<int, 3>& colour)
{
    return {(colour[0] & ~3) + 2, (colour[1] & ~3) + 2, (colour[2] & ~3) + 2};
}

void addTo(std::array<int, 3>& sum, const std::array<int, 3>& missed, int sixteenths)
{
    for (size_t channel = 0; channel < 3; ++channel)
        sum[channel] += missed[channel] * sixteenths;
}

} // namespace

Ditherer::Ditherer(const QList<QRgb>& palette, int width)
    : m_width(width),
      m_nearest(kCells, -1),
      m_firstInCell(kCells, -1),
      m_errors(size_t(width) + 2),
      m_nextErrors(size_t(width) + 2)
{
    for (const QRgb colour : palette) {
        qint16& first = m_firstInCell[size_t(cellOf(qRed(colour), qGreen(colour), qBlue(colour)))];
        m_nextInCell[m_palette.size()] = std::exchange(first, qint16(m_palette.size()));
        m_palette.push_back({qRed(colour), qGreen(colour), qBlue(colour)});
    }
}

void Ditherer::map(const uchar* rgb, uchar* indices)
{
    const int step = m_leftwards ? -1 : 1;
    int x = m_leftwards ? m_width - 1 : 0;
    m_ahead = {};
    for (int count = 0; count < m_width; ++count, x += step)
        indices[x] = mapPixel(rgb + qsizetype(x) * 3, x, step);
    std::swap(m_errors, m_nextErrors);
    std::fill(m_nextErrors.begin(), m_nextErrors.end(), Colour{});
    m_leftwards = !m_leftwards;
}

uchar Ditherer::mapPixel(const uchar* rgb, int x, int step)
{
    const int exact = exactIndex(rgb);
    if (exact >= 0) {
        m_ahead = {};
        return uchar(exact);
    }
    const Colour wanted = wantedColour(rgb, m_errors[size_t(x) + 1]);
    const int index = nearestIndex(wanted);
    const Colour& given = m_palette[size_t(index)];
    passOn({wanted[0] - given[0], wanted[1] - given[1], wanted[2] - given[2]}, x, step);
    return uchar(index);
}

int Ditherer::exactIndex(const uchar* rgb) const
{
    int index = m_firstInCell[size_t(cellOf(rgb[0], rgb[1], rgb[2]))];
    while (index >= 0 && m_palette[size_t(index)] != Colour{rgb[0], rgb[1], rgb[2]})
        index = m_nextInCell[size_t(index)];
    return index;
}

Ditherer::Colour Ditherer::wantedColour(const uchar* rgb, const Colour& fromAbove) const
{
    Colour colour;
    for (size_t channel = 0; channel < 3; ++channel)
        colour[channel] =
            std::clamp(rgb[channel] + ((fromAbove[channel] + m_ahead[channel] + 8) >> 4), 0, 255);
    return colour;
}

int Ditherer::nearestIndex(const Colour& colour)
{
    qint16& index = m_nearest[size_t(cellOf(colour[0], colour[1], colour[2]))];
    if (index < 0) index = search(middleOfCell(colour));
    return index;
}

/// The entry nearest to colour as the eye weighs the channels.
qint16 Ditherer::search(const Colour& colour) const
{
    const auto distance = [&](const Colour& entry) {
        const int red = entry[0] - colour[0];
        const int green = entry[1] - colour[1];
        const int blue = entry[2] - colour[2];
        return 2 * red * red + 4 * green * green + 3 * blue * blue;
    };
    const auto nearest =
        std::min_element(m_palette.begin(), m_palette.end(),
                         [&](const Colour& a, const Colour& b) { return distance(a) < distance(b); });
    return qint16(nearest - m_palette.begin());
}

void Ditherer::passOn(const Colour& missed, int x, int step)
{
    m_ahead = {};
    addTo(m_ahead, missed, kAhead);
    const auto below = m_nextErrors.begin() + x + 1;
    addTo(*(below - step), missed, kBelowBehind);
    addTo(*below, missed, kBelow);
    addTo(*(below + step), missed, kBelowAhead);
}

} // namespace vistrel
