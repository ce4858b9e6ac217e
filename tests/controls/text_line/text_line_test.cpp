#include "controls/text_line/line_layout.h"
#include "controls/text_line/text_line.h"
#include "tests/support/pixels.h"
#include "tests/support/printers.h"
#include "tests/support/properties.h"

#include <QAccessible>
#include <QLineEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QLineEdit& field(const TextLine& line) { return *line.findChild<QLineEdit*>(u"txtText"_s); }

QColor fieldBackground(const TextLine& line) { return field(line).palette().color(QPalette::Base); }

} // namespace

TEST(TextLineLayout, growsToItsLeastSizeAndIsTallAboveIt)
{
    const struct {
        float widthPx, heightPx;
        int isTall;
        QRectF field; // In pixels.
    } rows[] = {
        {100, 0, 0, {1, 1, 98, 13}},  {100, 15, 0, {1, 1, 98, 13}}, {100, 15.5F, 1, {1, 2, 98, 12.5}},
        {100, 30, 1, {1, 2, 98, 27}}, {3, 20, 1, {1, 2, 3, 17}},
    };
    for (const auto& row : rows) {
        const TextLineLayout layout = layoutTextLine(row.widthPx * 15, row.heightPx * 15, 15, 15);
        EXPECT_EQ(layout.IsTall, row.isTall) << row.heightPx;
        EXPECT_EQ(layout.field, QRectF(row.field.topLeft() * 15, row.field.size() * 15)) << row.heightPx;
    }
    EXPECT_EQ(layoutTextLine(1, 300, 12, 15).width, 5 * 15); // The vertical ratio counts.
}

TEST(TextLineTest, theScrollBarsKeyHasTheLastWordOnTheText)
{
    const struct {
        QString text, scrollBars, expected;
    } rows[] = {{u"old"_s, u"abc"_s, u"abc"_s}, {u""_s, u"abc"_s, u"abc"_s}, {u"old"_s, u""_s, u""_s}};
    for (const auto& row : rows) {
        PropertyBag bag;
        bag.writeString(u"Text"_s, row.text, {});
        bag.writeString(u"ScrollBars"_s, row.scrollBars, {});
        TextLine line;
        line.ReadProperties(bag);
        EXPECT_EQ(line.Text(), row.expected);
    }
}

TEST(TextLineTest, onlyALoadedBackColorPaintsTheField)
{
    TextLine line;
    line.ReadProperties({});
    line.setBackColor({0x00FF00});
    EXPECT_EQ(fieldBackground(line), QColor(255, 255, 255));

    PropertyBag bag; // A colour that needs more than 16 bits still colours the field.
    bag.set(u"BackColor"_s, Color{0x00FF00});
    line.ReadProperties(bag);
    EXPECT_EQ(fieldBackground(line), QColor(0, 255, 0));
    EXPECT_EQ(line.BackColor(), Color{0xFFFFFF00});
    EXPECT_EQ(saved(line), bag);
}

TEST(TextLineTest, theFrameIsDrawnOnTheMargin)
{
    TextLine line;
    line.ReadProperties({});
    line.setBorderColor(Color::rgb(1, 2, 3));
    line.setSizeTwips(60 * 15, 30 * 15);
    for (const QPoint at : {QPoint(0, 0), QPoint(0, 29), QPoint(59, 0), QPoint(59, 29), QPoint(30, 0),
                            QPoint(30, 29), QPoint(0, 15), QPoint(59, 15)})
        EXPECT_EQ(pixel(line, at), Color{0x8496A5}.toQColor()) << at.x() << ',' << at.y();
    EXPECT_EQ(pixel(line, {30, 1}), QColor(1, 2, 3)); // The second row above a tall field.
    EXPECT_EQ(pixel(line, {30, 28}), QColor(255, 255, 255));
}

TEST(TextLineTest, smallSizesAreCorrectedWithASecondResize)
{
    TextLine line;
    EXPECT_EQ(line.size(), QSize(100, 17));
    int resizes = 0;
    QObject::connect(&line, &TextLine::Resize, [&] { ++resizes; });
    line.setSizeTwips(200 * 15, 20 * 15);
    EXPECT_EQ(resizes, 1);
    line.setSizeTwips(3 * 15, 10 * 15);
    EXPECT_EQ(line.size(), QSize(5, 15));
    EXPECT_EQ(resizes, 3);
    line.setEnabled(false);
    EXPECT_FALSE(field(line).isEnabled());
    EXPECT_TRUE(line.isEnabled()) << "the field is disabled, not the control";
}

TEST(TextLineTest, theSelectionFollowsItsRulesAndIsSavedToo)
{
    TextLine line;
    line.InitProperties();
    line.setText(u"hello world"_s);
    EXPECT_EQ(line.SelStart(), 0);
    line.setSelStart(6);
    line.setSelLength(100);
    EXPECT_EQ(line.SelText(), u"world"_s);
    EXPECT_EQ(savedKeys(line), u"SelLength SelStart SelText Text ScrollBars"_s);
    line.setSelText(u"there"_s);
    EXPECT_EQ(line.Text(), u"hello there"_s);
    line.setSelStart(100);
    EXPECT_EQ(line.SelStart(), 11);
}

TEST(TextLineTest, valuesOutOfRangeAreRefused)
{
    TextLine line;
    line.setMaxLength(3);
    EXPECT_THROW(line.setMaxLength(-1), RuntimeError);
    line.setText(u"12345"_s);
    EXPECT_EQ(line.Text(), u"123"_s);
    line.setMaxLength(0);
    EXPECT_EQ(line.MaxLength(), 0);
    EXPECT_THROW(line.setSelStart(-1), RuntimeError);
    EXPECT_THROW(line.setSelLength(-1), RuntimeError);
    EXPECT_THROW(line.setMousePointer(16), RuntimeError);
    EXPECT_EQ(line.MousePointer(), 0);
}

TEST(TextLineTest, assistiveToolsSeeANamedEditField)
{
    TextLine line;
    line.setAccessibleName(u"Time-out in seconds"_s);
    line.setText(u"30"_s);
    line.show();
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&line);
    ASSERT_EQ(seen->childCount(), 1);
    EXPECT_EQ(seen->child(0)->role(), QAccessible::EditableText);
    EXPECT_EQ(seen->child(0)->text(QAccessible::Name), u"Time-out in seconds"_s);
    EXPECT_EQ(seen->child(0)->text(QAccessible::Value), u"30"_s);
}

} // namespace vistrel
