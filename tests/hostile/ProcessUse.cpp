// SPDX-License-Identifier: GPL-3.0-or-later
// The processor's time, memory and open files of this process.
#include "hostile/ProcessUse.h"

#include <QDir>
#include <QFile>

#include <cstddef>
#include <ctime>

#if defined(UNDER_SANITIZERS)

extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // GCC brings no header for it
#endif

namespace {

// A line such as "VmHWM:     1024 kB".
qint64 statusBytes(const QByteArray& name)
{
    constexpr qint64 bytesPerKilobyte = 1024;
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        qFatal("the process's status cannot be read");
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(name + ':'))
            return line.simplified().split(' ').at(1).toLongLong() * bytesPerKilobyte;
    }
    qFatal("the process's status has no %s", name.constData());
}

} // namespace

double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

qint64 memoryInUse()
{
#if defined(UNDER_SANITIZERS)
    return static_cast<qint64>(__sanitizer_get_current_allocated_bytes());
#else
    return statusBytes("VmRSS");
#endif
}

qint64 peakMemory()
{
    return statusBytes("VmHWM");
}

int openDescriptors()
{
    const QDir folder("/proc/self/fd");
    return folder.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}
