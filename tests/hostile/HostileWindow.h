// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "drivers/RunDriver.h"
#include "hostile/Combination.h"
#include "hostile/WindowState.h"
#include "support/ModalBoxes.h"

#include <functional>

/// A window that gets bad input, and its state when it gets good input again. Measures the
/// processor's time of every step.
class HostileWindow {
public:
    /// @param isShown whether the window is shown, so that its charts are painted
    /// @param transformLength of the spectra, a power of two
    HostileWindow(bool isShown, int transformLength);

    /// Types one text with the deviant's fields in force, presses View and paints.
    void type(const PanelField& field, const HostileText& text);
    /// Makes the choices, types the texts and does the steps of a combination.
    void undergo(const Combination& combination);

    /// Types the good texts and presses View, with Qt's generator where an unseeded program starts.
    WindowState stateWhenMended();
    /// The same after a first trial that was heard and answered rightly; the run is then closed.
    WindowState stateAfterATrial();

    /// The step that took longest, s, and what it was.
    double longestStep() const { return m_longestStep; }
    QString longestStepName() const { return m_longestStepName; }

private:
    void step(const QString& name, const std::function<void()>& action);
    void perform(QChar letter);
    void performInRun(QChar letter);
    void choose(const Combination& combination);
    void closeSubject(QMessageBox::StandardButton answer);

    ModalBoxes m_boxes;
    MainWindow m_window;
    RunDriver m_driver;
    double m_longestStep = 0.0;
    QString m_longestStepName;
};
