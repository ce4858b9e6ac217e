#include "platform/drawing/line.h"
#include "tests/support/printers.h"

#include <QList>

#include <gtest/gtest.h>

namespace vistrel
{

namespace
{

const QRect everywhere(-1000, -1000, 2000, 2000);

QList<QPoint> pixels(QPoint from, QPoint to, const QRect& clip = everywhere)
{
    QList<QPoint> result;
    forEachLinePixel(from, to, clip, [&](QPoint pixel) { result.append(pixel); });
    return result;
}

} // namespace

TEST(Line, hasAPixelPerStepOfItsLongerAxisButNoneAtItsEnd)
{
    EXPECT_TRUE(pixels({4, 4}, {4, 4}).isEmpty());
    EXPECT_EQ(pixels({2, 3}, {2, 1}), (QList<QPoint>{{2, 3}, {2, 2}}));
    EXPECT_EQ(pixels({0, 0}, {-2, -2}), (QList<QPoint>{{0, 0}, {-1, -1}}));
    EXPECT_EQ(pixels({0, 0}, {4, 2}), (QList<QPoint>{{0, 0}, {1, 1}, {2, 1}, {3, 2}}));
    EXPECT_EQ(pixels({0, 0}, {1, 3}), (QList<QPoint>{{0, 0}, {0, 1}, {1, 2}}));
    EXPECT_EQ(pixels({0, 0}, {-4, 1}), (QList<QPoint>{{0, 0}, {-1, 0}, {-2, 1}, {-3, 1}}));
}

TEST(Line, clippingKeepsExactlyThePixelsInside)
{
    const QRect clip(10, 10, 20, 15);
    const QList<QPoint> ends = {{-37, 5}, {90, 41}, {3, 60}, {12, -80}, {29, 24}, {10, 10}, {-5, -9}};
    for (const QPoint from : ends) {
        for (const QPoint to : ends) {
            QList<QPoint> expected;
            for (const QPoint pixel : pixels(from, to)) {
                if (clip.contains(pixel)) expected.append(pixel);
            }
            EXPECT_EQ(pixels(from, to, clip), expected)
                << from.x() << ',' << from.y() << " to " << to.x() << ',' << to.y();
        }
    }
}

} // namespace vistrel
