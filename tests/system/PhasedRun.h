// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/RunDriver.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

class MainWindow;
class ModalBoxes;

/// A point of a run at which something may happen to it.
struct Phase {
    const char* name;
    bool isReady; ///< the listener has pressed "I am ready"
    int nAnswers; ///< trials answered so far
    int nSounds; ///< sounds started in the trial that is on
    bool isSounding; ///< the end of the last of them was not reported yet
};

/// Every phase of a PhasedRun, in order, from the opened subject window to the shown result.
const QVector<Phase>& phasesOfARun();

/// Closes the main window as Quit does and runs the event loop to its end, as the program does.
void runToTheQuit(MainWindow& window);

/// A run of known answers that saves its trials. It is driven by slots and buttons, without
/// waiting, and can be left at every phase. The generator is where a new program has it and the
/// reaction times are 0, so that two such runs have the same outcome whatever came before them.
class PhasedRun {
public:
    enum Kind { noiseAndDepth, sinusoidAndDifference };

    /// Sets the panel. Window and boxes must outlive the run.
    PhasedRun(MainWindow& window, ModalBoxes& boxes, Kind kind);

    /// Answers the save dialog by another path than one of its own; an empty one cancels it.
    void saveTo(const QString& path) { m_path = path; }

    /// Presses View and Go.
    void open();
    /// Opens the run and plays it up to a phase.
    void playTo(const Phase& phase);
    /// Plays the opened run from where it is to its end.
    void playOn();

    /// What the run left, a line each: the states that were told, every field of the records, the
    /// reversals, the results, the trend, the last two sounds, the listener's text, the saved file.
    /// All numbers are exact.
    QStringList outcome();

private:
    void playTrial();
    void endSound();
    void answer();

    MainWindow& m_window;
    ModalBoxes& m_boxes;
    RunDriver m_driver;
    QSignalSpy m_states;
    QTemporaryDir m_folder;
    QString m_path;
    QElapsedTimer m_sinceEnd;
    int m_foreignClocks = 0;
};
