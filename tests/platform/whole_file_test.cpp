#include "platform/whole_file.h"

#include "tests/support/temp_folder.h"

#include <QDir>

#include <limits>

using namespace Qt::StringLiterals;

namespace vistrel::test
{
namespace
{

using Cause = WriteProblem::Cause;

QStringList filesIn(const TempFolder& folder)
{
    return QDir(folder.path({})).entryList(QDir::Files | QDir::Hidden);
}

TEST(WholeFile, NothingShowsUntilItHasItsNameAndOtherFilesAreRespected)
{
    const TempFolder folder;
    const QString taken = folder.write(u"taken"_s, "another's");
    {
        WholeFile file(folder.path({}));
        ASSERT_TRUE(file.isOpen());
        EXPECT_EQ(file.write("-----part"), 9);
        EXPECT_TRUE(file.seek(0));
        EXPECT_EQ(file.write("whole"), 5);
        EXPECT_EQ(file.size(), 9);
        EXPECT_EQ(file.moveTo(taken, IfExists::Refuse)->cause, Cause::Exists);
        EXPECT_FALSE(file.moveTo(folder.path(u"first"_s), IfExists::Refuse));
        file.takeBack();
        EXPECT_FALSE(QFile::exists(folder.path(u"first"_s)));
        EXPECT_FALSE(file.moveTo(folder.path(u"second"_s), IfExists::Replace));
        file.takeBack();
        EXPECT_FALSE(QFile::exists(folder.path(u"second"_s)));
        EXPECT_FALSE(file.moveTo(folder.path(u"third"_s), IfExists::Refuse));
        EXPECT_TRUE(file.seek(0));
        EXPECT_EQ(file.readAll(), "wholepart"); // Named or not, it can be read.
    }
    EXPECT_EQ(folder.read(u"third"_s), "wholepart");
    EXPECT_EQ(folder.read(u"taken"_s), "another's");
    EXPECT_EQ(filesIn(folder), QStringList({u"taken"_s, u"third"_s}));
}

TEST(WholeFile, WhatFailsOnceIsNotGivenAName)
{
    const TempFolder folder;
    WholeFile nowhere(folder.path(u"missing"_s));
    EXPECT_FALSE(nowhere.isOpen());
    EXPECT_EQ(nowhere.problem()->cause, Cause::FolderGone);
    EXPECT_TRUE(nowhere.problem()->message.contains(folder.path(u"missing"_s)));

    WholeFile file(folder.path({}));
    EXPECT_TRUE(file.seek(std::numeric_limits<qint64>::max() - 10)); // More than any file system holds.
    EXPECT_EQ(file.write("text"), -1);
    EXPECT_TRUE(file.seek(0));
    EXPECT_EQ(file.write("text"), 4);
    EXPECT_EQ(file.problem()->cause, Cause::Other);
    EXPECT_TRUE(file.moveTo(folder.path(u"name"_s), IfExists::Replace));
    EXPECT_FALSE(QFile::exists(folder.path(u"name"_s)));
}

} // namespace
} // namespace vistrel::test
