#include "platform/widgets/pointer_shapes.h"

#include "platform/runtime_error.h"

#include <QPixmap>

#include <gtest/gtest.h>

namespace vistrel
{

TEST(PointerShapes, numbersNameShapesOrTheIconAndOthersAreRefused)
{
    EXPECT_EQ(pointerShape(0, {}, Qt::IBeamCursor).shape(), Qt::IBeamCursor);
    EXPECT_EQ(pointerShape(7, {}).shape(), Qt::SizeVerCursor);
    QImage icon(8, 8, QImage::Format_ARGB32);
    icon.fill(Qt::red);
    EXPECT_EQ(pointerShape(99, Picture(icon)).pixmap().size(), QSize(8, 8));
    EXPECT_EQ(pointerShape(99, {}, Qt::IBeamCursor).shape(), Qt::IBeamCursor);
    for (const qint16 number : {-1, 16, 98, 100})
        EXPECT_THROW(pointerShape(number, {}), RuntimeError);
}

} // namespace vistrel
