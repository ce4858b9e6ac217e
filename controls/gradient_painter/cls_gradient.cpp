#include "controls/gradient_painter/cls_gradient.h"

#include "controls/gradient_painter/gradient_lines.h"
#include "platform/drawing/line.h"
#include "platform/drawing/rounding.h"
#include "platform/runtime_error.h"

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

void drawLine(QImage& target, QPoint from, QPoint to, QRgb color)
{
    uchar* const bits = target.bits();
    const qsizetype stride = target.bytesPerLine();
    forEachLinePixel(from, to, target.rect(), [=](QPoint pixel) {
        reinterpret_cast<QRgb*>(bits + pixel.y() * stride)[pixel.x()] = color;
    });
}

QString description(const RuntimeError& error) { return QString::fromLatin1(error.what()); }

} // namespace

clsGradient::clsGradient(ErrorBox errorBox) : m_errorBox(std::move(errorBox)) {}

bool clsGradient::Draw(Surface* target)
try {
    if (target == nullptr) throw RuntimeError(RuntimeError::Number::ObjectNotSet);
    QImage& image = target->deviceImage();
    return image.width() > 1 && image.height() > 1 && DrawGradientLines(image) >= 1;
} catch (const RuntimeError& error) {
    m_errorBox(description(error), {});
    return false;
}

qint32 clsGradient::BlendColors(Color Color1, Color Color2, qint32 Steps, std::vector<Color>& Colors) const
{
    return blendColors(Color1, Color2, Steps, Colors);
}

void clsGradient::setColor1(Color New_Color1) { m_color1 = New_Color1.resolved(); }

void clsGradient::setColor2(Color New_Color2) { m_color2 = New_Color2.resolved(); }

void clsGradient::setAngle(float New_Angle) { m_angle = New_Angle - 360.0F * std::floor(New_Angle / 360.0F); }

// Twice the number of lines drawn; 0 after an error.
qint32 clsGradient::DrawGradientLines(QImage& target)
try {
    const std::vector<QPoint> entries = sweepEntries(target.width(), target.height(), m_angle);
    std::vector<Color> colors;
    BlendColors(m_color1, m_color2, roundToInt32(static_cast<double>(entries.size()) / 2), colors);
    std::size_t entry = 0;
    for (; entry + 2 <= entries.size(); entry += 2)
        drawLine(target, entries[entry], entries[entry + 1], colors[entry / 2].toQColor().rgb());
    return static_cast<qint32>(entry);
} catch (const RuntimeError& error) {
    m_errorBox(description(error), u"GradientRect"_s);
    return 0;
}

} // namespace vistrel
