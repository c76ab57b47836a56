// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"

/// Gives tests the members of the two windows.
struct MainWindowProbe {
    static auto& labelSesType(MainWindow& window) { return window.labelSesType; }
    static auto& labelSoundType(MainWindow& window) { return window.labelSoundType; }
    static auto& labelMainParameter(MainWindow& window) { return window.labelMainParameter; }
    static auto& labelStandard(MainWindow& window) { return window.labelStandard; }
    static auto& labelDeviant(MainWindow& window) { return window.labelDeviant; }
    static auto& labelCarrierFreq(MainWindow& window) { return window.labelCarrierFreq; }
    static auto& labelModFreq(MainWindow& window) { return window.labelModFreq; }
    static auto& labelModDepth(MainWindow& window) { return window.labelModDepth; }
    static auto& labelFreqDiff(MainWindow& window) { return window.labelFreqDiff; }
    static auto& labelDuration(MainWindow& window) { return window.labelDuration; }
    static auto& labelNReversals(MainWindow& window) { return window.labelNReversals; }
    static auto& labelNReversalsToCalc(MainWindow& window) { return window.labelNReversalsToCalc; }
    static auto& labelSilentInterval(MainWindow& window) { return window.labelSilentInterval; }
    static auto& labelSamplingRate(MainWindow& window) { return window.labelSamplingRate; }
    static auto& labelSubCode(MainWindow& window) { return window.labelSubCode; }
    static auto& labelSesNum(MainWindow& window) { return window.labelSesNum; }
    static auto& labelFilePath(MainWindow& window) { return window.labelFilePath; }
    static auto& labelFileName(MainWindow& window) { return window.labelFileName; }
    static auto& comboBoxSesType(MainWindow& window) { return window.comboBoxSesType; }
    static auto& comboBoxSoundType(MainWindow& window) { return window.comboBoxSoundType; }
    static auto& comboBoxMainParameter(MainWindow& window) { return window.comboBoxMainParameter; }
    static auto& lineEditStdCarrierFreq(MainWindow& window)
    {
        return window.lineEditStdCarrierFreq;
    }
    static auto& lineEditStdModFreq(MainWindow& window) { return window.lineEditStdModFreq; }
    static auto& lineEditStdModDepth(MainWindow& window) { return window.lineEditStdModDepth; }
    static auto& lineEditStdFreqDiff(MainWindow& window) { return window.lineEditStdFreqDiff; }
    static auto& lineEditStdDuration(MainWindow& window) { return window.lineEditStdDuration; }
    static auto& lineEditDevCarrierFreq(MainWindow& window)
    {
        return window.lineEditDevCarrierFreq;
    }
    static auto& lineEditDevModFreq(MainWindow& window) { return window.lineEditDevModFreq; }
    static auto& lineEditDevModDepth(MainWindow& window) { return window.lineEditDevModDepth; }
    static auto& lineEditDevFreqDiff(MainWindow& window) { return window.lineEditDevFreqDiff; }
    static auto& lineEditDevDuration(MainWindow& window) { return window.lineEditDevDuration; }
    static auto& lineEditNReversals(MainWindow& window) { return window.lineEditNReversals; }
    static auto& lineEditNReversalsToCalc(MainWindow& window)
    {
        return window.lineEditNReversalsToCalc;
    }
    static auto& lineEditSilentInterval(MainWindow& window)
    {
        return window.lineEditSilentInterval;
    }
    static auto& lineEditSamplingRate(MainWindow& window) { return window.lineEditSamplingRate; }
    static auto& lineEditSubCode(MainWindow& window) { return window.lineEditSubCode; }
    static auto& lineEditSesNum(MainWindow& window) { return window.lineEditSesNum; }
    static auto& filePath(MainWindow& window) { return window.filePath; }
    static auto& lineEditFilePath(MainWindow& window) { return window.lineEditFilePath; }
    static auto& lineEditFileName(MainWindow& window) { return window.lineEditFileName; }
    static auto& pushButtonView(MainWindow& window) { return window.pushButtonView; }
    static auto& pushButtonGo(MainWindow& window) { return window.pushButtonGo; }
    static auto& pushButtonQuit(MainWindow& window) { return window.pushButtonQuit; }
    static auto& checkBoxSaveData(MainWindow& window) { return window.checkBoxSaveData; }
    static auto& checkBoxResetMdFd(MainWindow& window) { return window.checkBoxResetMdFd; }
    static auto& hBoxLayoutButtons(MainWindow& window) { return window.hBoxLayoutButtons; }
    static auto& hBoxLayoutFilePath(MainWindow& window) { return window.hBoxLayoutFilePath; }
    static auto& hBoxLayoutFileName(MainWindow& window) { return window.hBoxLayoutFileName; }
    static auto& gridLayoutParameters(MainWindow& window) { return window.gridLayoutParameters; }
    static auto& gridLayoutCharts(MainWindow& window) { return window.gridLayoutCharts; }
    static auto& gridLayoutMain(MainWindow& window) { return window.gridLayoutMain; }
    static auto& centralWidget(MainWindow& window) { return window.centralWidget; }
    static auto& data(MainWindow& window) { return window.data; }
    static auto& timeAxis(MainWindow& window) { return window.timeAxis; }
    static auto& standardSound(MainWindow& window) { return window.stimuli[standard].samples; }
    static auto& deviantSound(MainWindow& window) { return window.stimuli[deviant].samples; }
    static auto& trendX(MainWindow& window) { return window.trendX; }
    static auto& trendY(MainWindow& window) { return window.trendY; }
    static auto& trendYMin(MainWindow& window) { return window.trendYMin; }
    static auto& trendYMax(MainWindow& window) { return window.trendYMax; }
    static auto& standardPoints(MainWindow& window) { return window.stimuli[standard].points; }
    static auto& deviantPoints(MainWindow& window) { return window.stimuli[deviant].points; }
    static auto& standardSpectrumPoints(MainWindow& window)
    {
        return window.stimuli[standard].spectrumPoints;
    }
    static auto& deviantSpectrumPoints(MainWindow& window)
    {
        return window.stimuli[deviant].spectrumPoints;
    }
    static auto& standardRange(MainWindow& window) { return window.stimuli[standard].range; }
    static auto& deviantRange(MainWindow& window) { return window.stimuli[deviant].range; }
    static auto& fftLength(MainWindow& window) { return window.fftLength; }
    static auto& fftDuration(MainWindow& window) { return window.fftDuration; }
    static auto& frequencyResolution(MainWindow& window) { return window.frequencyResolution; }
    static auto& frequencyAxis(MainWindow& window) { return window.frequencyAxis; }
    static auto& standardAmplitude(MainWindow& window)
    {
        return window.stimuli[standard].spectrum.amplitude;
    }
    static auto& deviantAmplitude(MainWindow& window)
    {
        return window.stimuli[deviant].spectrum.amplitude;
    }
    static auto& standardPhase(MainWindow& window)
    {
        return window.stimuli[standard].spectrum.phase;
    }
    static auto& deviantPhase(MainWindow& window) { return window.stimuli[deviant].spectrum.phase; }
    static auto& standardAmplitudeRange(MainWindow& window)
    {
        return window.stimuli[standard].amplitudeRange;
    }
    static auto& deviantAmplitudeRange(MainWindow& window)
    {
        return window.stimuli[deviant].amplitudeRange;
    }
    static auto& windowSelector(MainWindow& window) { return window.windowSelector; }
    static auto& standardWaveSeries(MainWindow& window)
    {
        return window.waveCharts[standard].line.series;
    }
    static auto& standardWaveAxisX(MainWindow& window)
    {
        return window.waveCharts[standard].line.axisX;
    }
    static auto& standardWaveAxisY(MainWindow& window)
    {
        return window.waveCharts[standard].line.axisY;
    }
    static auto& standardWaveChart(MainWindow& window) { return window.waveCharts[standard].chart; }
    static auto& standardWaveView(MainWindow& window) { return window.waveCharts[standard].view; }
    static auto& deviantWaveSeries(MainWindow& window)
    {
        return window.waveCharts[deviant].line.series;
    }
    static auto& deviantWaveAxisX(MainWindow& window)
    {
        return window.waveCharts[deviant].line.axisX;
    }
    static auto& deviantWaveAxisY(MainWindow& window)
    {
        return window.waveCharts[deviant].line.axisY;
    }
    static auto& deviantWaveChart(MainWindow& window) { return window.waveCharts[deviant].chart; }
    static auto& deviantWaveView(MainWindow& window) { return window.waveCharts[deviant].view; }
    static auto& standardSpectrumSeries(MainWindow& window)
    {
        return window.spectrumCharts[standard].line.series;
    }
    static auto& standardSpectrumAxisX(MainWindow& window)
    {
        return window.spectrumCharts[standard].line.axisX;
    }
    static auto& standardSpectrumAxisY(MainWindow& window)
    {
        return window.spectrumCharts[standard].line.axisY;
    }
    static auto& standardSpectrumChart(MainWindow& window)
    {
        return window.spectrumCharts[standard].chart;
    }
    static auto& standardSpectrumView(MainWindow& window)
    {
        return window.spectrumCharts[standard].view;
    }
    static auto& deviantSpectrumSeries(MainWindow& window)
    {
        return window.spectrumCharts[deviant].line.series;
    }
    static auto& deviantSpectrumAxisX(MainWindow& window)
    {
        return window.spectrumCharts[deviant].line.axisX;
    }
    static auto& deviantSpectrumAxisY(MainWindow& window)
    {
        return window.spectrumCharts[deviant].line.axisY;
    }
    static auto& deviantSpectrumChart(MainWindow& window)
    {
        return window.spectrumCharts[deviant].chart;
    }
    static auto& deviantSpectrumView(MainWindow& window)
    {
        return window.spectrumCharts[deviant].view;
    }
    static auto& trendSeries(MainWindow& window) { return window.trendSeries; }
    static auto& trendAxisX(MainWindow& window) { return window.trendAxisX; }
    static auto& trendAxisY(MainWindow& window) { return window.trendAxisY; }
    static auto& trendChart(MainWindow& window) { return window.trendChart; }
    static auto& trendView(MainWindow& window) { return window.trendView; }
    static auto& subjectWindow(MainWindow& window) { return window.subjectWindow; }
    static auto& timerPlay(MainWindow& window) { return window.timerPlay; }
    static auto& timerReaction(MainWindow& window) { return window.timerReaction; }
    static auto& reactionClock(MainWindow& window) { return window.reactionClock; }
    static auto& nReactionTimerStarts(MainWindow& window) { return window.nReactionTimerStarts; }
    static auto& nSoundsPerTrial(MainWindow& window) { return window.nSoundsPerTrial; }
    static auto& soundIndex(MainWindow& window) { return window.soundIndex; }
    static auto& stimSequence(MainWindow& window) { return window.stimSequence; }
    static auto& fontAxisLabels(MainWindow& window) { return window.fontAxisLabels; }
    static auto& fontAxisTitle(MainWindow& window) { return window.fontAxisTitle; }
    static auto& fontChartTitle(MainWindow& window) { return window.fontChartTitle; }
    static auto& audioBytes(MainWindow& window) { return window.audioBytes; }
    static auto& audioBuffer(MainWindow& window) { return window.audioBuffer; }
    static auto& audioFormat(MainWindow& window) { return window.audioFormat; }
    static auto& audioOutput(MainWindow& window) { return window.audioOutput; }
    static auto& soundsAside(MainWindow& window) { return window.soundsAside; }
    static auto& centerWindow(MainWindow& window) { return window.centerWindow; }
    static auto& widthFraction(MainWindow& window) { return window.widthFraction; }
    static auto& heightFraction(MainWindow& window) { return window.heightFraction; }

    static auto& pushButtonChoice1(SubjectWindow& window) { return window.pushButtonChoice1; }
    static auto& pushButtonChoice2(SubjectWindow& window) { return window.pushButtonChoice2; }
    static auto& pushButtonChoice3(SubjectWindow& window) { return window.pushButtonChoice3; }
    static auto& pushButtonChoice4(SubjectWindow& window) { return window.pushButtonChoice4; }
    static auto& pushButtonIAmReady(SubjectWindow& window) { return window.pushButtonIAmReady; }
    static auto& pushButtonDone(SubjectWindow& window) { return window.pushButtonDone; }
    static auto& labelThreshold(SubjectWindow& window) { return window.labelThreshold; }
    static auto& gridLayout(SubjectWindow& window) { return window.gridLayout; }
    static auto& centralWidget(SubjectWindow& window) { return window.centralWidget; }
    static auto& reservedColors(SubjectWindow& window) { return window.reservedColors; }
    static auto& centerWindow(SubjectWindow& window) { return window.centerWindow; }
    static auto& widthFraction(SubjectWindow& window) { return window.widthFraction; }
    static auto& heightFraction(SubjectWindow& window) { return window.heightFraction; }
};
