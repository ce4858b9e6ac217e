#include "bench/tree_memory.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr std::chrono::milliseconds kInterval{10};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The value of a line "Name:  N kB", in bytes; 0 where there is none.
qint64 bytesOf(const QByteArray& text, const QByteArray& name)
{
    const qsizetype line = text.indexOf(name);
    if (line < 0) return 0;
    const qsizetype value = line + name.size();
    return text.mid(value, text.indexOf("kB", value) - value).trimmed().toLongLong() * 1024;
}

QList<QByteArray> childrenOf(qint64 processId)
{
    QList<QByteArray> children;
    const QDir tasks(u"/proc/%1/task"_s.arg(processId));
    for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        children += contentOf(tasks.filePath(task + u"/children"_s)).simplified().split(' ');
    children.removeAll({});
    return children;
}

qint64 treeBytes(qint64 processId)
{
    qint64 bytes = bytesOf(contentOf(u"/proc/%1/smaps_rollup"_s.arg(processId)), "\nPss:");
    for (const QByteArray& child : childrenOf(processId))
        bytes += treeBytes(child.toLongLong());
    return bytes;
}

} // namespace

TreeMemory::TreeMemory(qint64 processId) : m_thread([this, processId] { watch(processId); }) {}

TreeMemory::~TreeMemory()
{
    m_ended = true;
    m_thread.join();
}

void TreeMemory::watch(qint64 processId)
{
    while (!m_ended) {
        m_peakBytes = std::max(qint64(m_peakBytes), treeBytes(processId));
        std::this_thread::sleep_for(kInterval);
    }
}

void resetOwnPeak()
{
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly)) file.write("5"); // proc(5): sets VmHWM back.
}

qint64 ownPeakBytes() { return bytesOf(contentOf(u"/proc/self/status"_s), "\nVmHWM:"); }

} // namespace vistrel
