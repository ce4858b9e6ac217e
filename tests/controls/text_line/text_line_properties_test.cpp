#include "controls/text_line/text_line.h"
#include "platform/runtime_error.h"
#include "tests/support/printers.h"

#include <QAccessible>
#include <QLineEdit>
#include <QMetaProperty>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color frame{0x8496A5};

PropertyBag saved(const TextLine& line)
{
    PropertyBag bag;
    line.WriteProperties(bag);
    return bag;
}

QStringList keys(const PropertyBag& bag)
{
    QStringList result;
    for (const auto& entry : bag.entries())
        result += entry.key;
    return result;
}

const QLineEdit& field(const TextLine& line) { return *line.findChild<QLineEdit*>(u"txtText"_s); }

QColor fieldBackground(const TextLine& line) { return field(line).palette().color(QPalette::Base); }

QColor pixel(const TextLine& line, int x, int y) { return line.surface().image().pixelColor(x, y); }

} // namespace

TEST(TextLineProperties, aNewControlIsAHundredBySeventeenPixels)
{
    TextLine line;
    EXPECT_EQ(line.size(), QSize(100, 17));
    EXPECT_EQ(field(line).geometry(), QRect(1, 2, 98, 14));
    EXPECT_EQ(saved(line).entries().size(), 1); // HoverEffect, still false.
    line.InitProperties();
    EXPECT_TRUE(line.HoverEffect());
    EXPECT_TRUE(saved(line).entries().isEmpty());
    EXPECT_EQ(line.ScrollBars(), u"0"_s);
}

TEST(TextLineProperties, areSavedInTheirOrderAndComeBack)
{
    PropertyBag bag;
    bag.set(u"BackColor"_s, Color{0x0000FF});
    bag.set(u"ForeColor"_s, Color{0x123456});
    bag.set(u"Enabled"_s, false);
    bag.set(u"Font"_s, Font{u"Verdana"_s, 9, true});
    bag.set(u"Locked"_s, true);
    bag.set(u"MaxLength"_s, 5);
    bag.set(u"MousePointer"_s, 1);
    bag.set(u"Text"_s, u"12345"_s);
    bag.set(u"ToolTipText"_s, u"seconds"_s);
    bag.set(u"WhatsThisHelpID"_s, 70000);
    bag.set(u"BorderColor"_s, Color{0x80000005});
    bag.set(u"HoverEffect"_s, false);
    bag.set(u"ScrollBars"_s, u"12345"_s);
    TextLine line;
    line.ReadProperties(bag);
    EXPECT_EQ(saved(line), bag);
    EXPECT_EQ(fieldBackground(line), QColor(255, 0, 0));
    EXPECT_EQ(line.BackColor(), Color{0x0000FF});
    EXPECT_FALSE(field(line).isEnabled());
    EXPECT_TRUE(line.isEnabled());
    EXPECT_EQ(field(line).cursor().shape(), Qt::ArrowCursor);
}

TEST(TextLineProperties, theSelectionIsSavedToo)
{
    TextLine line;
    line.InitProperties();
    line.setText(u"one two"_s);
    line.setSelStart(4);
    line.setSelLength(3);
    EXPECT_EQ(keys(saved(line)),
              (QStringList{u"SelLength"_s, u"SelStart"_s, u"SelText"_s, u"Text"_s, u"ScrollBars"_s}));
    TextLine loaded;
    loaded.ReadProperties(saved(line));
    EXPECT_EQ(loaded.Text(), u"one two"_s);
}

TEST(TextLineProperties, theScrollBarsKeyHasTheLastWordOnTheText)
{
    const struct {
        QString text, scrollBars, expected;
    } rows[] = {{u"old"_s, u"abc"_s, u"abc"_s}, {{}, u"abc"_s, u"abc"_s}, {u"old"_s, {}, {}}};
    for (const auto& row : rows) {
        PropertyBag bag;
        bag.writeString(u"Text"_s, row.text, {});
        bag.writeString(u"ScrollBars"_s, row.scrollBars, {});
        TextLine line;
        line.ReadProperties(bag);
        EXPECT_EQ(line.Text(), row.expected);
    }
}

TEST(TextLineProperties, backColorPaintsNothing)
{
    TextLine line;
    line.ReadProperties({});
    line.setBackColor({0x00FF00});
    EXPECT_EQ(line.BackColor(), Color{0x00FF00});
    EXPECT_EQ(fieldBackground(line), QColor(255, 255, 255));

    PropertyBag bag; // A colour that needs more than 16 bits still colours the field.
    bag.set(u"BackColor"_s, Color{0x00FF00});
    line.ReadProperties(bag);
    EXPECT_EQ(fieldBackground(line), QColor(0, 255, 0));
    EXPECT_EQ(line.BackColor(), Color{0xFFFFFF00});
}

TEST(TextLineProperties, theFrameIsDrawnOnTheMargin)
{
    TextLine line;
    line.ReadProperties({});
    line.setBorderColor(Color::rgb(1, 2, 3));
    line.setSizeTwips(60 * 15, 30 * 15);
    for (const QPoint at : {QPoint(0, 0), QPoint(0, 29), QPoint(59, 0), QPoint(59, 29), QPoint(30, 0),
                            QPoint(30, 29), QPoint(0, 15), QPoint(59, 15)})
        EXPECT_EQ(pixel(line, at.x(), at.y()), frame.toQColor()) << at.x() << ',' << at.y();
    EXPECT_EQ(pixel(line, 30, 1), QColor(1, 2, 3)); // The second row above a tall field.
    EXPECT_EQ(pixel(line, 30, 28), QColor(255, 255, 255));
    EXPECT_EQ(field(line).geometry(), QRect(1, 2, 58, 27));
}

TEST(TextLineProperties, smallSizesAreCorrectedWithASecondResize)
{
    TextLine line;
    int resizes = 0;
    QObject::connect(&line, &TextLine::Resize, [&] { ++resizes; });
    line.setSizeTwips(200 * 15, 20 * 15);
    EXPECT_EQ(resizes, 1);
    line.setSizeTwips(3 * 15, 10 * 15);
    EXPECT_EQ(line.size(), QSize(5, 15));
    EXPECT_EQ(field(line).geometry(), QRect(1, 1, 3, 13));
    EXPECT_EQ(resizes, 3);
}

TEST(TextLineProperties, everySetterReportsItsOwnName)
{
    TextLine line;
    QStringList reported;
    QObject::connect(&line, &TextLine::propertyChanged, [&](const QString& name) { reported += name; });
    const QMetaObject& meta = *line.metaObject();
    for (int at = TextLine::staticMetaObject.propertyOffset(); at < meta.propertyCount(); ++at) {
        const QMetaProperty property = meta.property(at);
        if (!property.isWritable()) continue;
        reported.clear();
        property.write(&line, property.read(&line));
        EXPECT_EQ(reported, QStringList{QString::fromLatin1(property.name())});
    }
}

TEST(TextLineProperties, selectionFollowsItsRules)
{
    TextLine line;
    int changes = 0;
    QObject::connect(&line, &TextLine::Change, [&] { ++changes; });
    line.setText(u"hello world"_s);
    EXPECT_EQ(line.SelStart(), 0);
    line.setSelStart(6);
    line.setSelLength(100);
    EXPECT_EQ(line.SelText(), u"world"_s);
    EXPECT_EQ(line.SelLength(), 5);
    line.setSelText(u"there"_s);
    EXPECT_EQ(line.Text(), u"hello there"_s);
    EXPECT_EQ(changes, 2);
    line.setSelStart(100);
    EXPECT_EQ(line.SelStart(), 11);
    EXPECT_EQ(line.SelLength(), 0);
}

TEST(TextLineProperties, valuesOutOfRangeAreRefused)
{
    TextLine line;
    line.setMaxLength(3);
    EXPECT_THROW(line.setMaxLength(-1), RuntimeError);
    EXPECT_EQ(line.MaxLength(), 3);
    line.setText(u"12345"_s);
    EXPECT_EQ(line.Text(), u"123"_s);
    line.setMaxLength(0);
    EXPECT_EQ(line.MaxLength(), 0);
    EXPECT_THROW(line.setSelStart(-1), RuntimeError);
    EXPECT_THROW(line.setSelLength(-1), RuntimeError);
    EXPECT_THROW(line.setMousePointer(16), RuntimeError);
    EXPECT_EQ(line.MousePointer(), 0);
}

TEST(TextLineProperties, assistiveToolsSeeANamedEditField)
{
    TextLine line;
    line.setAccessibleName(u"Time-out in seconds"_s);
    line.setText(u"30"_s);
    line.show();
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&line);
    ASSERT_EQ(seen->childCount(), 1);
    QAccessibleInterface* edit = seen->child(0);
    EXPECT_EQ(edit->role(), QAccessible::EditableText);
    EXPECT_EQ(edit->text(QAccessible::Name), u"Time-out in seconds"_s);
    EXPECT_EQ(edit->text(QAccessible::Value), u"30"_s);
}

} // namespace vistrel
