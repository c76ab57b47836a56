// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/RunDriver.h"
#include "support/MainWindowProbe.h"

/// A window with the silent driver of its runs. No run is open.
struct DrivenRun {
    MainWindow window;
    RunDriver driver {window};
    Data& data = Probe::data(window); ///< the record of the session

    /// The listener's window of the current run; there must be one.
    SubjectWindow& subject() { return *Probe::subjectWindow(window); }
};
