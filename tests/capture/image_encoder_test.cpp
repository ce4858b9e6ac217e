#include "capture/image/blank_check.h"
#include "capture/image/drawing_check.h"
#include "capture/image/image_encoder.h"
#include "tests/support/file_of.h"

#include <QBuffer>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tiffio.h>

using namespace Qt::StringLiterals;

namespace vistrel::test
{
namespace
{

/// A picture with gradients, text-like edges and flat parts; strips cut at the given rows.
QImage sample(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y,
                           y % 40 < 20 ? qRgb(x % 256, y % 256, 128) : (x / 3 % 2 ? 0xffffffff : 0xff202020));
    return image;
}

QByteArray encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, qstrcmp(format, "PNG") == 0 ? -1 : 95); // For PNG, 95 is hardly compressed.
    return bytes;
}

PagePicture picture(const QImage& image, const QList<int>& heights)
{
    PagePicture result;
    int top = 0;
    for (const int height : heights) {
        const QRect part(0, top, image.width(), height);
        EXPECT_TRUE(result.addStrip(encoded(image.copy(part), "PNG"), part.size()).ok());
        top += height;
    }
    return result;
}

Result<QByteArray> encodeImage(const PagePicture& source, ImageFormat format, int quality)
{
    return fileOf([&](QIODevice& device) { return encodeImage(source, format, quality, device); });
}

Result<QByteArray> encodeThumbnail(const PagePicture& source, ImageFormat format, int quality, QSize size)
{
    return fileOf([&](QIODevice& device) { return encodeThumbnail(source, format, quality, size, device); });
}

/// Takes 10,000 bytes and no more.
class FullDevice : public QBuffer
{
protected:
    qint64 writeData(const char* bytes, qint64 count) override
    {
        if (pos() + count <= 10000) return QBuffer::writeData(bytes, count);
        setErrorString(u"no room"_s);
        return -1;
    }
};

QImage readTiff(const QByteArray& bytes)
{
    QTemporaryFile file;
    file.open();
    file.write(bytes);
    file.flush();
    TIFF* tiff = TIFFOpen(file.fileName().toLocal8Bit().constData(), "r");
    if (tiff == nullptr) return {};
    quint32 width = 0;
    quint32 height = 0;
    TIFFGetField(tiff, TIFFTAG_IMAGEWIDTH, &width);
    TIFFGetField(tiff, TIFFTAG_IMAGELENGTH, &height);
    QImage image{int(width), int(height), QImage::Format_RGBA8888};
    TIFFReadRGBAImageOriented(tiff, width, height, reinterpret_cast<quint32*>(image.bits()),
                              ORIENTATION_TOPLEFT);
    TIFFClose(tiff);
    return image.convertToFormat(QImage::Format_RGB32);
}

QImage decoded(const QByteArray& bytes, ImageFormat format)
{
    return format == ImageFormat::Tiff ? readTiff(bytes)
                                       : QImage::fromData(bytes).convertToFormat(QImage::Format_RGB32);
}

/// Mean difference of the channels, 0 to 255.
double difference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size()) return 255;
    qint64 sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            sum += qAbs(qRed(p) - qRed(q)) + qAbs(qGreen(p) - qGreen(q)) + qAbs(qBlue(p) - qBlue(q));
        }
    return double(sum) / (3.0 * a.width() * a.height());
}

TEST(ImageEncoder, OtherDecodersReadBackWhatWasDrawnFromOneStripAndFromSeveral)
{
    const QImage original = sample({301, 240});
    for (const auto& heights : {QList<int>{240}, QList<int>{100, 100, 40}}) {
        const PagePicture source = picture(original, heights);
        for (const ImageFormat format : {ImageFormat::Png, ImageFormat::Bmp, ImageFormat::Tiff})
            EXPECT_EQ(difference(decoded(*encodeImage(source, format, 80), format), original), 0)
                << int(format);
        EXPECT_LT(difference(decoded(*encodeImage(source, ImageFormat::Gif, 80), ImageFormat::Gif), original),
                  8);
        const QByteArray fine = *encodeImage(source, ImageFormat::Jpeg, 95);
        const QByteArray coarse = *encodeImage(source, ImageFormat::Jpeg, 20);
        EXPECT_LT(difference(decoded(fine, ImageFormat::Jpeg), original), 10);
        EXPECT_LT(coarse.size(), fine.size() / 2);
    }
}

TEST(ImageEncoder, GifsKeepFlatAndRareColoursAndDitherGradients)
{
    QImage page(600, 400, QImage::Format_RGB32);
    for (int y = 0; y < 400; ++y)
        for (int x = 0; x < 600; ++x)
            page.setPixel(x, y, x < 300 ? qRgb(250, 250, 250) : qRgb(x * 255 / 600, y * 255 / 400, 90));
    const QRect button(100, 200, 12, 12);
    for (int y = button.top(); y <= button.bottom(); ++y)
        for (int x = button.left(); x <= button.right(); ++x)
            page.setPixel(x, y, qRgb(20, 40, 230));
    const QByteArray file = *encodeImage(picture(page, {400}), ImageFormat::Gif, 80);
    EXPECT_EQ(*encodeImage(picture(page, {150, 150, 100}), ImageFormat::Gif, 80), file); // No seam.

    const QImage gif = QImage::fromData(file);
    EXPECT_LE(gif.colorCount(), 256);
    const QImage shown = gif.convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(difference(shown.copy(0, 0, 300, 200), page.copy(0, 0, 300, 200)), 0);
    EXPECT_LT(difference(shown.copy(button), page.copy(button)), 8);
    const auto blurred = [](const QImage& image) {
        return image.scaled(60, 40, {}, Qt::SmoothTransformation);
    };
    EXPECT_LT(difference(blurred(shown), blurred(page)), 1);
}

TEST(ImageEncoder, GifsKeepEveryColourWhileTheyAreFew)
{
    for (const int colours : {1, 3, 256}) {
        QImage page(97, 61, QImage::Format_RGB32);
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x) {
                const int index = (y * 97 + x) % colours;
                page.setPixel(x, y, qRgb(index, 255 - index / 2, index * 31 % 256));
            }
        const auto file = encodeImage(picture(page, {61}), ImageFormat::Gif, 80);
        EXPECT_EQ(difference(decoded(*file, ImageFormat::Gif), page), 0) << colours;
    }
}

TEST(ImageEncoder, ThumbnailsCoverTheirSizeFromTheTop)
{
    QImage tall(400, 2000, QImage::Format_RGB32);
    tall.fill(Qt::blue);
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 400; ++x)
            tall.setPixel(x, y, qRgb(255, 0, 0));
    const PagePicture source = picture(tall, {1500, 500});
    for (const ImageFormat format :
         {ImageFormat::Png, ImageFormat::Jpeg, ImageFormat::Gif, ImageFormat::Bmp, ImageFormat::Tiff}) {
        const QImage thumbnail = decoded(*encodeThumbnail(source, format, 90, {200, 150}), format);
        ASSERT_EQ(thumbnail.size(), QSize(200, 150)) << int(format);
        EXPECT_GT(qRed(thumbnail.pixel(100, 140)), 240) << int(format);
    }
    const QImage narrow = QImage::fromData(*encodeThumbnail(source, ImageFormat::Png, 90, {10, 1000}));
    EXPECT_EQ(narrow.size(), QSize(10, 1000));
    EXPECT_EQ(QImage::fromData(*encodeThumbnail(source, ImageFormat::Png, 90, {900, 300})).size(),
              QSize(900, 300));
    for (const QSize none : {QSize(0, 100), QSize(100, 0), QSize(-5, -5), QSize(1, 16385)})
        EXPECT_EQ(encodeThumbnail(source, ImageFormat::Png, 90, none).error().kind, Error::Kind::Usage);
}

TEST(ImageEncoder, WhatAFormatCannotHoldIsRefused)
{
    const PagePicture tall = picture(QImage(4, 70000, QImage::Format_RGB32), {70000});
    EXPECT_EQ(encodeImage(tall, ImageFormat::Jpeg, 80).error().kind, Error::Kind::TooLarge);
    EXPECT_EQ(encodeImage(tall, ImageFormat::Gif, 80).error().kind, Error::Kind::TooLarge);
    EXPECT_TRUE(encodeImage(tall, ImageFormat::Tiff, 80).ok());
}

TEST(ImageEncoder, AFullDeviceIsNoBadPicture)
{
    QImage noise(301, 240, QImage::Format_RGB32);
    for (int y = 0; y < noise.height(); ++y)
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, QRgb(qHash(y * 1000 + x)) | 0xff000000);
    for (const auto& source : {picture(noise, {240}), picture(noise, {200, 40})}) {
        for (const ImageFormat format :
             {ImageFormat::Png, ImageFormat::Jpeg, ImageFormat::Gif, ImageFormat::Bmp, ImageFormat::Tiff}) {
            FullDevice device;
            device.open(QBuffer::ReadWrite);
            const auto done = encodeImage(source, format, 80, device);
            ASSERT_FALSE(done.ok()) << int(format);
            EXPECT_EQ(done.error().kind, Error::Kind::Io) << int(format);
            EXPECT_THAT(done.error().message.toStdString(), testing::HasSubstr("no room")) << int(format);
        }
    }
}

TEST(BlankCheck, OnlyPicturesOfOneColourAreBlank)
{
    QImage paper(300, 200, QImage::Format_RGB32);
    paper.fill(QColor(18, 52, 86));
    EXPECT_TRUE(isBlank(picture(paper, {200})));
    EXPECT_TRUE(isBlank(picture(paper, {120, 79, 1})));
    PagePicture jpeg(PagePicture::Encoding::Jpeg);
    ASSERT_TRUE(jpeg.addStrip(encoded(paper, "JPEG"), paper.size()).ok());
    EXPECT_TRUE(isBlank(jpeg));
    paper.setPixel(299, 199, qRgb(18, 52, 87));
    EXPECT_FALSE(isBlank(picture(paper, {200})));
    EXPECT_FALSE(isBlank(picture(paper, {199, 1})));
    paper.fill(Qt::white);
    paper.setPixel(0, 0, qRgb(0, 0, 0));
    EXPECT_FALSE(isBlank(picture(paper, {200})));
    EXPECT_FALSE(isBlank(picture(sample({300, 200}), {200})));
    EXPECT_FALSE(isBlank({}));
}

TEST(DrawingCheck, FindsTheFirstRepeatedRow)
{
    QImage page(drawingCheck::kWidth, drawingCheck::kRows, QImage::Format_RGB32);
    const QRegularExpression band(u"rgb\\((\\d+),(\\d+),(\\d+)\\)"_s);
    int row = 0;
    for (auto found = band.globalMatch(drawingCheck::page()); found.hasNext();) {
        const auto colour = found.next();
        const QRgb rgb =
            qRgb(colour.captured(1).toInt(), colour.captured(2).toInt(), colour.captured(3).toInt());
        for (const int end = row + 256; row < end; ++row)
            std::fill_n(reinterpret_cast<QRgb*>(page.scanLine(row)), page.width(), rgb);
    }
    EXPECT_EQ(drawingCheck::trueRows(encoded(page, "PNG")), drawingCheck::kRows);
    for (int y = 8192; y < page.height(); ++y)
        std::memcpy(page.scanLine(y), page.constScanLine(y - 8192), size_t(page.bytesPerLine()));
    EXPECT_EQ(drawingCheck::trueRows(encoded(page, "PNG")), 8192);
    EXPECT_EQ(drawingCheck::trueRows("no picture"), 0);
}

TEST(PagePicture, BelievesOnlyWholeFilesOfTheSizeAskedFor)
{
    const QByteArray png = encoded(sample({30, 20}), "PNG");
    const QByteArray jpeg = encoded(sample({30, 20}), "JPG");
    PagePicture lossless;
    PagePicture lossy(PagePicture::Encoding::Jpeg);
    EXPECT_FALSE(lossless.addStrip({}, {30, 20}).ok());
    EXPECT_FALSE(lossless.addStrip(png.first(png.size() / 2), {30, 20}).ok());
    EXPECT_FALSE(lossless.addStrip(png, {30, 21}).ok());
    EXPECT_FALSE(lossless.addStrip(jpeg, {30, 20}).ok());
    EXPECT_FALSE(lossy.addStrip(jpeg.first(jpeg.size() - 2), {30, 20}).ok());
    EXPECT_TRUE(lossless.isNull() && lossy.isNull());
    EXPECT_TRUE(lossless.addStrip(png, {30, 20}).ok());
    EXPECT_TRUE(lossy.addStrip(jpeg, {30, 20}).ok());
    EXPECT_EQ(lossy.size(), QSize(30, 20));
}

} // namespace
} // namespace vistrel::test
