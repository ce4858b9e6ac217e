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

TEST(TipGeometry, putsTheTipAboveOrLeftOfTheThumbWithTiesToEven)
{
    const struct {
        TipAnchor anchor;
        QSize label;
        QRect expected;
    } rows[] = {
        {{{300, 200}, {140, 0, 8, 16}, horizontalOrientation}, {18, 13}, {433, 182, 22, 16}},
        {{{290, 200}, {140.75, 3, 8, 16}, horizontalOrientation}, {19, 13}, {423, 185, 23, 16}},
        {{{100, 50}, {0, 0, 8, 16}, horizontalOrientation}, {7, 13}, {98, 32, 11, 16}},  // From 98.5.
        {{{101, 50}, {0, 0, 8, 16}, horizontalOrientation}, {7, 13}, {100, 32, 11, 16}}, // From 99.5.
        {{{5, 4}, {0, 0, 8, 16}, horizontalOrientation}, {30, 13}, {-8, -14, 34, 16}},   // Off the screen.
        {{{300, 200}, {2, 40, 16, 16}, verticalOrientation}, {18, 14}, {278, 239, 22, 17}},
        {{{300, 200}, {140, 0, 8, 16}, 7}, {18, 13}, {0, 0, 22, 16}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(tipGeometry(row.anchor, row.label), row.expected);
}

TEST_F(ValueTip, fitsItsValueInARaisedFrame)
{
    const frmValuetips& tip = show(-32768);
    const auto* label = tip.findChild<QLabel*>(u"lblTip"_s);
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->text(), u"-32768"_s);
    EXPECT_EQ(label->geometry(), QRect(QPoint(1, 1), textSizePx(u"-32768"_s, Font{})));
    EXPECT_EQ(tip.size(), label->size() + QSize(4, 3));

    const QImage image = show(100).grab().toImage();
    const int right = image.width() - 1, bottom = image.height() - 1;
    for (const QPoint light : {QPoint(0, 0), QPoint(right - 1, 0), QPoint(0, bottom - 1)})
        EXPECT_EQ(image.pixelColor(light), QColor(212, 208, 200));
    for (const QPoint dark : {QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)})
        EXPECT_EQ(image.pixelColor(dark), QColor(64, 64, 64));
    for (const QPoint back : {QPoint(1, 1), QPoint(right - 1, bottom - 1)})
        EXPECT_EQ(image.pixelColor(back), QColor(255, 255, 225));
}

TEST_F(ValueTip, isOneWindowThatNeverTakesTheFocusAndGoesWithItsSlider)
{
    const QPointer<frmValuetips> tip = &show(1);
    EXPECT_EQ(&show(2), tip);
    EXPECT_TRUE(form.isActiveWindow());
    EXPECT_EQ(QApplication::focusWidget(), &form);
    frmValuetips::Close();
    EXPECT_EQ(tip, nullptr);
    frmValuetips::Close();

    auto slider = std::make_unique<QWidget>(&form);
    const QPointer<frmValuetips> another = &frmValuetips::instance(*slider);
    slider.reset();
    EXPECT_EQ(another, nullptr);
    EXPECT_TRUE(show(4).isVisible());
}

} // namespace vistrel
