// SPDX-License-Identifier: GPL-3.0-or-later
// Signals that ask the process to end, brought into the event loop.
#include "output/EndSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int writeEnd = -1;

// Little else may be called in a signal's handler.
void wakeLoop(int /*signal*/)
{
    const char byte = 0;
    static_cast<void>(::send(writeEnd, &byte, sizeof byte, MSG_DONTWAIT));
}

} // namespace

void endLoopOnSignals()
{
    int ends[2] = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        return;
    }
    writeEnd = ends[0];
    // Not qApp, which is a QApplication here: quorin-sound has none.
    QCoreApplication* const application = QCoreApplication::instance();
    auto* const notifier = new QSocketNotifier(ends[1], QSocketNotifier::Read, application);
    QObject::connect(notifier, &QSocketNotifier::activated, application, &QCoreApplication::quit);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        std::signal(signal, wakeLoop);
    }
}

void endAtOnceOnSecondInterrupt()
{
    struct sigaction action = {};
    action.sa_handler = wakeLoop;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    ::sigaction(SIGINT, &action, nullptr);
}
