// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "PlainCharts.h"
#include "app/MainWindow.h"
#include "drivers/RunDriver.h"

#include <memory>

/// What a benchmark's run is made of; all else stands at its defaults.
struct RunSettings {
    int soundType = quorin::noiseCarrier;
    int mainParameter = quorin::modulationDepthParameter;
    double duration = 600.0; ///< of both sounds, ms
    double rate = 40000.0; ///< Hz
    bool isShown = true; ///< whether the main window is on the screen, as large as that
};

/// A main window with a run that has begun and never ends, whose trials are answered without sound.
/// One trial in five is answered wrongly.
class BenchRun {
public:
    /// How long one answer takes, s.
    struct Turnaround {
        double computing; ///< the new sounds and their spectra alone, made once more after it
        double armed; ///< until the pacing timer of the next trial runs
        double free; ///< until the event loop has nothing more to do: the charts are repainted
        double plain; ///< until it has, when plain charts show the same; 0 where nothing is shown
    };

    explicit BenchRun(const RunSettings& settings);

    /// Answers trials until the next one to answer has this number, counted from 1.
    void advanceTo(int trial);
    /// Answers one trial; nothing is repainted yet.
    void respond();
    /// Answers one trial and lets the event loop come to rest.
    Turnaround answer();

    MainWindow& window() { return m_window; }

private:
    double showPlainly();

    MainWindow m_window;
    RunDriver m_driver {m_window}; // no tick comes in between
    std::unique_ptr<PlainCharts> m_plainCharts; ///< of a window that is shown
};
