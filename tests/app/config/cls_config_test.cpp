#include "app/config/cls_config.h"

#include "tests/support/temp_folder.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace vistrel;

namespace
{

class ConfigTest : public testing::Test
{
protected:
    ConfigTest()
    {
        qputenv("HOME", QFile::encodeName(m_folder.path({})));
        qunsetenv("XDG_CONFIG_HOME");
    }
    ~ConfigTest() override { qputenv("HOME", m_oldHome); }

    [[nodiscard]] QString path() const { return m_folder.path(u"Config.Ini"_s); }

    [[nodiscard]] ConfigValues load(const QByteArray& lines) const
    {
        return loadConfig(m_folder.write(u"Config.Ini"_s, "[Main]\r\n" + lines));
    }

    test::TempFolder m_folder;
    QByteArray m_oldHome = qgetenv("HOME");
};

} // namespace

TEST_F(ConfigTest, AMissingAndAnEmptyFileGiveTheDefaults)
{
    ConfigValues defaults;
    defaults.OutputFolder = m_folder.path(u"Documents/"_s);
    EXPECT_EQ(loadConfig(path()), defaults);
    EXPECT_EQ(load("FirstTime=\r\nTimeOut=\"\"\r\nEnableScript=\r\n"), defaults);
    EXPECT_EQ(defaults.ImageType, 1);
    EXPECT_EQ(defaults.NameAs, 0);
    EXPECT_EQ(defaults.TimeOut, 30);
    EXPECT_TRUE(defaults.EnableActiveX && defaults.EnableJava && defaults.EnableScript &&
                !defaults.Thumbnail);
}

TEST_F(ConfigTest, NumbersAreReadLenientlyAndKeptInRange)
{
    struct Case {
        QByteArray line;
        qint32 ConfigValues::*field;
        qint32 expected;
    };
    const Case cases[] = {
        {"ImageType=2.5", &ConfigValues::ImageType, 2},
        {"ImageType=3.5", &ConfigValues::ImageType, 4},
        {"ImageType=4.5", &ConfigValues::ImageType, 4},
        {"ImageType=4.6", &ConfigValues::ImageType, 1},
        {"ImageType=x", &ConfigValues::ImageType, 0},
        {"ImageType=-1", &ConfigValues::ImageType, 1},
        {"NameAs=7", &ConfigValues::NameAs, 2},
        {"NameAs=-1", &ConfigValues::NameAs, 2},
        {"NameAs=", &ConfigValues::NameAs, 0},
        {"NameAs=99999999999", &ConfigValues::NameAs, 0},
        {"OverWrite=2", &ConfigValues::Overwrite, 1},
        {"OverWrite=0", &ConfigValues::Overwrite, 0},
        {"OpenOutput=-1", &ConfigValues::OpenOutput, 1},
        {"OpenOutput=no", &ConfigValues::OpenOutput, 0},
        {"TimeOut=4", &ConfigValues::TimeOut, 30},
        {"TimeOut=5", &ConfigValues::TimeOut, 5},
        {"TimeOut=100000", &ConfigValues::TimeOut, 100000},
        {"TimeOut=9e99", &ConfigValues::TimeOut, 30},
        {"DelayTime=301", &ConfigValues::DelayTime, 1},
        {"DelayTime=300", &ConfigValues::DelayTime, 300},
        {"DelayTime=-1", &ConfigValues::DelayTime, 1},
        {"DelayTime=0", &ConfigValues::DelayTime, 0},
        {"JpgQuality=0", &ConfigValues::JpgQuality, 80},
        {"JpgQuality=101", &ConfigValues::JpgQuality, 80},
        {"JpgQuality=100", &ConfigValues::JpgQuality, 100},
        {"ThumWidth=1", &ConfigValues::ThumWidth, 50},
        {"ThumWidth=2", &ConfigValues::ThumWidth, 2},
        {"ThumHeight=5000", &ConfigValues::ThumHeight, 5000},
    };
    for (const Case& row : cases)
        EXPECT_EQ(load(row.line).*row.field, row.expected) << row.line.constData();

    EXPECT_EQ(load("FirstTime=-7").FirstTime, -7);
    EXPECT_EQ(load("FirstTime=99999").FirstTime, 0);
}

TEST_F(ConfigTest, OnlyALowerCaseAIsALetterForTrue)
{
    EXPECT_TRUE(load("Thumbnail=a").Thumbnail);
    EXPECT_FALSE(load("Thumbnail=A").Thumbnail);
    EXPECT_TRUE(load("EnableJava=a").EnableJava);
    EXPECT_FALSE(load("EnableJava=b").EnableJava);
    EXPECT_FALSE(load("EnableScript=A").EnableScript);
}

TEST_F(ConfigTest, TheFolderIsTakenAsItStandsCutToTheBuffer)
{
    EXPECT_EQ(load("OutputFolder=/out").OutputFolder, u"/out"_s);
    EXPECT_EQ(load("OutputFolder=/a\0b"_ba).OutputFolder, u"/a"_s);
    EXPECT_EQ(load("OutputFolder=" + QByteArray(300, 'x')).OutputFolder, QString(259, u'x'));
}

TEST_F(ConfigTest, IsWrittenOnceWhenItIsReleased)
{
    {
        clsConfig config(path());
        config.setFirstTime(1);
        config.setOutputFolder(u"/Bilder/é/"_s);
        config.setNameAs(-2);
        config.setTimeOut(0);
        config.setThumbnail(true);
        config.setEnableJava(false);
        EXPECT_FALSE(QFile::exists(path()));
    }
    EXPECT_EQ(m_folder.read(u"Config.Ini"_s),
              "[Main]\r\nFirstTime=1\r\nOutputFolder=/Bilder/\xC3\xA9/"
              "\r\nImageType=1\r\nNameAs=-2\r\nOverWrite=1\r\n"
              "OpenOutput=1\r\nTimeOut=0\r\nDelayTime=1\r\nJpgQuality=80\r\nThumbnail=a\r\nThumWidth=50\r\n"
              "ThumHeight=50\r\nEnableActiveX=a\r\nEnableJava=b\r\nEnableScript=a\r\n");
    EXPECT_EQ(clsConfig(path()).NameAs(), 2) << "corrected by the next load";
}

TEST_F(ConfigTest, LoadingWithoutTheObjectLeavesTheFileAlone)
{
    const QByteArray lines = "TimeOut=4\r\nown=1\r\n";
    EXPECT_EQ(load(lines).TimeOut, 30);
    EXPECT_EQ(m_folder.read(u"Config.Ini"_s), "[Main]\r\n" + lines);
}

TEST_F(ConfigTest, AFolderInPlaceOfTheFileIsIgnored)
{
    QDir().mkpath(path());
    EXPECT_EQ(clsConfig(path()).JpgQuality(), 80);
    EXPECT_TRUE(QDir(path()).isEmpty());
}
