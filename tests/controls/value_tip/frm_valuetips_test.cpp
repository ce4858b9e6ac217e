#include "controls/value_tip/frm_valuetips.h"
#include "platform/drawing/text.h"
#include "tests/support/printers.h"

#include <QApplication>
#include <QPointer>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

class ValueTip : public testing::Test
{
protected:
    ValueTip()
    {
        form.setFocusPolicy(Qt::StrongFocus);
        form.show();
        form.activateWindow();
        form.setFocus();
        QApplication::processEvents();
    }
    ~ValueTip() override { frmValuetips::Close(); }

    frmValuetips& show(qint32 value)
    {
        frmValuetips& tip = frmValuetips::instance(form);
        tip.showValue(value, {{300, 200}, {140, 0, 8, 16}, horizontalOrientation});
        QApplication::processEvents();
        return tip;
    }

    QWidget form;
};

} // namespace

TEST_F(ValueTip, isOneWindowUntilItIsClosed)
{
    QPointer<frmValuetips> tip = &show(1);
    EXPECT_EQ(&show(2), tip);
    frmValuetips::Close();
    EXPECT_EQ(tip, nullptr);
    frmValuetips::Close();
    EXPECT_TRUE(show(3).isVisible());
}

TEST_F(ValueTip, fitsItsValue)
{
    for (const qint32 value : {0, 100, -32768}) {
        const frmValuetips& tip = show(value);
        const auto* label = tip.findChild<QLabel*>(u"lblTip"_s);
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), QString::number(value));
        EXPECT_EQ(label->geometry(), QRect(QPoint(1, 1), textSizePx(QString::number(value), Font{})));
        EXPECT_EQ(tip.size(), label->size() + QSize(4, 3));
        EXPECT_EQ(tip.y(), 200 - label->height() - 5);
    }
}

TEST_F(ValueTip, hasARaisedFrameOnTheTipColour)
{
    const QImage image = show(100).grab().toImage();
    const int right = image.width() - 1, bottom = image.height() - 1;
    const QColor light(212, 208, 200), dark(64, 64, 64), back(255, 255, 225);
    EXPECT_EQ(image.pixelColor(0, 0), light);
    EXPECT_EQ(image.pixelColor(right - 1, 0), light);
    EXPECT_EQ(image.pixelColor(0, bottom - 1), light);
    EXPECT_EQ(image.pixelColor(right, 0), dark);
    EXPECT_EQ(image.pixelColor(0, bottom), dark);
    EXPECT_EQ(image.pixelColor(right, bottom), dark);
    EXPECT_EQ(image.pixelColor(right - 1, bottom - 1), back);
    EXPECT_EQ(image.pixelColor(1, 1), back);
}

TEST_F(ValueTip, neverTakesTheFocus)
{
    const frmValuetips& tip = show(5);
    EXPECT_TRUE(tip.isVisible());
    EXPECT_FALSE(tip.isActiveWindow());
    EXPECT_TRUE(form.isActiveWindow());
    EXPECT_EQ(QApplication::focusWidget(), &form);
}

TEST_F(ValueTip, goesWithItsSlider)
{
    auto slider = std::make_unique<QWidget>(&form);
    const QPointer<frmValuetips> tip = &frmValuetips::instance(*slider);
    slider.reset();
    EXPECT_EQ(tip, nullptr);
    EXPECT_TRUE(show(4).isVisible());
}

} // namespace vistrel
