#include "controls/gradient_painter/gradient_lines.h"

#include "platform/drawing/rounding.h"

#include <algorithm>
#include <cmath>

namespace vistrel
{

namespace
{

constexpr double radiansPerDegree = 0.017453292519943278;
constexpr std::size_t entryBlock = 1000;

enum class Quadrant { First = 1, Second, Third, Fourth };

Quadrant quadrantOf(float angle)
{
    if (0 <= angle && angle <= 90) return Quadrant::First;
    if (90 <= angle && angle <= 180) return Quadrant::Second;
    if (angle < 180 || angle > 270) return Quadrant::Fourth;
    return Quadrant::Third;
}

struct SweepLine {
    FloatPoint start;
    FloatPoint end;
};

// Through the middle of the target, across the gradient's direction, longer than any chord.
SweepLine middleLine(qint32 width, qint32 height, float angle)
{
    const FloatPoint centre{static_cast<float>(width / 2), static_cast<float>(height / 2)};
    const double longer = std::max(width, height);
    const auto radius = static_cast<float>((std::sqrt(longer * longer + longer * longer) + 2) / 2);
    const float turned = angle + 90.0F;
    const float rotation = turned - 360.0F * std::floor(turned / 360.0F);
    SweepLine line{{centre.x - radius, centre.y}, {centre.x + radius, centre.y}};
    RotatePoint(centre, line.start, rotation);
    RotatePoint(centre, line.end, rotation);
    return line;
}

struct Sweep {
    FloatPoint offset; // From the middle line to the first one.
    QPoint step;       // From one line to the next.
};

Sweep sweepOf(const SweepLine& line, qint32 width, qint32 height, float angle)
{
    const auto [minX, maxX] = std::minmax({line.start.x, line.end.x});
    const auto [minY, maxY] = std::minmax({line.start.y, line.end.y});
    const Quadrant quadrant = quadrantOf(angle);
    if (std::abs(line.start.y - line.end.y) >= std::abs(line.start.x - line.end.x)) {
        const bool rightwards = quadrant == Quadrant::First || quadrant == Quadrant::Fourth;
        if (rightwards) return {{-maxX, 0}, {1, 0}};
        return {{static_cast<float>(width) - minX, 0}, {-1, 0}};
    }
    const bool upwards = quadrant == Quadrant::First || quadrant == Quadrant::Second;
    if (upwards) return {{0, static_cast<float>(height) - minY}, {0, -1}};
    return {{0, -maxY}, {0, 1}};
}

QPoint rounded(const FloatPoint& point, const FloatPoint& offset)
{
    return {roundToInt32(offset.x + point.x), roundToInt32(offset.y + point.y)};
}

bool isPast(QPoint entry, QPoint step, qint32 width, qint32 height)
{
    if (step.x() > 0) return entry.x() > width;
    if (step.x() < 0) return entry.x() < 0;
    if (step.y() > 0) return entry.y() > height;
    return entry.y() < 0;
}

int channel(Color color, int shift) { return static_cast<int>(color.value >> shift & 0xFFU); }

} // namespace

void RotatePoint(const FloatPoint& centre, FloatPoint& point, float degrees)
{
    const auto theta = static_cast<float>(degrees * radiansPerDegree);
    const double cosine = std::cos(static_cast<double>(theta)), sine = std::sin(static_cast<double>(theta));
    const float dx = point.x - centre.x, dy = point.y - centre.y;
    point.x = static_cast<float>(centre.x + dx * cosine + dy * sine);
    point.y = static_cast<float>(centre.y - dx * sine + dy * cosine);
}

double SafeDivide(double dividend, double divisor) { return divisor == 0 ? 0 : dividend / divisor; }

std::vector<QPoint> sweepEntries(qint32 width, qint32 height, float angle)
{
    const SweepLine middle = middleLine(width, height, angle);
    const Sweep sweep = sweepOf(middle, width, height, angle);
    std::vector<QPoint> entries;
    entries.reserve(entryBlock);
    entries.push_back(rounded(middle.start, sweep.offset));
    entries.push_back(rounded(middle.end, sweep.offset));
    bool done = false;
    while (!done) {
        const QPoint previous = entries.back();
        entries.push_back(entries[entries.size() - 2] + sweep.step);
        done =
            isPast(entries.back(), sweep.step, width, height) && isPast(previous, sweep.step, width, height);
        if (entries.size() % entryBlock == 0) entries.reserve(entries.size() + entryBlock);
    }
    return entries;
}

qint32 blendColors(Color start, Color end, qint32 steps, std::vector<Color>& colors)
{
    steps = std::max(steps, 2);
    const auto increment = [&](int shift) {
        return static_cast<float>(SafeDivide(channel(end, shift) - channel(start, shift), steps));
    };
    const float red = increment(0), green = increment(8), blue = increment(16);
    const auto blended = [&](float position, float perStep, int shift) {
        return roundToInt32(position * perStep + static_cast<float>(channel(start, shift)));
    };
    colors.resize(static_cast<std::size_t>(steps));
    colors.front() = start;
    for (qint32 i = 1; i < steps - 1; ++i) {
        const auto at = static_cast<float>(i);
        colors[static_cast<std::size_t>(i)] =
            Color::rgb(blended(at, red, 0), blended(at, green, 8), blended(at, blue, 16));
    }
    colors.back() = end;
    return steps;
}

} // namespace vistrel
