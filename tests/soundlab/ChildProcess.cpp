// SPDX-License-Identifier: GPL-3.0-or-later
// Processes that end with the test that started them.
#include "soundlab/ChildProcess.h"

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#endif

namespace {

constexpr int patienceMs = 5000;

}

ChildProcess::ChildProcess(QObject* parent)
    : QProcess(parent)
{
}

ChildProcess::~ChildProcess()
{
    end();
}

void ChildProcess::end()
{
    if (state() == QProcess::NotRunning)
        return;
    terminate();
    if (waitForFinished(patienceMs))
        return;
    kill();
    waitForFinished(patienceMs);
}

QString ChildProcess::whatFailed()
{
    const QString reason = error() == QProcess::FailedToStart
        ? errorString()
        : QString::fromLocal8Bit(readAllStandardError());
    return program() + ": " + reason;
}

void ChildProcess::setupChildProcess()
{
#ifdef Q_OS_LINUX
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    // A shell has its background commands ignore it, and so all that they start.
    std::signal(SIGINT, SIG_DFL);
    // A sound server that waits for the processor drops sound; this needs rights and may be
    // refused.
    constexpr int aheadOfOthers = -11;
    setpriority(PRIO_PROCESS, 0, aheadOfOthers);
#endif
}

void stopProcess(qint64 pid, int ms)
{
    const double seconds = ms / 1000.0;
    QProcess::startDetached("sh",
        {"-c", "kill -STOP $0; sleep $1; kill -CONT $0", QString::number(pid),
            QString::number(seconds)});
}
