// SPDX-License-Identifier: GPL-3.0-or-later
// The resident memory of the application after start-up and after each of 100 runs, a line each.
#include "drivers/RunDriver.h"
#include "support/MainWindowProbe.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>

#include <iostream>

namespace {

// Resident memory of this process and what of it is shared with the display, KiB.
void writeMemory()
{
    QFile status("/proc/self/status");
    status.open(QIODevice::ReadOnly);
    const QString text = QString::fromLatin1(status.readAll());
    for (const char* const field : {"VmRSS:", "RssShmem:"}) {
        std::cout << text.section(field, 1).section("kB", 0, 0).toLongLong() << ' ';
    }
    std::cout << '\n';
}

// Alternate answers are the shortest way to the last reversal.
void playRun(MainWindow& window)
{
    window.refreshMainWindow();
    RunDriver run(window);
    run.open();
    run.beReady();
    const Data& data = Probe::data(window);
    while (data.reversalCount < data.nReversals) {
        run.playTrial();
        run.answerRightly(data.nTrials % 2 == 0);
    }
    QCoreApplication::processEvents();
    // Outside an event loop, what is to be deleted later waits for this.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Probe::subjectWindow(window)->hide();
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QLoggingCategory::setFilterRules("*.debug=false");
    MainWindow window;
    window.show();
    QCoreApplication::processEvents();
    writeMemory();
    constexpr int nRuns = 100;
    for (int i = 0; i < nRuns; ++i) {
        playRun(window);
        writeMemory();
    }
    return 0;
}
