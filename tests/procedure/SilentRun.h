// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DrivenRun.h"
#include "support/WindowWidgets.h"

#include <QString>

/// A window ready for a run of one main parameter, which the test answers by calling the listener's
/// slot. The sounds are short and the first one is never reached.
struct SilentRun : DrivenRun {
    explicit SilentRun(int mainParameter)
    {
        if (mainParameter == quorin::carrierFrequencyParameter) {
            choose(window, quorin::sinusoidCarrier, mainParameter);
        }
        typeDurations(window, "10");
        view();
    }

    /// A run of so many reversals, of which the last ones are averaged: 8 or all unless told.
    SilentRun(int mainParameter, int nReversals, int nToCalculate = 8)
        : SilentRun(mainParameter)
    {
        type(window, "lineEditNReversals", QString::number(nReversals));
        type(window, "lineEditNReversalsToCalc", QString::number(nToCalculate));
        view();
    }

    void view() const { buttonOf(window, "pushButtonView")->click(); }

    /// "I am ready": starts the first trial.
    void begin() { window.updateMainwindow(0); }

    /// Answers the trial being played.
    void answer(bool isCorrect) { driver.answerUnheard(isCorrect); }

    /// Starts a run and answers its trials: 'c' is correct, any other character wrong.
    void play(const QString& answers)
    {
        begin();
        for (const QChar character : answers) {
            answer(character == 'c');
        }
    }
};
