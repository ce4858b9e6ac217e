#pragma once

#include "batch/host_limits.h"
#include "batch/journal.h"
#include "capture/protocol/completion.h"
#include "capture/protocol/task.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace vistrel
{

/// Hands the waiting entries of a journal to the workers of a run, in list order as far as the limits for
/// hosts and the pauses before new attempts allow. It holds a few hundred entries, however many there are.
///
/// An entry that lost its browser is worked on alone, for it may be the one that brought the browser down.
class EntryQueue : public QObject
{
    Q_OBJECT
public:
    using Time = HostLimits::Time;
    using Taken = Result<std::optional<PendingEntry>>;

    /// journal must outlive this object. Work is held back while less than this much memory (bytes) is
    /// available; 0: never.
    EntryQueue(Journal& journal, HostLimits limits, qint64 memoryReserve);

    /// The next entry to work on; waits for one while others are under way that may come back. Nothing when
    /// all is done, or after stop(). Error::Kind::Io when the journal cannot be read.
    Task<Taken> take();

    /// The server of the entry that take() gave is asked for its page now.
    void visit(const PendingEntry& entry);
    /// The entry that take() gave is dealt with.
    void release(const PendingEntry& entry);
    /// It is to be given out again after pause.
    void putBack(PendingEntry entry, Time pause);

    void stop();

private:
    struct Delayed {
        PendingEntry entry;
        Time due;
    };
    [[nodiscard]] Result<void> readMore();
    [[nodiscard]] std::optional<PendingEntry> pick();
    [[nodiscard]] bool mustWait() const;
    [[nodiscard]] bool mayStart(const PendingEntry& entry);
    [[nodiscard]] bool memoryIsShort() const;
    [[nodiscard]] bool isDone() const;
    void wakeAll();
    [[nodiscard]] Time now() const { return Time(m_clock.elapsed()); }

    Journal& m_journal;
    HostLimits m_limits;
    qint64 m_memoryReserve;
    QElapsedTimer m_clock;
    QList<PendingEntry> m_waiting; // Read from the journal, in list order.
    QList<Delayed> m_delayed;      // Put back.
    QList<Completion<void>> m_waiters;
    QTimer m_lookAgain;    // Wakes the waiters when nothing else does.
    qint64 m_lastRead = 0; // Number of the last entry read.
    int m_running = 0;     // Given out and not released.
    bool m_alone = false;  // The one given out is worked on alone.
    bool m_exhausted = false;
    bool m_stopped = false;
};

} // namespace vistrel
