// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drivers/RunDriver.h"
#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QString>

/// A window ready for a run of one main parameter, which the test answers by calling the listener's
/// slot. The sounds are short and the first one is never reached.
class SilentRun {
public:
    explicit SilentRun(int mainParameter)
        : data(Probe::data(window))
        , driver(window)
    {
        if (mainParameter == quorin::carrierFrequencyParameter) {
            comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(quorin::sinusoidCarrier);
            comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(mainParameter);
        }
        type(window, "lineEditStdDuration", "10");
        type(window, "lineEditDevDuration", "10");
        buttonOf(window, "pushButtonView")->click();
    }

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

    QString depthField() const { return textOf(window, "lineEditDevModDepth"); }
    QString differenceField() const { return textOf(window, "lineEditDevFreqDiff"); }
    QString carrierField() const { return textOf(window, "lineEditDevCarrierFreq"); }

    MainWindow window;
    Data& data;
    RunDriver driver;
};
