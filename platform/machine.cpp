#include "platform/machine.h"

#include <QByteArrayList>
#include <QFile>

#include <algorithm>
#include <limits>

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

} // namespace vistrel
