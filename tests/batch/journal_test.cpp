#include "batch/entry_queue.h"
#include "batch/journal.h"

#include "tests/support/await.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

class JournalTest : public testing::Test
{
protected:
    void start(const QStringList& targets)
    {
        m_journal = *Journal::create(m_folder.path(), {{u"--format"_s, {u"png"_s}}});
        ASSERT_TRUE(m_journal->beginFilling());
        Entry entry;
        for (const QString& target : targets) {
            ++entry.number;
            entry.text = entry.target = target;
            ASSERT_TRUE(m_journal->add(entry, QString::number(entry.number)));
        }
        ASSERT_TRUE(m_journal->endFilling());
    }

    void reopen()
    {
        m_journal.reset();
        m_journal = *Journal::open(m_folder.path());
    }

    Outcome converted()
    {
        Outcome outcome;
        outcome.state = EntryState::Converted;
        return outcome;
    }

    QList<qint64> waiting()
    {
        QList<qint64> numbers;
        const auto pending = m_journal->pending(0, 100);
        for (const PendingEntry& entry : *pending)
            numbers.append(entry.entry.number);
        return numbers;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<Journal> m_journal;
};

TEST_F(JournalTest, WhatWasUnderWayOrIsGoneWaitsAgain)
{
    start({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    const auto filesOf = [this](const QString& name) {
        return QStringList{m_folder.filePath(name + u".png"_s), m_folder.filePath(name + u".jpg"_s)};
    };
    const auto write = [&](const QString& name, const QByteArray& png) {
        for (const QString& path : filesOf(name)) {
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(path.endsWith(u"png"_s) ? png : "jpeg");
        }
    };
    write(u"2"_s, "edited meanwhile");
    write(u"3"_s, "");
    write(u"4"_s, "png");
    QFile::remove(filesOf(u"4"_s).last());
    for (const qint64 number : {1, 2, 3, 4})
        ASSERT_TRUE(m_journal->begin(number, QString::number(number)));
    for (const qint64 number : {2, 3, 4})
        ASSERT_TRUE(m_journal->finish(number, converted()));
    ASSERT_TRUE(m_journal->finish(5, Outcome::failed(u"bad"_s)));
    reopen();
    ASSERT_TRUE(m_journal->putBack(false, filesOf));
    EXPECT_EQ(waiting(), (QList<qint64>{1, 3, 4}));
    EXPECT_TRUE(m_journal->pending(0, 1)->first().begun);
    ASSERT_TRUE(m_journal->putBack(true, filesOf));
    EXPECT_EQ(waiting(), (QList<qint64>{1, 3, 4, 5}));
    EXPECT_EQ(m_journal->options()->value(u"--format"_s), QStringList{u"png"_s});
}

TEST_F(JournalTest, ARunThatWasCutOffWhileItsListsWereReadIsNoRun)
{
    m_journal = *Journal::create(m_folder.path(), {});
    ASSERT_TRUE(m_journal->beginFilling());
    Entry entry;
    entry.number = 1;
    ASSERT_TRUE(m_journal->add(entry, {}));
    m_journal.reset();
    EXPECT_EQ(Journal::open(m_folder.path()).error().kind, Error::Kind::Usage);
    EXPECT_EQ(Journal::open(m_folder.filePath(u"nowhere"_s)).error().kind, Error::Kind::Usage);
}

TEST_F(JournalTest, AnUnfinishedRunIsKeptAsideByTheNextOne)
{
    start({u"a"_s});
    EXPECT_EQ(m_journal->setAside(), QString());
    m_journal.reset();
    start({u"b"_s});
    EXPECT_TRUE(QFile::exists(m_journal->setAside()));
    EXPECT_EQ(waiting(), QList<qint64>{1});
}

TEST_F(JournalTest, AJournalThatIsNoneIsAnErrorOrReplacedByANewRun)
{
    QFile file(Journal::pathIn(m_folder.path()));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(5000, 'x'));
    file.close();
    EXPECT_FALSE(Journal::open(m_folder.path()));
    EXPECT_TRUE(Journal::create(m_folder.path(), {}));
}

TEST_F(JournalTest, TheQueueKeepsToTheListAndComesToItsEnd)
{
    QStringList many;
    for (int i = 0; i < 600; ++i)
        many.append(u"page%1"_s.arg(i));
    start(many);
    EntryQueue queue(*m_journal, HostLimits(0, {}), 0);
    for (int i = 0; i < 600; ++i) {
        const auto taken = test::await(queue.take());
        ASSERT_TRUE(taken && *taken);
        EXPECT_EQ((*taken)->entry.number, i + 1);
        queue.release(**taken);
    }
    EXPECT_FALSE(*test::await(queue.take()));
}

TEST_F(JournalTest, ABusyHostIsOvertakenAndWhatWasPutBackComesAgain)
{
    start({u"http://a/1"_s, u"http://a/2"_s, u"http://b/1"_s});
    EntryQueue queue(*m_journal, HostLimits(1, {}), 0);
    const auto first = *test::await(queue.take());
    const auto second = *test::await(queue.take());
    EXPECT_EQ(first->entry.target, u"http://a/1"_s);
    EXPECT_EQ(second->entry.target, u"http://b/1"_s);
    queue.putBack(*first, std::chrono::milliseconds(100));
    const auto third = *test::await(queue.take());
    EXPECT_EQ(third->entry.target, u"http://a/2"_s);
    queue.release(*third);
    queue.release(*second);
    EXPECT_EQ((*test::await(queue.take()))->entry.target, u"http://a/1"_s);
}

TEST(HostLimits, VisitsOfOneHostAreApart)
{
    using Time = HostLimits::Time;
    HostLimits limits(2, Time(1000));
    limits.start(u"a"_s, Time(3000));
    EXPECT_EQ(limits.freeAt(u"a"_s, Time(4500)), std::nullopt) << "its visit has yet to come";
    limits.visit(u"a"_s, Time(5000));
    EXPECT_EQ(limits.freeAt(u"a"_s, Time(5100)), Time(6000));
    EXPECT_EQ(limits.freeAt(u"b"_s, Time(5100)), Time(5100));
    EXPECT_EQ(limits.freeAt({}, Time(5100)), Time(5100));
    limits.start(u"a"_s, Time(6000));
    EXPECT_EQ(limits.freeAt(u"a"_s, Time(9000)), std::nullopt);
    limits.end(u"a"_s, Time(6100));
    EXPECT_EQ(limits.freeAt(u"a"_s, Time(6100)), std::nullopt);
    limits.end(u"a"_s, Time(6100));
    EXPECT_EQ(limits.freeAt(u"a"_s, Time(6100)), Time(7000)) << "it ended without a visit";
    EXPECT_EQ(hostOf(u"/a/b.html"_s), QString());
    EXPECT_EQ(hostOf(u"example.org/x"_s), u"example.org"_s);
}

} // namespace

} // namespace vistrel
