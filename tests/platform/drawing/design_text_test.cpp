#include "platform/drawing/design_text.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

TEST(DesignText, everyKindOfValueSurvivesTheRoundTrip)
{
    ControlDesign button{u"fbMake(0)"_s, u"FButton"_s, {}};
    button.properties.set(u"Caption"_s, u"two\r\nlines\t\"quoted\" \\ = ; [x]   "_s);
    button.properties.set(u"Empty"_s, QString(u""_s));
    button.properties.set(u"style"_s, -2147483647);
    button.properties.set(u"IfDraw"_s, false);
    button.properties.set(u"BackColor"_s, Color{0x8000000F});
    button.properties.set(u"Font"_s, Font{u"Grotesk, 7 pt, Mono"_s, 6.75, true, false, true});
    const QList<ControlDesign> controls = {button, {u"txtURL"_s, u"TextLine"_s, {}}};
    const auto read = readDesign(writeDesign(controls));
    ASSERT_TRUE(read.ok()) << read.error().text().toStdString();
    EXPECT_EQ(*read, controls);
}

TEST(DesignText, isWrittenToBeReadAndToBeEdited)
{
    ControlDesign button{u"fbStop"_s, u"FButton"_s, {}};
    button.properties.set(u"Caption"_s, u"Stop  "_s);
    button.properties.set(u"StyleColor"_s, Color{0xB17600});
    button.properties.set(u"Font"_s, Font{u"Verdana"_s, 9, true});
    EXPECT_EQ(writeDesign({button}), u"[fbStop FButton]\n"
                                     u"Caption = \"Stop  \"\n"
                                     u"StyleColor = 0x00B17600\n"
                                     u"Font = Verdana, 9 pt, bold\n"_s);
    const auto read = readDesign(u"; the run\r\n\r\n [fbStop  FButton] \r\n  style=2\r\n"_s);
    ASSERT_TRUE(read.ok());
    ASSERT_EQ(read->size(), 1);
    EXPECT_EQ(read->first().properties.readInt32(u"style"_s, 0), 2);
}

TEST(DesignText, malformedLinesAreReportedByNumber)
{
    const QString head = u"[fbStop FButton]\nstyle = 1\n"_s;
    const std::pair<QString, QString> rows[] = {
        {u"style = 1"_s, u"line 1: style belongs to no control"_s},
        {u"\n[fbStop]"_s, u"line 2: a control"_s},
        {head + u"IfDraw"_s, u"line 3: a property"_s},
        {head + u"= 1"_s, u"line 3: a property"_s},
        {head + u"style = 2"_s, u"line 3: style is given twice"_s},
        {head + u"\nCaption = \"open"_s, u"line 4: the value of Caption"_s},
        {head + u"Caption = \"ends in \\\""_s, u"line 3: the value of Caption"_s},
        {head + u"Caption = \"a\"b\""_s, u"line 3: the value of Caption"_s},
        {head + u"Caption = \"\\x\""_s, u"line 3: the value of Caption"_s},
        {head + u"Width = 2147483648"_s, u"line 3: the value of Width"_s},
        {head + u"BackColor = 0x123456789"_s, u"line 3: the value of BackColor"_s},
        {head + u"Font = Verdana, bold"_s, u"line 3: the value of Font"_s},
        {head + u"Picture = @missing.png"_s, u"line 3: the value of Picture"_s},
        {head + u"Caption = bare words"_s, u"line 3: the value of Caption"_s},
    };
    for (const auto& [text, start] : rows) {
        const auto read = readDesign(text);
        ASSERT_FALSE(read.ok()) << text.toStdString();
        EXPECT_EQ(read.error().kind, Error::Kind::Format);
        EXPECT_TRUE(read.error().message.startsWith(start)) << read.error().message.toStdString();
    }
}

} // namespace vistrel
