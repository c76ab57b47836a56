// SPDX-License-Identifier: GPL-3.0-or-later
// Plays recorded runs without sound until it is killed. Prints how many lines of the run under way
// have been written, after each step. With a second folder, records are kept there where the first
// is gone; with "die" in its place the program dies at the 100th byte of a file.
#include "drivers/RunDriver.h"
#include "session/FlightRecorder.h"
#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QApplication>

#include <csignal>
#include <cstdio>
#include <memory>
#include <sys/resource.h>

namespace {

class Victim {
public:
    Victim(const QString& folder, const QString& otherFolder)
        : m_recorder(m_window, folder, 1, {otherFolder})
        , m_driver(m_window)
    {
        type(m_window, "lineEditStdDuration", "10");
        type(m_window, "lineEditDevDuration", "10");
    }

    // Of each trial: three sounds start and end, the fourth starts; then four lines come at once.
    void play()
    {
        m_driver.open();
        wrote(1);
        m_driver.beReady();
        wrote(1);
        for (int trial = 0;; ++trial) {
            for (int i = 0; i < 3; ++i) {
                m_driver.startSound();
                wrote(1);
                m_driver.endSound();
                wrote(1);
            }
            m_driver.startSound();
            wrote(1);
            m_driver.endSound();
            wrote(0);
            m_driver.answerRightly(true);
            wrote(4);
        }
    }

private:
    void wrote(int nLines)
    {
        QCoreApplication::processEvents();
        m_lines += nLines;
        std::printf("%s %d\n", qUtf8Printable(m_recorder.recordName()), m_lines);
        std::fflush(stdout);
    }

    MainWindow m_window;
    FlightRecorder m_recorder;
    RunDriver m_driver;
    int m_lines = 0;
};

void limitFiles()
{
    constexpr rlim_t mostBytes = 100;
    const rlimit noCore {0, 0};
    const rlimit small {mostBytes, mostBytes};
    std::signal(SIGXFSZ, SIG_DFL);
    ::setrlimit(RLIMIT_CORE, &noCore);
    ::setrlimit(RLIMIT_FSIZE, &small); // a signal ends a program that writes more
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    Victim victim(arguments.value(1), arguments.value(2));
    if (arguments.value(2) == "die")
        limitFiles();
    victim.play();
    return 0;
}
