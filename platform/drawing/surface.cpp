#include "platform/drawing/surface.h"

#include "platform/drawing/line.h"
#include "platform/drawing/rounding.h"
#include "platform/drawing/text.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace vistrel
{

namespace
{

QRect between(QPoint one, QPoint other)
{
    const auto [left, right] = std::minmax({one.x(), other.x()});
    const auto [top, bottom] = std::minmax({one.y(), other.y()});
    return {QPoint(left, top), QPoint(right, bottom)};
}

bool isWhole(double number) { return number == std::floor(number); }

} // namespace

Surface::Surface(ScaleMode scaleMode) : m_scaleMode(scaleMode) {}

void Surface::resize(QSize sizePx, qreal devicePixelRatio)
{
    if (sizePx == m_sizePx && devicePixelRatio == m_image.devicePixelRatio() && !m_image.isNull()) return;
    m_sizePx = sizePx;
    QImage image((QSizeF(sizePx) * devicePixelRatio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(m_backColor.toQColor());
    if (!m_image.isNull() && !image.isNull()) QPainter(&image).drawImage(QPointF(), m_image);
    m_image = image;
}

float Surface::ScaleWidth() const { return fromPixels(m_sizePx.width()); }

float Surface::ScaleHeight() const { return fromPixels(m_sizePx.height()); }

float Surface::textWidth(const QString& text) const { return fromPixels(textSizePx(text, m_font).width()); }

float Surface::textHeight(const QString& text) const { return fromPixels(textSizePx(text, m_font).height()); }

void Surface::print(const QString& text)
{
    if (!m_image.isNull()) {
        QPainter painter(&m_image);
        paintText(painter, toPixels(m_currentX, m_currentY), text, m_font, m_foreColor);
    }
    m_currentX = 0;
    m_currentY += textHeight(text);
}

void Surface::clear()
{
    m_image.fill(m_backColor.toQColor());
    m_currentX = m_currentY = 0;
}

void Surface::drawLine(float x1, float y1, float x2, float y2, Color color)
{
    forEachLinePixel(toPixels(x1, y1), toPixels(x2, y2), QRect(QPoint(), m_sizePx), [&](QPoint pixel) {
        fillPixels({pixel, QSize(1, 1)}, color);
    });
}

void Surface::drawRectangle(float x1, float y1, float x2, float y2, Color color)
{
    const QRect rect = between(toPixels(x1, y1), toPixels(x2, y2));
    fillPixels({rect.topLeft(), rect.topRight()}, color);
    fillPixels({rect.topLeft(), rect.bottomLeft()}, color);
    fillPixels({rect.topRight(), rect.bottomRight()}, color);
    fillPixels({rect.bottomLeft(), rect.bottomRight()}, color);
}

void Surface::fillRectangle(float x1, float y1, float x2, float y2, Color color)
{
    fillPixels(between(toPixels(x1, y1), toPixels(x2, y2)), color);
}

void Surface::drawPicture(const Picture& picture, float x, float y, float width, float height)
{
    if (picture.isNull() || m_image.isNull()) return;
    const QImage image = picture.imageFor(m_image.devicePixelRatio());
    const QRect target(toPixels(x, y), QSize(toPixels(width), toPixels(height)));
    const QSizeF device = QSizeF(target.size()) * m_image.devicePixelRatio();
    const bool isWholeScale =
        isWhole(device.width() / image.width()) && isWhole(device.height() / image.height());
    QPainter painter(&m_image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, !isWholeScale);
    painter.drawImage(target, image);
}

void Surface::drawEdge(const QRect& rectPx, quint32 borders)
{
    using enum SystemColor;
    if (borders & BDR_RAISEDOUTER) drawBorder(rectPx, Light3D, DarkShadow3D);
    if (borders & BDR_SUNKENOUTER) drawBorder(rectPx, ButtonShadow, ButtonHighlight);
    const bool hasOuter = (borders & (BDR_RAISEDOUTER | BDR_SUNKENOUTER)) != 0;
    const QRect inner = hasOuter ? rectPx.adjusted(1, 1, -1, -1) : rectPx;
    if (borders & BDR_RAISEDINNER) drawBorder(inner, ButtonHighlight, ButtonShadow);
    if (borders & BDR_SUNKENINNER) drawBorder(inner, DarkShadow3D, Light3D);
}

void Surface::drawBorder(const QRect& rectPx, SystemColor leftTop, SystemColor rightBottom)
{
    if (rectPx.isEmpty()) return;
    fillPixels({rectPx.topLeft(), rectPx.topRight()}, Color::system(leftTop));
    fillPixels({rectPx.topLeft(), rectPx.bottomLeft()}, Color::system(leftTop));
    fillPixels({rectPx.topRight(), rectPx.bottomRight()}, Color::system(rightBottom));
    fillPixels({rectPx.bottomLeft(), rectPx.bottomRight()}, Color::system(rightBottom));
}

int Surface::toPixels(double value) const
{
    return m_scaleMode == ScaleMode::Twips ? twipsToPixels(value) : twipsToPixels(value * twipsPerPixel);
}

QPoint Surface::toPixels(double x, double y) const { return {toPixels(x), toPixels(y)}; }

float Surface::fromPixels(int pixels) const
{
    return static_cast<float>(m_scaleMode == ScaleMode::Twips ? pixels * twipsPerPixel : pixels);
}

QRect Surface::deviceRect(const QRect& rectPx) const
{
    const auto device = [ratio = m_image.devicePixelRatio()](int edge) {
        return static_cast<int>(std::lround(edge * ratio));
    };
    const QPoint leftTop(device(rectPx.x()), device(rectPx.y()));
    const QPoint end(device(rectPx.x() + rectPx.width()), device(rectPx.y() + rectPx.height()));
    return {leftTop, end - QPoint(1, 1)};
}

void Surface::fillPixels(const QRect& rectPx, Color color)
{
    const QRect device = deviceRect(rectPx & QRect(QPoint(), m_sizePx)) & m_image.rect();
    const QRgb value = color.toQColor().rgb();
    for (int y = device.top(); y <= device.bottom(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(m_image.scanLine(y));
        std::fill(line + device.left(), line + device.right() + 1, value);
    }
}

} // namespace vistrel
