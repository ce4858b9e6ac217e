#include "platform/forms/text_box.h"

#include "platform/forms/list_edit.h"
#include "tests/support/printers.h"

#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

class TextBoxTest : public testing::Test
{
protected:
    TextBoxTest()
    {
        box.InitProperties();
        box.setSizeTwips(6000, 3000);
    }

    TextBox box;
    ListEdit& field = *box.findChild<ListEdit*>(u"txtText"_s);
};

TEST_F(TextBoxTest, LinesAreSeparatedByCarriageReturnAndLineFeed)
{
    box.setText(u"a\r\nb\nc\rd\r\n"_s);
    EXPECT_EQ(box.Text(), u"a\r\nb\r\nc\r\nd\r\n"_s);
    EXPECT_EQ(field.blockCount(), 5);

    box.moveCaretToEnd();
    EXPECT_EQ(box.SelStart(), box.Text().size());
    QTest::keyClick(&field, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&field, u"e"_s);
    EXPECT_EQ(box.Text(), u"a\r\nb\r\nc\r\nd\r\n\r\ne"_s);
}

TEST_F(TextBoxTest, AddingToTheTextKeepsTheCaretAndCanBeUndone)
{
    const QString text = u" a\tb\u00a0c \r\n"_s; // Blanks of every kind stay what they are.
    box.setText(text);
    field.moveCursor(QTextCursor::Start);
    box.setText(text + u"second\r\n"_s);
    EXPECT_EQ(box.Text(), text + u"second\r\n"_s);
    EXPECT_EQ(box.SelStart(), 0);
    field.undo();
    EXPECT_EQ(box.Text(), text);
}

TEST_F(TextBoxTest, AHundredThousandLinesAreTakenAndScrolledAtOnce)
{
    QString text;
    for (int line = 0; line < 100'000; ++line)
        text += u"https://pages.example/folder/%1.html\r\n"_s.arg(line);
    box.show();
    box.setText(text);
    box.moveCaretToEnd();
    EXPECT_GT(field.verticalScrollBar()->value(), 99'900);
    EXPECT_EQ(box.SelStart(), text.size());
    EXPECT_EQ(box.Text(), text);
}

} // namespace

} // namespace vistrel
