#include "capture/image/drawing_check.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace vistrel::drawingCheck
{

namespace
{

constexpr int kBandRows = 256;
constexpr int kBands = kRows / kBandRows;

QRgb colourOf(int band) { return qRgb(band * 3, 255 - band * 3, (band * 37) % 256); }

} // namespace

QString page()
{
    QString html = u"<!doctype html><body style='margin:0'>"_s;
    for (int band = 0; band < kBands; ++band) {
        const QRgb colour = colourOf(band);
        html += u"<div style='height:%1px;background:rgb(%2,%3,%4)'></div>"_s.arg(kBandRows)
                    .arg(qRed(colour))
                    .arg(qGreen(colour))
                    .arg(qBlue(colour));
    }
    return html;
}

int trueRows(const QByteArray& png)
{
    const QImage image = QImage::fromData(png, "PNG");
    for (int band = 0; band < kBands; ++band) {
        for (const int row : {band * kBandRows, (band + 1) * kBandRows - 1}) {
            if (!image.valid(0, row) || (image.pixel(0, row) | 0xff000000) != colourOf(band))
                return band * kBandRows;
        }
    }
    return kRows;
}

} // namespace vistrel::drawingCheck
