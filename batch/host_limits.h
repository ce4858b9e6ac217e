#pragma once

#include <QHash>
#include <QString>

#include <chrono>
#include <optional>

namespace vistrel
{

/// Keeps a run polite: how many pages of one host are under way, and how soon it may be asked for the next
/// one. Hosts that are idle are forgotten. Time is whatever clock the caller uses, as long as it never goes
/// back.
class HostLimits
{
public:
    using Time = std::chrono::milliseconds;

    /// mostPages at a time (0: any number), visits at least delay apart.
    HostLimits(int mostPages, Time delay) : m_mostPages(mostPages), m_delay(delay) {}

    /// When a page of host may start: now or later; nothing while too many of its pages are under way, or
    /// visits are to be apart and one that has started has yet to come. Local pages, whose host is empty,
    /// always may.
    [[nodiscard]] std::optional<Time> freeAt(const QString& host, Time now) const;

    void start(const QString& host, Time now);
    /// A page that has started is asked for now.
    void visit(const QString& host, Time now);
    void end(const QString& host, Time now);

private:
    struct Host {
        int pages = 0;
        Time lastVisit{0};
        bool visitComes = false; // From start() to visit(); when none comes, to the end of all pages.
    };
    [[nodiscard]] bool areOn() const { return m_mostPages > 0 || m_delay.count() > 0; }
    void forgetIdle(Time now);

    int m_mostPages;
    Time m_delay;
    QHash<QString, Host> m_hosts; // Added by start(); removed when idle for longer than the delay.
};

/// The host that an entry's target is asked from; empty for local files.
[[nodiscard]] QString hostOf(const QString& target);

} // namespace vistrel
