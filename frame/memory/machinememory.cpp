#include "frame/memory/machinememory.h"

#include <QFile>

namespace {

/** A line of the form "MemTotal:       16310236 kB". */
qint64 BytesOf(const QList<QByteArray>& lines, const QByteArray& name)
{
    constexpr qint64 KILOBYTE = 1024;
    for (const QByteArray& line : lines)
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').value(0).toLongLong() * KILOBYTE;
    return 0;
}

} // namespace

SMachineMemory GetMachineMemory()
{
    QFile file("/proc/meminfo");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QList<QByteArray> lines = file.readAll().split('\n');
    const qint64 nAvailable = BytesOf(lines, "MemAvailable"); // since Linux 3.14
    return {BytesOf(lines, "MemTotal"), nAvailable > 0 ? nAvailable : BytesOf(lines, "MemFree")};
}
