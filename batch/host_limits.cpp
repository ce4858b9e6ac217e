#include "batch/host_limits.h"

#include <QUrl>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vistrel
{

std::optional<HostLimits::Time> HostLimits::freeAt(const QString& host, Time now) const
{
    const auto known = m_hosts.constFind(host);
    if (host.isEmpty() || known == m_hosts.constEnd()) return now;
    if (m_mostPages > 0 && known->pages >= m_mostPages) return std::nullopt;
    if (m_delay.count() > 0 && known->visitComes) return std::nullopt;
    return std::max(now, known->lastVisit + m_delay);
}

void HostLimits::start(const QString& host, Time now)
{
    if (!areOn() || host.isEmpty()) return;
    Host& known = m_hosts[host];
    ++known.pages;
    known.lastVisit = now;
    known.visitComes = true;
}

void HostLimits::visit(const QString& host, Time now)
{
    const auto known = m_hosts.find(host);
    if (known == m_hosts.end()) return;
    known->lastVisit = now;
    known->visitComes = false;
}

void HostLimits::end(const QString& host, Time now)
{
    const auto known = m_hosts.find(host);
    if (known == m_hosts.end()) return;
    if (--known->pages == 0) known->visitComes = false;
    forgetIdle(now);
}

void HostLimits::forgetIdle(Time now)
{
    m_hosts.removeIf([&](const QHash<QString, Host>::iterator& host) {
        return host->pages == 0 && host->lastVisit + m_delay <= now;
    });
}

QString hostOf(const QString& target)
{
    if (target.startsWith(u'/') || target.startsWith(u"file:", Qt::CaseInsensitive)) return {};
    return QUrl::fromUserInput(target).host();
}

} // namespace vistrel
