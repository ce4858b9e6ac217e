#include "app/util/mod_functions.h"

#include "platform/runtime_error.h"
#include "tests/support/fake_file_dialogs.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vistrel;

namespace
{

class ShowOpenDialogTest : public testing::Test
{
protected:
    bool show(QString& fileName, bool mustExist, bool multiSelect)
    {
        return ShowOpenDialog(m_dialogs, fileName, mustExist, multiSelect, u"Text file(*.txt)|*.txt"_s,
                              u"/in"_s, u"Select a file"_s, u".txt"_s, &m_owner);
    }

    test::FakeFileDialogs m_dialogs;
    QObject m_owner;
};

} // namespace

TEST_F(ShowOpenDialogTest, ChoosesFlagsAndBufferByItsSwitches)
{
    const std::tuple<bool, bool, quint32, qsizetype> cases[] = {{false, false, 0u, 260},
                                                                {true, false, 0x1000u, 260},
                                                                {false, true, 0x180200u, 4096},
                                                                {true, true, 0x181200u, 4096}};
    for (const auto& [mustExist, multiSelect, flags, size] : cases) {
        QString fileName = u"old.txt"_s;
        show(fileName, mustExist, multiSelect);
        EXPECT_EQ(m_dialogs.request.flags, flags);
        EXPECT_EQ(m_dialogs.request.buffer, u"old.txt"_s + QString(size - 7, QChar::Null));
    }
    EXPECT_EQ(m_dialogs.request.owner, &m_owner);
    EXPECT_EQ(m_dialogs.request.filter, u"Text file(*.txt)\0*.txt\0\0"_s);
    EXPECT_EQ(m_dialogs.request.initialFolder, u"/in"_s);
}

TEST_F(ShowOpenDialogTest, GivesOneFileItsPathAndSeveralTheWholeBuffer)
{
    QString fileName;
    m_dialogs.chosen = u"/in/a.txt"_s;
    EXPECT_TRUE(show(fileName, true, false));
    EXPECT_EQ(fileName, u"/in/a.txt"_s);

    m_dialogs.chosen = u" /in\0a.txt\0b.txt\0c.txt"_s;
    fileName.clear();
    EXPECT_TRUE(show(fileName, true, true));
    EXPECT_EQ(fileName, u"/in\0a.txt\0b.txt\0c.txt"_s + QString(4096 - 22, QChar::Null));
}

TEST_F(ShowOpenDialogTest, ANameFillsTheBufferAndALongerOneIsAFaultThatShowsNothing)
{
    m_dialogs.confirms = false;
    QString fits(260, u'x');
    EXPECT_FALSE(show(fits, false, false));
    EXPECT_EQ(fits, QString(260, u'x')) << "cancelled";
    m_dialogs.request = {};
    QString tooLong(261, u'x');
    EXPECT_THROW(show(tooLong, false, false), RuntimeError);
    EXPECT_TRUE(m_dialogs.request.buffer.isEmpty());
}
