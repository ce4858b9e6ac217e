#include "batch/entry_queue.h"

#include "platform/machine.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr int kReadAtOnce = 256;
/// How far an entry whose host is busy may be overtaken.
constexpr qsizetype kMostWaiting = 1024;
/// Memory, and hosts whose time comes, are looked at this often.
constexpr auto kLookAgain = std::chrono::milliseconds(250);

} // namespace

EntryQueue::EntryQueue(Journal& journal, HostLimits limits, qint64 memoryReserve)
    : m_journal(journal), m_limits(std::move(limits)), m_memoryReserve(memoryReserve)
{
    m_clock.start();
    m_lookAgain.setSingleShot(true);
    m_lookAgain.setInterval(kLookAgain);
    connect(&m_lookAgain, &QTimer::timeout, this, &EntryQueue::wakeAll);
}

Task<EntryQueue::Taken> EntryQueue::take()
{
    while (!m_stopped) {
        Taken taken = pick();
        if (*taken) co_return taken;
        if (!m_exhausted && m_waiting.size() < kMostWaiting) {
            const auto read = readMore();
            if (!read) co_return read.error();
            continue;
        }
        if (isDone()) break;
        const Completion<void> waiter = m_waiters.emplaceBack();
        if (!m_lookAgain.isActive()) m_lookAgain.start();
        const auto woken = co_await waiter;
        if (!woken) co_return woken.error();
    }
    const Taken none = std::optional<PendingEntry>();
    co_return none;
}

Result<void> EntryQueue::readMore()
{
    const auto read = m_journal.pending(m_lastRead, kReadAtOnce);
    if (!read) return read.error();
    m_exhausted = read->size() < kReadAtOnce;
    if (!read->isEmpty()) m_lastRead = read->last().entry.number;
    m_waiting += *read;
    return {};
}

std::optional<PendingEntry> EntryQueue::pick()
{
    if (m_running > 0 && mustWait()) return std::nullopt;
    const auto due = std::find_if(m_delayed.begin(), m_delayed.end(), [this](const Delayed& delayed) {
        return delayed.due <= now() && mayStart(delayed.entry);
    });
    std::optional<PendingEntry> picked;
    if (due != m_delayed.end()) {
        picked = std::move(due->entry);
        m_delayed.erase(due);
    } else {
        const auto next = std::find_if(m_waiting.begin(), m_waiting.end(),
                                       [this](const PendingEntry& entry) { return mayStart(entry); });
        if (next == m_waiting.end()) return std::nullopt;
        picked = std::move(*next);
        m_waiting.erase(next);
    }
    ++m_running;
    m_alone = picked->lostBrowser;
    m_limits.start(hostOf(picked->entry.target), now());
    return picked;
}

/// Whether nothing may be started before what is under way has ended.
bool EntryQueue::mustWait() const
{
    const auto runsAlone = [this](const Delayed& delayed) {
        return delayed.entry.lostBrowser && delayed.due <= now();
    };
    return m_alone || std::any_of(m_delayed.begin(), m_delayed.end(), runsAlone) || memoryIsShort();
}

bool EntryQueue::mayStart(const PendingEntry& entry)
{
    const auto time = m_limits.freeAt(hostOf(entry.entry.target), now());
    return time && *time <= now();
}

bool EntryQueue::memoryIsShort() const
{
    return m_memoryReserve > 0 && availableMemoryBytes() < m_memoryReserve;
}

bool EntryQueue::isDone() const
{
    return m_exhausted && m_waiting.isEmpty() && m_delayed.isEmpty() && m_running == 0;
}

void EntryQueue::wakeAll()
{
    const auto waiters = std::exchange(m_waiters, {});
    for (const Completion<void>& waiter : waiters)
        waiter.settle({});
}

void EntryQueue::visit(const PendingEntry& entry) { m_limits.visit(hostOf(entry.entry.target), now()); }

void EntryQueue::release(const PendingEntry& entry)
{
    --m_running;
    m_limits.end(hostOf(entry.entry.target), now());
    wakeAll();
}

void EntryQueue::putBack(PendingEntry entry, Time pause)
{
    --m_running;
    m_limits.end(hostOf(entry.entry.target), now());
    m_delayed.append({std::move(entry), now() + pause});
    wakeAll();
}

void EntryQueue::stop()
{
    m_stopped = true;
    wakeAll();
}

} // namespace vistrel
