#include "batch/journal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

// Values of column "state"; 1 is an entry whose files are being written.
constexpr int kPending = 0;
constexpr int kConverted = 2;
constexpr int kFailed = 3;

const QString kFileName = u".vistrel-journal.sqlite"_s;
const QString kEarlierName = u".vistrel-journal.earlier.sqlite"_s;

constexpr std::array kTables{
    "CREATE TABLE option (position INTEGER PRIMARY KEY, name TEXT NOT NULL, value TEXT NOT NULL)",
    "CREATE TABLE name (key TEXT PRIMARY KEY, next INTEGER NOT NULL DEFAULT 1) WITHOUT ROWID",
    "CREATE TABLE entry (number INTEGER PRIMARY KEY, list TEXT NOT NULL, line INTEGER NOT NULL,"
    " text TEXT NOT NULL, target TEXT NOT NULL, problem TEXT NOT NULL, name TEXT NOT NULL,"
    " state INTEGER NOT NULL DEFAULT 0, begun INTEGER NOT NULL DEFAULT 0, reason TEXT, note TEXT, file TEXT,"
    " thumbnail TEXT, width INTEGER, height INTEGER, bytes INTEGER, hash TEXT, started INTEGER,"
    " milliseconds INTEGER, attempts INTEGER, address TEXT, status INTEGER)",
    "CREATE INDEX waiting ON entry (number) WHERE state = 0"};

Entry entryOf(const Database::Row& row)
{
    return {row.integer(0), row.integer(1), row.text(2), row.text(3), row.text(4), row.text(5)};
}

EntryState stateOf(qint64 state)
{
    if (state == kConverted) return EntryState::Converted;
    return state == kFailed ? EntryState::Failed : EntryState::Skipped;
}

Outcome outcomeOf(const Database::Row& row)
{
    Outcome outcome;
    outcome.state = stateOf(row.integer(6));
    outcome.reason = outcome.state == EntryState::Skipped ? u"the run was ended before"_s : row.text(7);
    outcome.note = row.text(8);
    outcome.file = row.text(9);
    outcome.thumbnail = row.text(10);
    outcome.size = QSize(int(row.integer(11)), int(row.integer(12)));
    outcome.bytes = row.integer(13);
    outcome.hash = row.text(14);
    outcome.started = row.integer(15);
    outcome.milliseconds = row.integer(16);
    outcome.attempts = int(row.integer(17));
    outcome.address = row.text(18);
    outcome.httpStatus = int(row.integer(19));
    return outcome;
}

/// Of a database's file, and of those that stay beside it when it could not be closed in order.
const QStringList kEndings{QString(), u"-wal"_s, u"-shm"_s, u"-journal"_s};

bool isLost(const QString& path)
{
    const QFileInfo file(path);
    return !file.isFile() || file.size() == 0;
}

void removeAll(const QString& path)
{
    for (const QString& ending : kEndings)
        QFile::remove(path + ending);
}

void moveAll(const QString& path, const QString& newPath)
{
    removeAll(newPath);
    for (const QString& ending : kEndings)
        QFile::rename(path + ending, newPath + ending);
}

} // namespace

QString Journal::pathIn(const QString& folder) { return QDir(folder).filePath(kFileName); }

Result<std::unique_ptr<Journal>> Journal::openFile(const QString& path)
{
    auto database = Database::open(path);
    if (!database) return database.error().during(u"opening the journal"_s);
    return std::unique_ptr<Journal>(new Journal(std::move(*database)));
}

Result<std::unique_ptr<Journal>> Journal::create(const QString& folder, const OptionValues& options)
{
    const QString path = pathIn(folder);
    QString setAside;
    if (QFileInfo::exists(path)) {
        auto earlier = openFile(path);
        if (!earlier && earlier.error().kind == Error::Kind::Closed) return earlier.error();
        const auto filled = earlier ? (*earlier)->isFilled() : Result<bool>(false);
        const auto tally = filled && *filled ? (*earlier)->tally() : Result<Tally>(Tally());
        if (earlier) earlier->reset();
        if (tally && tally->pending > 0) {
            setAside = QDir(folder).filePath(kEarlierName);
            moveAll(path, setAside);
        }
        removeAll(path);
    }
    auto journal = openFile(path);
    if (!journal) return journal.error();
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner); // Cookies may be among the options.
    const auto ready = (*journal)->setUp(options);
    if (!ready) return ready.error().during(u"writing the journal"_s);
    (*journal)->m_setAside = setAside;
    return journal;
}

Result<std::unique_ptr<Journal>> Journal::open(const QString& folder)
{
    const Error none{Error::Kind::Usage, u"there is no run to go on with in %1"_s.arg(folder), {}};
    const QString path = pathIn(folder);
    if (!QFileInfo::exists(path)) return none;
    auto journal = openFile(path);
    if (!journal) return journal.error();
    const auto filled = (*journal)->isFilled();
    if (!filled || !*filled) return none;
    return journal;
}

Result<void> Journal::setUp(const OptionValues& options)
{
    auto done = m_database->setFast(true);
    if (done) done = run("BEGIN");
    for (const char* sql : kTables) {
        if (done) done = run(sql);
    }
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        for (const QString& value : option.value()) {
            if (done) done = run("INSERT INTO option (name, value) VALUES (?, ?)", {option.key(), value});
        }
    }
    return done ? run("COMMIT") : done;
}

/// The version is set when the file is made safe after its filling, and not before.
Result<bool> Journal::isFilled()
{
    bool filled = false;
    const QMutexLocker lock(&m_mutex);
    const auto asked = m_database->query("PRAGMA user_version", {},
                                         [&](const Database::Row& row) { filled = row.integer(0) > 0; });
    if (!asked) return asked.error();
    return filled;
}

Result<OptionValues> Journal::options()
{
    OptionValues options;
    const QMutexLocker lock(&m_mutex);
    const auto asked =
        m_database->query("SELECT name, value FROM option ORDER BY position", {},
                          [&](const Database::Row& row) { options[row.text(0)].append(row.text(1)); });
    if (!asked) return asked.error();
    return options;
}

Result<void> Journal::run(const char* sql, const QVariantList& values)
{
    const QMutexLocker lock(&m_mutex);
    return m_database->run(sql, values);
}

Result<void> Journal::beginFilling() { return run("BEGIN"); }

Result<void> Journal::add(const Entry& entry, const QString& name)
{
    return run("INSERT INTO entry (number, line, list, text, target, problem, name)"
               " VALUES (?, ?, ?, ?, ?, ?, ?)",
               {entry.number, entry.line, entry.list, entry.text, entry.target, entry.problem, name});
}

Result<void> Journal::endFilling()
{
    const auto done = run("COMMIT");
    if (!done) return done;
    const QMutexLocker lock(&m_mutex);
    return m_database->setFast(false);
}

Result<bool> Journal::claim(const QString& key)
{
    const QMutexLocker lock(&m_mutex);
    const auto done = m_database->run("INSERT OR IGNORE INTO name (key) VALUES (?)", {key});
    if (!done) return done.error();
    return m_database->changes() == 1;
}

Result<qint64> Journal::nextNumber(const QString& key)
{
    qint64 number = 1;
    const QMutexLocker lock(&m_mutex);
    const auto asked = m_database->query(
        "INSERT INTO name (key, next) VALUES (?, 2) ON CONFLICT (key) DO UPDATE SET next = next + 1"
        " RETURNING next - 1",
        {key}, [&](const Database::Row& row) { number = row.integer(0); });
    if (!asked) return asked.error();
    return number;
}

Result<void> Journal::putBack(bool failedToo, const FilesOf& filesOf)
{
    const auto begun = run("UPDATE entry SET state = 0 WHERE state = 1");
    if (!begun) return begun;
    if (failedToo) {
        const auto failed = run("UPDATE entry SET state = 0 WHERE state = 3");
        if (!failed) return failed;
    }
    return putBackLostFiles(filesOf);
}

Result<void> Journal::putBackLostFiles(const FilesOf& filesOf)
{
    QList<qint64> lost;
    {
        const QMutexLocker lock(&m_mutex);
        const auto asked = m_database->query("SELECT number, name FROM entry WHERE state = 2", {},
                                             [&](const Database::Row& row) {
                                                 const QStringList files = filesOf(row.text(1));
                                                 if (std::any_of(files.begin(), files.end(), isLost))
                                                     lost.append(row.integer(0));
                                             });
        if (!asked) return asked;
    }
    for (const qint64 number : lost) {
        const auto done = run("UPDATE entry SET state = 0 WHERE number = ?", {number});
        if (!done) return done;
    }
    return {};
}

Result<QList<PendingEntry>> Journal::pending(qint64 after, int count)
{
    QList<PendingEntry> entries;
    const QMutexLocker lock(&m_mutex);
    const auto asked =
        m_database->query("SELECT number, line, list, text, target, problem, name, begun FROM entry"
                          " WHERE state = 0 AND number > ? ORDER BY number LIMIT ?",
                          {after, count}, [&](const Database::Row& row) {
                              entries.append({entryOf(row), row.text(6), row.integer(7) != 0});
                          });
    if (!asked) return asked.error();
    return entries;
}

Result<void> Journal::begin(qint64 number, const QString& name)
{
    return run("UPDATE entry SET state = 1, begun = 1, name = ? WHERE number = ?", {name, number});
}

Result<void> Journal::finish(qint64 number, const Outcome& outcome)
{
    const int state = outcome.state == EntryState::Converted ? kConverted
                      : outcome.state == EntryState::Failed  ? kFailed
                                                             : kPending;
    return run("UPDATE entry SET state = ?, reason = ?, note = ?, file = ?, thumbnail = ?, width = ?,"
               " height = ?, bytes = ?, hash = ?, started = ?, milliseconds = ?, attempts = ?, address = ?,"
               " status = ? WHERE number = ?",
               {state, outcome.reason, outcome.note, outcome.file, outcome.thumbnail, outcome.size.width(),
                outcome.size.height(), outcome.bytes, outcome.hash, outcome.started, outcome.milliseconds,
                outcome.attempts, outcome.address, outcome.httpStatus, number});
}

Result<Tally> Journal::tally()
{
    Tally tally;
    const QMutexLocker lock(&m_mutex);
    const auto asked = m_database->query("SELECT total(state = 2), total(state = 3), count(*) FROM entry", {},
                                         [&](const Database::Row& row) {
                                             tally.converted = row.integer(0);
                                             tally.failed = row.integer(1);
                                             tally.pending = row.integer(2) - tally.converted - tally.failed;
                                         });
    if (!asked) return asked.error();
    return tally;
}

Result<void> Journal::forEach(const std::function<void(const Entry& entry, const Outcome& outcome)>& visit)
{
    const QMutexLocker lock(&m_mutex);
    return m_database->query(
        "SELECT number, line, list, text, target, problem, state, reason, note, file, thumbnail, width, "
        "height,"
        " bytes, hash, started, milliseconds, attempts, address, status FROM entry ORDER BY number",
        {}, [&](const Database::Row& row) { visit(entryOf(row), outcomeOf(row)); });
}

} // namespace vistrel
