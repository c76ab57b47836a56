// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "drivers/RunDriver.h"
#include "session/Record.h"
#include "subject/SubjectWindow.h"

/// A run whose subject window is open, on the screen and has the keyboard, so that the window
/// system decides who gets mouse and keys.
class ShownRun {
public:
    ShownRun();

    /// The trials answered so far.
    const QVector<Record>& records();

    MainWindow window;
    RunDriver driver;
    SubjectWindow& subject;
    bool isShown;
};
