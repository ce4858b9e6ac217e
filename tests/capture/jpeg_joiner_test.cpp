#include "capture/image/huffman_code.h"
#include "capture/image/image_encoder.h"
#include "capture/image/jpeg_joiner.h"
#include "tests/support/file_of.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace vistrel::test
{
namespace
{

/// Flat parts, gradients and, further down, more and more noise: each strip of it has codes of its own.
QImage sample(QSize size, QImage::Format format = QImage::Format_RGB32)
{
    std::mt19937 random(7);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int noise = x % 64 < 32 ? 0 : int(random() % unsigned(y / 2 + 1));
            image.setPixel(x, y, qRgb((x + noise) % 256, (y + noise) % 256, y < 90 ? 200 : noise % 256));
        }
    }
    return image.convertToFormat(format);
}

QByteArray jpeg(const QImage& image, int quality = 80, bool progressive = false)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "JPEG");
    writer.setQuality(quality);
    writer.setOptimizedWrite(true);
    writer.setProgressiveScanWrite(progressive);
    EXPECT_TRUE(writer.write(image));
    return bytes;
}

/// image in strips that end at the rows given.
QList<QByteArray> stripsOf(const QImage& image, const QList<int>& ends)
{
    QList<QByteArray> strips;
    int top = 0;
    for (const int end : ends) {
        strips += jpeg(image.copy(0, top, image.width(), end - top));
        top = end;
    }
    return strips;
}

bool sameRow(const QImage& a, int rowOfA, const QImage& b, int rowOfB)
{
    for (int x = 0; x < a.width(); ++x)
        if (a.pixel(x, rowOfA) != b.pixel(x, rowOfB)) return false;
    return true;
}

bool isRefused(const QList<QByteArray>& strips)
{
    const auto joined = joinJpegStrips(strips);
    return !joined && joined.error().kind == Error::Kind::Format;
}

TEST(JpegJoiner, EachStripIsInTheJoinedFileUnchanged)
{
    for (const auto format : {QImage::Format_RGB32, QImage::Format_Grayscale8}) {
        const QImage image = sample({301, 261}, format);
        PagePicture picture(PagePicture::Encoding::Jpeg);
        for (const QByteArray& strip : stripsOf(image, {64, 224, 240, 261}))
            ASSERT_TRUE(picture.addStrip(strip, QImage::fromData(strip).size()).ok());
        const auto file =
            fileOf([&](QIODevice& device) { return encodeImage(picture, ImageFormat::Jpeg, 1, device); });
        ASSERT_TRUE(file.ok()) << file.error().text().toStdString();
        const QImage joined = QImage::fromData(*file);
        ASSERT_EQ(joined.size(), image.size());
        EXPECT_EQ(joined.isGrayscale(), format == QImage::Format_Grayscale8);
        int top = 0;
        for (const QByteArray& bytes : picture.strips()) {
            const QImage strip = QImage::fromData(bytes);
            // Decoders smooth colours from row to row: across the seams too, where these are inside a file.
            const int first = top == 0 ? 0 : 1;
            const int last = strip.height() - (top + strip.height() == image.height() ? 1 : 2);
            for (int row = first; row <= last; ++row)
                ASSERT_TRUE(sameRow(joined, top + row, strip, row)) << "row " << top + row;
            top += strip.height();
        }
    }
}

TEST(JpegJoiner, OnlyPartsOfOnePictureAreJoined)
{
    const QImage image = sample({80, 64});
    const QByteArray part = jpeg(image);
    EXPECT_TRUE(joinJpegStrips({part, jpeg(sample({80, 7}))}).ok());
    EXPECT_TRUE(isRefused({}));
    EXPECT_TRUE(isRefused({part, jpeg(sample({96, 64}))})) << "another width";
    EXPECT_TRUE(isRefused({part, jpeg(image, 60)})) << "other quantisation";
    EXPECT_TRUE(isRefused({part, jpeg(sample({80, 64}, QImage::Format_Grayscale8))}));
    EXPECT_TRUE(isRefused({jpeg(sample({80, 56})), part})) << "half a unit";
    EXPECT_TRUE(isRefused({jpeg(image, 80, true), part})) << "progressive";
    const QByteArray restarts = QByteArray(part).insert(2, QByteArray::fromHex("ffdd00040001"));
    EXPECT_TRUE(isRefused({part, restarts}));
}

TEST(JpegJoiner, FilesAreNoTallerThanDecodersTake)
{
    const QByteArray strip = jpeg(sample({8, 16000}));
    for (const int rest : {1500, 1501}) {
        PagePicture picture(PagePicture::Encoding::Jpeg);
        for (int count = 0; count < 4; ++count)
            ASSERT_TRUE(picture.addStrip(strip, {8, 16000}).ok());
        ASSERT_TRUE(picture.addStrip(jpeg(sample({8, rest})), {8, rest}).ok());
        const auto file =
            fileOf([&](QIODevice& device) { return encodeImage(picture, ImageFormat::Jpeg, 80, device); });
        ASSERT_EQ(file.ok(), rest == 1500);
        EXPECT_TRUE(file ? QImage::fromData(*file).height() == 65500
                         : file.error().kind == Error::Kind::TooLarge);
    }
}

TEST(JpegJoiner, DamagedStripsAreFoundOutOrHarmless)
{
    const QByteArray good = jpeg(sample({48, 32}));
    ASSERT_TRUE(joinJpegStrips({good, good}).ok());
    const QByteArray end = good.last(2);
    for (qsizetype length = 0; length < good.size() - end.size(); ++length)
        ASSERT_TRUE(isRefused({good, good.first(length) + end})) << "cut at " << length;
    for (qsizetype at = 0; at < good.size(); ++at) {
        for (const int value : {0, 1, 17, 128, 255}) {
            QByteArray damaged = good;
            damaged[at] = char(uchar(good[at]) ^ value);
            for (const auto& strips : {QList{good, damaged}, QList{damaged, damaged}}) {
                const auto joined = joinJpegStrips(strips);
                ASSERT_TRUE(joined.ok() || joined.error().kind == Error::Kind::Format) << "byte " << at;
            }
        }
    }
}

TEST(HuffmanCode, CodesAreNeverLongerThan16BitsNorAllOnes)
{
    SymbolCounts counts{};
    for (size_t symbol = 0, before = 0, count = 1; symbol < 60; ++symbol, std::swap(before, count)) {
        counts[symbol * 4] = count; // Counts like these give each symbol a bit more than the next.
        before += count;
    }
    const HuffmanTable table = optimalTable(counts);
    const HuffmanEncoder encoder(table);
    const auto decoder = HuffmanDecoder::of(table);
    ASSERT_TRUE(decoder);
    ASSERT_EQ(table.symbols.size(), 60);
    for (const char symbol : table.symbols) {
        const HuffmanEncoder::Code code = encoder[uchar(symbol)];
        EXPECT_NE(code.bits, (1U << code.length) - 1);
        const auto read = decoder->first(quint32(code.bits) << (16 - code.length));
        EXPECT_EQ(read.value, uchar(symbol));
        EXPECT_EQ(read.length, code.length);
    }
    EXPECT_EQ(decoder->first(0xFFFF).length, 0);
    EXPECT_LT(encoder[59 * 4].length, 3);
}

} // namespace
} // namespace vistrel::test
