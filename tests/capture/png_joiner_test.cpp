#include "capture/image/png_joiner.h"

#include <QImage>
#include <QtEndian>

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <zlib.h>

using namespace Qt::StringLiterals;

namespace vistrel::test
{
namespace
{

/// Black, then a flat colour, then more and more noise.
QImage sample(QSize size)
{
    std::mt19937 random(7);
    QImage image(size, QImage::Format_RGB888);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const int noise = x % 64 < 32 || y < 60 ? 0 : int(random() % unsigned(y / 8 + 1));
            image.setPixel(x, y, y < 20 ? 0 : qRgb(200, (90 + noise) % 256, 90));
        }
    }
    return image;
}

QByteArray chunk(const QByteArray& type, const QByteArray& content)
{
    const QByteArray body = type + content;
    QByteArray bytes(4, 0);
    qToBigEndian(quint32(content.size()), bytes.data());
    QByteArray check(4, 0);
    const auto* source = reinterpret_cast<const Bytef*>(body.constData());
    qToBigEndian(quint32(crc32(0, source, uInt(body.size()))), check.data());
    return bytes + body + check;
}

/// As browsers write it: each row less the one above, the pixels in many chunks.
QByteArray png(const QImage& image, int level = 1)
{
    QByteArray rows;
    QByteArray above(qsizetype(image.width()) * 3, 0);
    for (int y = 0; y < image.height(); ++y) {
        const QByteArray row(reinterpret_cast<const char*>(image.constScanLine(y)), above.size());
        rows += '\2';
        for (qsizetype i = 0; i < row.size(); ++i)
            rows += char(row[i] - above[i]);
        above = row;
    }
    const QByteArray stream = qCompress(rows, level).mid(4);
    QByteArray header(13, 0);
    qToBigEndian(image.width(), header.data());
    qToBigEndian(image.height(), header.data() + 4);
    header[8] = 8;
    header[9] = 2;
    QByteArray file = "\x89PNG\r\n\x1a\n" + chunk("IHDR", header);
    for (qsizetype at = 0; at < stream.size(); at += 4096)
        file += chunk("IDAT", stream.mid(at, 4096));
    return file + chunk("IEND", {});
}

/// image in strips that end at the rows given.
QList<QByteArray> stripsOf(const QImage& image, const QList<int>& ends, int level = 1)
{
    QList<QByteArray> strips;
    int top = 0;
    for (const int end : ends) {
        strips += png(image.copy(0, top, image.width(), end - top), level);
        top = end;
    }
    return strips;
}

std::optional<QByteArray> joined(const QList<QByteArray>& strips)
{
    QByteArray file;
    const bool done = joinPngStrips(strips, [&file](const QByteArray& piece) { file += piece; });
    EXPECT_TRUE(done || file.isEmpty()) << "nothing is written of what cannot be joined";
    return done ? std::optional(file) : std::nullopt;
}

TEST(PngJoiner, ShowsTheStripsOneBelowTheOther)
{
    const QImage image = sample({900, 2000});
    for (const QList<int>& ends : {QList<int>{2000}, {1200, 2000}, {1, 2, 12, 400, 800, 1990, 2000}}) {
        const auto file = joined(stripsOf(image, ends));
        ASSERT_TRUE(file);
        EXPECT_GT(file->size(), 1'000'000) << "written in several pieces";
        EXPECT_EQ(QImage::fromData(*file).convertToFormat(QImage::Format_RGB888), image) << ends.size();
        EXPECT_EQ(*file, joined(stripsOf(image, ends))) << "the same strips give the same file";
    }
}

TEST(PngJoiner, DeclinesWhatDoesNotFit)
{
    const QImage image = sample({300, 400});
    EXPECT_FALSE(joined({}));
    EXPECT_FALSE(joined(stripsOf(image, {200, 400}, 0))) << "bytes as they are";
    EXPECT_FALSE(joined({png(image), png(image.copy(0, 0, 299, 400))})) << "another width";
    QByteArray interlaced = png(image);
    interlaced[28] = 1;
    EXPECT_FALSE(joined({interlaced}));
}

TEST(PngJoiner, NoDamageGoesUnnoticed)
{
    const QImage image = sample({300, 120});
    const QList<QByteArray> strips = stripsOf(image, {70, 120});
    std::mt19937 random(11);
    for (int i = 0; i < 2000; ++i) {
        QByteArray damaged = strips.last();
        const qsizetype place = qsizetype(random() % size_t(damaged.size()));
        if (i % 2 == 0)
            damaged[place] = char(random());
        else
            damaged.truncate(place);
        const auto file = joined({strips.first(), damaged});
        const QImage shown = file ? QImage::fromData(*file) : QImage();
        if (shown.size() != image.size()) continue; // Whoever asked for the strip knows how high it is.
        EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB888), image) << place;
    }
}

} // namespace
} // namespace vistrel::test
