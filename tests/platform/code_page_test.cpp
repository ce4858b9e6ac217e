#include "platform/code_page.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using vistrel::CodePage;

TEST(CodePage, KeepsEverythingThatItsCharacterSetHolds)
{
    const QString western = u"C:\\Gr\u00f6\u00df\u00e9\r\n"_s;
    EXPECT_EQ(CodePage("ISO-8859-1").toBytes(western), "C:\\Gr\xF6\xDF\xE9\r\n");
    EXPECT_EQ(CodePage("ISO-8859-1").toText("C:\\Gr\xF6\xDF\xE9\r\n"), western);
    const QString japanese = u"日本 = [表]"_s + QString(100'001, u'日'); // Longer than any buffer.
    for (const char* charset : {"UTF-8", "EUC-JP", "SHIFT_JIS", "ISO-2022-JP", "GB18030"}) {
        const CodePage codePage(charset);
        EXPECT_EQ(codePage.toText(codePage.toBytes(japanese)), japanese) << charset;
    }
    EXPECT_EQ(CodePage("UTF-8").toText(CodePage("UTF-8").toBytes(u"\uFEFFa"_s)), u"\uFEFFa"_s);
    EXPECT_TRUE(CodePage("ISO-2022-JP").toBytes(u"日本"_s).endsWith("\x1B(B")) << "ends in the initial state";
}

TEST(CodePage, WritesAQuestionMarkForWhatHasNoCounterpart)
{
    const QString text = u"a日\U0001F600b"_s + QChar(0xD800) + u"c"_s + QChar(0xDC00);
    EXPECT_EQ(CodePage("ISO-8859-1").toBytes(text), "a??b?c?");
    EXPECT_EQ(CodePage("UTF-8").toBytes(text), "a\xE6\x97\xA5\xF0\x9F\x98\x80"
                                               "b?c?");
}

TEST(CodePage, ReadsAReplacementCharacterForInvalidBytes)
{
    EXPECT_EQ(CodePage("UTF-8").toText("a\xFF"
                                       "b\xE6\x97"),
              u"a\uFFFDb\uFFFD\uFFFD"_s);
    EXPECT_EQ(CodePage("EUC-JP").toText("a\xFF"
                                        "b\xC6"),
              u"a\uFFFDb\uFFFD"_s);
    EXPECT_EQ(CodePage("EUC-JP").toText(""), QString());
}

TEST(CodePage, TakesAnUnknownOrUnnamedCharacterSetForUtf8)
{
    EXPECT_EQ(CodePage("no-such-set").toBytes(u"日"_s), "\xE6\x97\xA5");
    EXPECT_EQ(CodePage("").toText("\xE6\x97\xA5"), u"日"_s);
    for (const char* locale : {"C", "xx_YY.none", "C.UTF-8"}) {
        const QByteArray old = qgetenv("LC_ALL");
        qputenv("LC_ALL", locale);
        EXPECT_EQ(CodePage::host().toBytes(u"日"_s), "\xE6\x97\xA5") << locale;
        qputenv("LC_ALL", old);
    }
}
