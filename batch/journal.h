#pragma once

#include "batch/database.h"
#include "batch/entry.h"

#include <QMap>
#include <QMutex>

namespace vistrel
{

/// Options of a command line by their long names ("--format"; "LIST"), each with its values.
using OptionValues = QMap<QString, QStringList>;

/// An entry that waits for its turn.
struct PendingEntry {
    Entry entry;
    QString name;       ///< Of its files, without folder and ending; empty while it depends on the page.
    bool begun = false; ///< An earlier attempt may have written files of that name.
    int attempts = 0;   ///< Made and failed, in this run of the program.
    bool lostBrowser = false; ///< One attempt more was lost with its browser.
};

/// How many entries of a run ended in which way.
struct Tally {
    qint64 converted = 0;
    qint64 failed = 0;
    qint64 pending = 0;

    [[nodiscard]] qint64 all() const { return converted + failed + pending; }
};

/// A run's memory, in its output folder: what was asked for, every entry with what became of it, and the
/// names that are taken. It is a list snapshot, work queue and log in one, so a run that was cut off, however
/// that happened, goes on where it was. While it is open, no other process can open it. Any thread.
class Journal
{
public:
    /// Where the journal of a folder lies.
    [[nodiscard]] static QString pathIn(const QString& folder);

    /// Starts a journal for a new run; an earlier one gives way, and is kept under another name when its run
    /// was not finished.
    static Result<std::unique_ptr<Journal>> create(const QString& folder, const OptionValues& options);

    /// Opens the journal of an earlier run. Error::Kind::Usage when there is none.
    static Result<std::unique_ptr<Journal>> open(const QString& folder);

    /// Where create() keeps the unfinished run that gave way; empty when there was none.
    [[nodiscard]] const QString& setAside() const { return m_setAside; }

    /// The options that the run was started with.
    [[nodiscard]] Result<OptionValues> options();

    // ---- Filling: after a cut in between, there is no run to go on with ----
    Result<void> beginFilling();
    Result<void> add(const Entry& entry, const QString& name);
    Result<void> endFilling();

    /// Makes key taken; false when it is already.
    Result<bool> claim(const QString& key);
    /// The next number to try for a name whose key is taken, from 1; each call gives another one.
    Result<qint64> nextNumber(const QString& key);

    // ---- Running ----
    /// The files of the entry of a name.
    using FilesOf = std::function<QStringList(const QString& name)>;
    /// Puts back what was under way when the run was cut off, converted entries of whose files one is gone or
    /// empty, and, with failedToo, those that failed.
    Result<void> putBack(bool failedToo, const FilesOf& filesOf);
    /// The next entries that wait, in list order: those after the given number, at most count.
    Result<QList<PendingEntry>> pending(qint64 after, int count);
    /// Its files are about to be written under name.
    Result<void> begin(qint64 number, const QString& name);
    Result<void> finish(qint64 number, const Outcome& outcome);

    // ---- Telling ----
    Result<Tally> tally();
    /// Every entry in list order; those that still wait count as skipped.
    Result<void> forEach(const std::function<void(const Entry& entry, const Outcome& outcome)>& visit);

private:
    explicit Journal(std::unique_ptr<Database> database) : m_database(std::move(database)) {}
    static Result<std::unique_ptr<Journal>> openFile(const QString& path);
    Result<void> setUp(const OptionValues& options);
    Result<void> run(const char* sql, const QVariantList& values = {});
    Result<void> putBackLostFiles(const FilesOf& filesOf);
    [[nodiscard]] Result<bool> isFilled();

    QMutex m_mutex; // Held during each statement.
    std::unique_ptr<Database> m_database;
    QString m_setAside;
};

} // namespace vistrel
