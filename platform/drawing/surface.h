#pragma once

#include "platform/drawing/color.h"
#include "platform/drawing/font.h"
#include "platform/drawing/picture.h"

#include <QImage>
#include <QRect>
#include <QString>

namespace vistrel
{

/// Unit of the coordinates and sizes that a Surface takes and gives.
enum class ScaleMode { Twips, Pixels };

/// Borders of a 3-D edge, as flags. The four combinations that the system uses have names of their own.
enum EdgeBorder : quint32 {
    BDR_RAISEDOUTER = 0x0001,
    BDR_SUNKENOUTER = 0x0002,
    BDR_RAISEDINNER = 0x0004,
    BDR_SUNKENINNER = 0x0008,
    EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER,
    EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER,
};

/// What a control draws on: one image that keeps what was drawn until it is overdrawn.
///
/// Every coordinate falls on a whole logical pixel: in twips it is divided by 15 and rounded
/// (twipsToPixels()), in pixels rounded the same way. On a dense screen a logical pixel is a block of device
/// pixels (the block of pixel p starts at device pixel round(p x ratio)), so lines keep their weight and stay
/// sharp; text and pictures use the full resolution. Nothing is antialiased but text, and pictures that are
/// not drawn at a whole multiple of their size. Drawing outside the image has no effect.
class Surface
{
public:
    explicit Surface(ScaleMode scaleMode = ScaleMode::Twips);

    /// Makes the image sizePx logical pixels large, at that device pixel ratio. What was drawn stays at the
    /// top left, rescaled when the ratio changed; new area shows the background colour.
    void resize(QSize sizePx, qreal devicePixelRatio);
    /// The image in device pixels, its device pixel ratio set.
    [[nodiscard]] const QImage& image() const { return m_image; }
    /// The same for painters that work in device pixels (opaque RGB32).
    QImage& deviceImage() { return m_image; }
    [[nodiscard]] QSize sizePx() const { return m_sizePx; }

    [[nodiscard]] ScaleMode scaleMode() const { return m_scaleMode; }
    void setScaleMode(ScaleMode scaleMode) { m_scaleMode = scaleMode; }
    /// Size in the scale's unit.
    [[nodiscard]] float ScaleWidth() const;
    [[nodiscard]] float ScaleHeight() const;

    /// Setting one of these changes nothing that is already drawn. Initially button face, button text and
    /// Font{}.
    [[nodiscard]] Color backColor() const { return m_backColor; }
    void setBackColor(Color color) { m_backColor = color; }
    [[nodiscard]] Color foreColor() const { return m_foreColor; }
    void setForeColor(Color color) { m_foreColor = color; }
    [[nodiscard]] const Font& font() const { return m_font; }
    void setFont(const Font& font) { m_font = font; }

    /// Where the next text goes: its left-top corner, in the scale's unit. Kept unrounded.
    [[nodiscard]] float CurrentX() const { return m_currentX; }
    void setCurrentX(float x) { m_currentX = x; }
    [[nodiscard]] float CurrentY() const { return m_currentY; }
    void setCurrentY(float y) { m_currentY = y; }

    /// Width of the widest line and height of all lines of text (line breaks: CR LF or LF), in the scale's
    /// unit, in whole logical pixels. An empty text is one line high.
    [[nodiscard]] float textWidth(const QString& text) const;
    [[nodiscard]] float textHeight(const QString& text) const;
    /// Writes text at the current position in the fore colour on what is already there; further lines start
    /// below at the same x. The current position moves to x 0 below the text.
    void print(const QString& text);

    /// Covers the whole image with the background colour; the current position becomes (0, 0).
    void clear();
    /// One-pixel solid line without its end point; the shape is that of forEachLinePixel().
    void drawLine(float x1, float y1, float x2, float y2, Color color);
    /// Both rectangles include the pixels of both corners.
    void drawRectangle(float x1, float y1, float x2, float y2, Color color);
    void fillRectangle(float x1, float y1, float x2, float y2, Color color);
    /// picture scaled into width x height with its left-top corner at (x, y). No picture draws nothing.
    void drawPicture(const Picture& picture, float x, float y, float width, float height);
    /// The borders of a 3-D edge along the inside of rectPx, in logical pixels whatever the scale: one pixel
    /// for each of the outer and the inner border that borders names, nothing for the one it does not. The
    /// left-bottom and right-top corners belong to the bottom and right lines.
    void drawEdge(const QRect& rectPx, quint32 borders);

private:
    [[nodiscard]] int toPixels(double value) const;
    [[nodiscard]] QPoint toPixels(double x, double y) const;
    [[nodiscard]] float fromPixels(int pixels) const;
    [[nodiscard]] QRect deviceRect(const QRect& rectPx) const;
    void fillPixels(const QRect& rectPx, Color color);
    void drawBorder(const QRect& rectPx, SystemColor leftTop, SystemColor rightBottom);

    ScaleMode m_scaleMode;
    QSize m_sizePx;
    QImage m_image;
    Color m_backColor = Color::system(SystemColor::ButtonFace);
    Color m_foreColor = Color::system(SystemColor::ButtonText);
    Font m_font;
    float m_currentX = 0;
    float m_currentY = 0;
};

} // namespace vistrel
