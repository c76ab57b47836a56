// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's controls to and from the session record, what a change of them does at once, and the
// name of the results file.
#include "app/MainWindow.h"
#include "session/Counts.h"
#include "session/OutputFileName.h"
#include "session/PanelNumbers.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <cmath>

using namespace quorin;

// The combo boxes' slots run while the boxes are filled and set: they compose the file name and put
// the deviant to its starting values. The record's choices are set before the boxes': otherwise
// noise would meet the carrier frequency for a moment, and the warning of this conflict would open.
void MainWindow::initParameters()
{
    fillComboBoxes();
    data.sesType = 1;
    data.soundType = noiseCarrier;
    data.mainParameter = modulationDepthParameter;
    comboBoxSesType->setCurrentIndex(data.sesType);
    comboBoxSoundType->setCurrentIndex(data.soundType);
    comboBoxMainParameter->setCurrentIndex(data.mainParameter);
    fillLineEdits();
    pushButtonView->setEnabled(true);
    pushButtonGo->setEnabled(false);
    updateNPointsToPlot();
    deriveTransformLengths();
    makeChartFonts();
    makeTrialLoop();
    makeAudioFormat();
}

void MainWindow::fillComboBoxes()
{
    comboBoxSesType->insertItems(comboBoxSesType->count(), data.sesTypes);
    comboBoxSoundType->insertItems(comboBoxSoundType->count(), data.soundTypes);
    comboBoxMainParameter->insertItems(comboBoxMainParameter->count(), data.mainParameters);
}

void MainWindow::fillLineEdits()
{
    lineEditStdModFreq->setText(shownFrequency(data.mf[standard]));
    lineEditStdModDepth->setText(shownDepth(data.md[standard]));
    lineEditStdFreqDiff->setText(shownDifference(data.fd[standard], data.cf[standard]));
    lineEditStdCarrierFreq->setText(shownFrequency(data.cf[standard]));
    lineEditStdDuration->setText(shownDuration(data.dur[standard]));
    lineEditDevModFreq->setText(shownFrequency(data.mf[deviant]));
    showDeviantDepth();
    showDeviantDifference();
    showDeviantCarrier();
    lineEditDevDuration->setText(shownDuration(data.dur[deviant]));

    checkBoxResetMdFd->setChecked(data.resetMdFd);
    checkBoxSaveData->setChecked(data.saveData);

    lineEditNReversals->setText(shownInteger(data.nReversals));
    lineEditNReversalsToCalc->setText(shownInteger(data.nReversalsToCalculate));
    lineEditSilentInterval->setText(shownDuration(data.silentInterval));
    lineEditFilePath->setText(data.outputDir);
    lineEditFileName->setEnabled(false);
    lineEditSesNum->setText(shownInteger(data.sesNum));
    lineEditSubCode->setText(data.subCode);
    lineEditSamplingRate->setText(shownRate(data.fs));
}

void MainWindow::getParameters()
{
    data.sesType = comboBoxSesType->currentIndex();
    data.soundType = comboBoxSoundType->currentIndex();
    data.mainParameter = comboBoxMainParameter->currentIndex();
    data.nTrials = 0;

    data.dur[standard] = readDuration(lineEditStdDuration->text());
    data.cf[standard] = readFrequency(lineEditStdCarrierFreq->text());
    data.mf[standard] = readFrequency(lineEditStdModFreq->text());
    data.md[standard] = readDepth(lineEditStdModDepth->text());
    data.fd[standard] = readDifference(lineEditStdFreqDiff->text(), data.cf[standard]);
    readDeviant();
    data.saveData = checkBoxSaveData->isChecked();

    data.nReversals = readInteger(lineEditNReversals->text());
    data.nReversalsToCalculate = readInteger(lineEditNReversalsToCalc->text());
    if (data.nReversalsToCalculate > data.nReversals) {
        data.nReversalsToCalculate = data.nReversals;
        lineEditNReversalsToCalc->setText(shownInteger(data.nReversalsToCalculate));
    }
    data.silentInterval = readDuration(lineEditSilentInterval->text());
    data.fs = readFrequency(lineEditSamplingRate->text());
    data.subCode = lineEditSubCode->text();
    data.sesNum = readInteger(lineEditSesNum->text());
    data.outputDir = lineEditFilePath->text();
    data.fileName = lineEditFileName->text();

    for (const int i : {standard, deviant}) {
        data.nSamples[i] = soundLength(data.fs, data.dur[i]);
    }
    updateNPointsToPlot();
}

void MainWindow::readDeviant()
{
    data.dur[deviant] = readDuration(lineEditDevDuration->text());
    data.cf[deviant] = readFrequency(lineEditDevCarrierFreq->text());
    data.mf[deviant] = readFrequency(lineEditDevModFreq->text());
    data.resetMdFd = checkBoxResetMdFd->isChecked();
    if (data.resetMdFd) {
        resetMdFdCf();
        return;
    }
    data.md[deviant] = readDepth(lineEditDevModDepth->text());
    data.fd[deviant] = readDifference(lineEditDevFreqDiff->text(), data.cf[standard]);
    if (std::isfinite(data.fd[deviant] * data.cf[standard])) {
        showDeviantDifference();
    }
}

void MainWindow::showDeviantDepth()
{
    lineEditDevModDepth->setText(shownDepth(data.md[deviant]));
}

void MainWindow::showDeviantDifference()
{
    lineEditDevFreqDiff->setText(shownDifference(data.fd[deviant], data.cf[standard]));
}

void MainWindow::showDeviantCarrier()
{
    lineEditDevCarrierFreq->setText(shownFrequency(data.cf[deviant]));
}

void MainWindow::on_comboBoxSesType_currentIndexChanged(int index)
{
    data.sesType = index;
    updateFileName();
}

// Noise has no carrier frequency to adapt: the box that was just moved is moved back.
void MainWindow::on_comboBoxSoundType_currentIndexChanged(int index)
{
    data.soundType = index;
    if (index == noiseCarrier && data.mainParameter == carrierFrequencyParameter) {
        QMessageBox::warning(this, "Conflicting Parameters",
            "The sound type 'noise' is incompatible with the internal parameter 'carrier "
            "frequency'. Sound type will be changed to 'sinusoid'",
            QMessageBox::Ok);
        comboBoxSoundType->setCurrentIndex(sinusoidCarrier);
    }
    updateFileName();
}

void MainWindow::on_comboBoxMainParameter_currentIndexChanged(int index)
{
    data.mainParameter = index;
    if (index == carrierFrequencyParameter && data.soundType == noiseCarrier) {
        QMessageBox::warning(this, "Conflicting Parameters",
            "The sound type 'noise' is incompatible with the internal parameter 'carrier "
            "frequency'. Internal parameter will be changed to 'modulation depth'",
            QMessageBox::Ok);
        comboBoxMainParameter->setCurrentIndex(modulationDepthParameter);
    }
    resetMdFdCf();
    updateFileName();
}

void MainWindow::on_lineEditSubCode_textChanged(const QString& text)
{
    data.subCode = text;
    updateFileName();
}

void MainWindow::on_lineEditSesNum_textChanged(const QString& text)
{
    data.sesNum = readInteger(text);
    updateFileName();
}

void MainWindow::updateFileName()
{
    data.fileName = composedFileName(data);
    lineEditFileName->setText(data.fileName);
}
