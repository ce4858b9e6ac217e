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
    EXPECT_TRUE(defaults.EnableActiveX && defaults.EnableJava && defaults.EnableScript &&
                !defaults.Thumbnail);
}

TEST_F(ConfigTest, NumbersAreReadLenientlyAndKeptInRange)
{
    const QByteArrayList keys{"FirstTime", "ImageType", "NameAs",     "OverWrite", "OpenOutput",
                              "TimeOut",   "DelayTime", "JpgQuality", "ThumWidth", "ThumHeight"};
    const auto numbers = [&](const QByteArrayList& texts) {
        QByteArray lines;
        for (qsizetype i = 0; i < keys.size(); ++i)
            lines += keys[i] + '=' + texts[i] + '\n';
        const ConfigValues read = load(lines);
        return QList<qint32>{read.FirstTime,  read.ImageType, read.NameAs,    read.Overwrite,
                             read.OpenOutput, read.TimeOut,   read.DelayTime, read.JpgQuality,
                             read.ThumWidth,  read.ThumHeight};
    };
    using Numbers = QList<qint32>;
    EXPECT_EQ(numbers({"-7", "2.5", "7", "2", "-1", "4", "301", "101", "1", "1"}),
              (Numbers{-7, 2, 2, 1, 1, 30, 1, 80, 50, 50}));
    EXPECT_EQ(numbers({"99999", "3.5", "-1", "0", "no", "5", "300", "100", "2", "5000"}),
              (Numbers{0, 4, 2, 0, 0, 5, 300, 100, 2, 5000}));
    EXPECT_EQ(numbers({"1x", "x", "", "", "", "100000", "-1", "0", "9e99", "-5"}),
              (Numbers{1, 0, 0, 1, 1, 100000, 1, 80, 50, 50}));
    EXPECT_EQ(numbers({"0", "4.6", "99999999999", "1", "1", "9e99", "0", "1", "", ""}),
              (Numbers{0, 1, 0, 1, 1, 30, 0, 1, 50, 50}));
}

TEST_F(ConfigTest, LettersAndTheFolderAreTakenAsTheyStand)
{
    const ConfigValues letters =
        load("Thumbnail=A\r\nEnableJava=a\r\nEnableScript=b\r\nOutputFolder=/a\0b"_ba);
    EXPECT_FALSE(letters.Thumbnail) << "only a lower-case a is true";
    EXPECT_TRUE(letters.EnableJava);
    EXPECT_FALSE(letters.EnableScript);
    EXPECT_EQ(letters.OutputFolder, u"/a"_s);
    EXPECT_EQ(load("OutputFolder=" + QByteArray(300, 'x')).OutputFolder, QString(259, u'x'));
    EXPECT_TRUE(m_folder.read(u"Config.Ini"_s).endsWith('x')) << "loading leaves the file alone";
}

TEST_F(ConfigTest, IsWrittenOnceWhenItIsReleased)
{
    {
        clsConfig config(path());
        config.setFirstTime(1);
        config.setOutputFolder(u"/out/"_s);
        config.setNameAs(-2);
        config.setTimeOut(0);
        config.setThumbnail(true);
        config.setEnableJava(false);
        EXPECT_FALSE(QFile::exists(path()));
    }
    EXPECT_EQ(m_folder.read(u"Config.Ini"_s),
              "[Main]\r\nFirstTime=1\r\nOutputFolder=/out/"
              "\r\nImageType=1\r\nNameAs=-2\r\nOverWrite=1\r\n"
              "OpenOutput=1\r\nTimeOut=0\r\nDelayTime=1\r\nJpgQuality=80\r\nThumbnail=a\r\nThumWidth=50\r\n"
              "ThumHeight=50\r\nEnableActiveX=a\r\nEnableJava=b\r\nEnableScript=a\r\n");
    EXPECT_EQ(clsConfig(path()).NameAs(), 2) << "corrected by the next load";
}

TEST_F(ConfigTest, AFolderInPlaceOfTheFileIsIgnored)
{
    QDir().mkpath(path());
    EXPECT_EQ(clsConfig(path()).JpgQuality(), 80);
    EXPECT_TRUE(QDir(path()).isEmpty());
}
