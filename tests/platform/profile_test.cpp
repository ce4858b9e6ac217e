#include "platform/profile.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using vistrel::CodePage;
using vistrel::Profile;

namespace
{

Profile profile(QByteArrayView bytes) { return Profile(CodePage("UTF-8"), bytes); }

QByteArray changed(QByteArrayView bytes)
{
    Profile result = profile(bytes);
    result.setValue(u"Main", u"Key", u"2"_s);
    return result.bytes();
}

} // namespace

TEST(Profile, FindsSectionsAndKeysInAnyCaseAndTheFirstOfEqualOnes)
{
    const Profile file =
        profile("Key=none\n[other]\nKey=other\n[ main ] ; x\n ;Key=comment\n\tkEY = 1\nKey=2\n"
                "[MAIN]\nKey=3\nLate=4\n");
    EXPECT_EQ(file.value(u"Main", u"Key"), u"1"_s);
    EXPECT_EQ(file.value(u"Main", u"Late"), QString()) << "only the first section of the name counts";
    EXPECT_EQ(file.value(u"Main", u"Missing"), QString());
    EXPECT_EQ(file.value(u"Missing", u"Key"), QString());
}

TEST(Profile, TrimsBlanksAndThenOnePairOfQuotesAndCutsToTheBuffer)
{
    const std::pair<QByteArray, QString> rows[] = {
        {" a = b ; c \t\r", u"a = b ; c"_s},
        {"\" a \"", u" a "_s},
        {"'x'", u"x"_s},
        {"\"'x'\"", u"'x'"_s},
        {"\"x", u"\"x"_s},
        {"\"", u"\""_s},
        {QByteArray(259, 'x'), QString(259, u'x')},
        {QByteArray(300, 'x'), QString(259, u'x')},
    };
    for (const auto& [written, value] : rows) {
        EXPECT_EQ(profile("[M]\nbare\nk=" + written).value(u"M", u"k"), value) << written.toStdString();
        EXPECT_EQ(profile("[M]\nbare\nk=" + written).value(u"M", u"bare"), QString());
    }
}

TEST(Profile, ANewFileGetsItsKeysInWritingOrderWithCrLf)
{
    Profile file = profile("");
    file.setValue(u"Main", u"One", u"1"_s);
    file.setValue(u"Main", u"Two", QString());
    file.setValue(u"Main", u"Three", u"a\r\n[b]\nc=1"_s); // A value cannot add lines.
    EXPECT_EQ(file.bytes(), "[Main]\r\nOne=1\r\nTwo=\r\nThree=a  [b] c=1\r\n");
}

TEST(Profile, AChangeTouchesOnlyItsOwnLineAndANewKeyEndsItsSection)
{
    const std::pair<QByteArray, QByteArray> rows[] = {
        {"; \xFF\n[a]\n Key=1\n[main]\r\n KEY = 1\r\n;x\n[b]\n",
         "; \xFF\n[a]\n Key=1\n[main]\r\n KEY =2\r\n;x\n[b]\n"},
        {"[Main]\nKey", "[Main]\nKey=2"},
        {"\xEF\xBB\xBF[Main]\nKey=\n", "\xEF\xBB\xBF[Main]\nKey=2\n"},
        {"[Main]\na=1\n\n \n[b]\n", "[Main]\na=1\nKey=2\n\n \n[b]\n"},
        {"[Main]", "[Main]\r\nKey=2\r\n"},
        {"[b]\nx=1", "[b]\nx=1\n[Main]\nKey=2\n"},
    };
    for (const auto& [before, after] : rows)
        EXPECT_EQ(changed(before), after);
}

TEST(Profile, SpeaksItsCodePage)
{
    Profile file(CodePage("SHIFT_JIS"),
                 CodePage("SHIFT_JIS").toBytes(u"[表]\nソ=能\n"_s)); // Bytes hold 0x5C, 0x5D.
    EXPECT_EQ(file.value(u"表", u"ソ"), u"能"_s);
    file.setValue(u"表", u"ソ", u"é表"_s);
    EXPECT_EQ(file.value(u"表", u"ソ"), u"?表"_s);
}
