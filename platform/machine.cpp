#include "platform/machine.h"

#include <QByteArrayList>
#include <QFile>

#include <algorithm>
#include <limits>
#include <utility>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint64 kUnknown = std::numeric_limits<qint64>::max();

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

qint64 machineMemory()
{
    for (const QByteArray& line : contentOf(u"/proc/meminfo"_s).split('\n')) {
        if (line.startsWith("MemAvailable:"))
            return line.simplified().split(' ').value(1).toLongLong() * 1024;
    }
    return kUnknown;
}

qint64 numberIn(const QString& path)
{
    bool known = false;
    const qint64 number = contentOf(path).trimmed().toLongLong(&known);
    return known ? number : kUnknown;
}

/// File contents kept in memory, which the system drops when it needs the room.
qint64 droppableBytes(const QString& groupFolder)
{
    for (const QByteArray& line : contentOf(groupFolder + u"/memory.stat"_s).split('\n')) {
        if (line.startsWith("inactive_file ")) return line.mid(14).toLongLong();
    }
    return 0;
}

/// What the process's control group (version 2), as containers have it, still allows.
qint64 groupMemory()
{
    const QByteArray line = contentOf(u"/proc/self/cgroup"_s).trimmed();
    if (!line.startsWith("0::")) return kUnknown;
    const QString folder = u"/sys/fs/cgroup"_s + QString::fromUtf8(line.mid(3));
    const qint64 limit = numberIn(folder + u"/memory.max"_s);
    const qint64 used = numberIn(folder + u"/memory.current"_s);
    if (limit == kUnknown || used == kUnknown) return kUnknown;
    return std::max<qint64>(0, limit - used + droppableBytes(folder));
}

} // namespace

qint64 availableMemoryBytes() { return std::min(machineMemory(), groupMemory()); }

// /proc/stat begins with "cpu" and the ticks of all processors: user, nice, system, idle, iowait, irq,
// softirq, steal, and two that the first ones hold already.
IdleMeter::Ticks IdleMeter::ticks()
{
    const QByteArray content = contentOf(u"/proc/stat"_s);
    const QByteArrayList fields =
        content.first(std::max<qsizetype>(content.indexOf('\n'), 0)).simplified().split(' ');
    Ticks ticks;
    for (qsizetype field = 1; field <= 8; ++field)
        ticks.all += fields.value(field).toLongLong();
    ticks.idle = fields.value(4).toLongLong() + fields.value(5).toLongLong();
    const bool niced = getpriority(PRIO_PROCESS, 0) > 0;
    if (!niced) ticks.idle += fields.value(2).toLongLong(); // Niced programs give way to us.
    return ticks;
}

double IdleMeter::share()
{
    const Ticks before = std::exchange(m_last, ticks());
    const qint64 all = m_last.all - before.all;
    return all > 0 ? std::clamp(double(m_last.idle - before.idle) / double(all), 0.0, 1.0) : 0;
}

} // namespace vistrel
