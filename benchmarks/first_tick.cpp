// SPDX-License-Identifier: GPL-3.0-or-later
// How late the first tick after an answer comes while the charts are repainted, in ms: a line for
// each kind of sound and each T, and one for the repainting alone.
#include "BenchRun.h"
#include "support/MainWindowProbe.h"

#include <QApplication>
#include <QEventLoop>
#include <QLoggingCategory>
#include <QTimer>

#include <chrono>
#include <iostream>

using namespace quorin;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int nAnswers = 30;

double msSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

RunSettings settingsOf(int soundType)
{
    RunSettings settings;
    settings.soundType = soundType;
    settings.mainParameter
        = soundType == noiseCarrier ? modulationDepthParameter : carrierFrequencyParameter;
    settings.duration = 50.0;
    return settings;
}

// From the start of the pacing timer until the event loop has nothing more to do.
void writeRepaintings(BenchRun& run)
{
    for (int i = 0; i < nAnswers; ++i) {
        const BenchRun::Turnaround turnaround = run.answer();
        std::cout << ' ' << (turnaround.free - turnaround.armed) * 1e3;
    }
}

// The timer's tick is watched instead of playing a sound.
void writeLatenesses(BenchRun& run, int periodMs)
{
    MainWindow& window = run.window();
    Data& data = Probe::data(window);
    constexpr double rounding = 1e-6; // the period is cut to whole ms
    data.silentInterval = periodMs / 1e3 - data.dur[deviant] + rounding;
    QTimer& timer = *Probe::timerPlay(window);
    timer.disconnect();
    QEventLoop loop;
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    for (int i = 0; i < nAnswers; ++i) {
        run.respond();
        const Clock::time_point start = Clock::now();
        loop.exec();
        std::cout << ' ' << msSince(start) - periodMs;
        timer.stop();
        QCoreApplication::processEvents();
        QCoreApplication::processEvents(); // finds what the first one posted
    }
}

// Sounds of 50 ms fill their charts. The panel allows no shorter period than that; here it shows
// what a slower repainting would do.
void writeRows(const char* name, int soundType)
{
    BenchRun run(settingsOf(soundType));
    run.advanceTo(20);
    std::cout << name << " repainting";
    writeRepaintings(run);
    std::cout << '\n';
    for (const int periodMs : {20, 40, 60, 80, 100, 140, 180, 400}) {
        std::cout << name << ' ' << periodMs;
        writeLatenesses(run, periodMs);
        std::cout << '\n';
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    QLoggingCategory::setFilterRules("*.debug=false");
    writeRows("noise", noiseCarrier);
    writeRows("sinusoid", sinusoidCarrier);
    return 0;
}
