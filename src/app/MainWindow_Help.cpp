// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's tool tips, accessible names and order of the Tab key.
#include "app/MainWindow.h"
#include "app/WindowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

void MainWindow::describePanel()
{
    describeInTabOrder({
        {comboBoxSesType, labelSesType, nullptr,
            "Practice or test: a word in the name of the results file, nothing else"},
        {comboBoxSoundType, labelSoundType, nullptr,
            "What both sounds are made of: a sinusoid or noise"},
        {comboBoxMainParameter, labelMainParameter, nullptr,
            "What of the deviant the answers change; noise has no carrier frequency to change"},
        {lineEditStdCarrierFreq, labelCarrierFreq, labelStandard,
            "Frequency of the standard's sinusoid in Hz; noise has none"},
        {lineEditDevCarrierFreq, labelCarrierFreq, labelDeviant,
            "Frequency of the deviant's sinusoid in Hz; the answers change it if it is the main "
            "parameter"},
        {lineEditStdModFreq, labelModFreq, labelStandard,
            "Frequency of the standard's amplitude modulation in Hz"},
        {lineEditDevModFreq, labelModFreq, labelDeviant,
            "Frequency of the deviant's amplitude modulation in Hz"},
        {lineEditStdModDepth, labelModDepth, labelStandard,
            "Depth of the standard's amplitude modulation in %, 0 (none) to 100 (full)"},
        {lineEditDevModDepth, labelModDepth, labelDeviant,
            "Depth of the deviant's amplitude modulation in %, 0 (none) to 100 (full); the answers "
            "change it if it is the main parameter"},
        {lineEditStdFreqDiff, labelFreqDiff, labelStandard,
            "In Hz, without effect: the difference is the deviant's"},
        {lineEditDevFreqDiff, labelFreqDiff, labelDeviant,
            "How far below the standard's carrier the answers put the deviant's, in Hz, if carrier "
            "frequency is the main parameter; the first trial takes the carrier field itself"},
        {lineEditStdDuration, labelDuration, labelStandard, "Length of the standard in ms"},
        {lineEditDevDuration, labelDuration, labelDeviant, "Length of the deviant in ms"},
        {lineEditNReversals, labelNReversals, nullptr,
            "Number of changes between right and wrong answers that ends the run"},
        {lineEditNReversalsToCalc, labelNReversalsToCalc, nullptr,
            "Number of the last reversals whose mean is the threshold"},
        {lineEditSilentInterval, labelSilentInterval, nullptr,
            "Silence after the longer of the two sounds in ms"},
        {pushButtonView, nullptr, nullptr,
            "Read the panel, make both sounds, show them and clear the trend"},
        {pushButtonGo, nullptr, nullptr, "Start a run in the listener's window; View comes first"},
        {pushButtonQuit, nullptr, nullptr, "Close the program"},
        {lineEditSamplingRate, labelSamplingRate, nullptr, "Samples of a sound in a second, in Hz"},
        {checkBoxSaveData, nullptr, nullptr,
            "At the end of a run, ask for a file and save the trials to it"},
        {lineEditSubCode, labelSubCode, nullptr,
            "The listener's code; the name of the results file begins with it"},
        {checkBoxResetMdFd, nullptr, nullptr,
            "Start every run at a depth of 50 % or a difference of 5 % of the carrier, not at the "
            "deviant's fields"},
        {lineEditSesNum, labelSesNum, nullptr,
            "Number of the session, part of the name of the results file"},
        {lineEditFilePath, labelFilePath, nullptr, "Folder that the save dialog opens with"},
        {lineEditFileName, labelFileName, nullptr,
            "Name that the save dialog proposes, made of the choices above"},
    });
}
