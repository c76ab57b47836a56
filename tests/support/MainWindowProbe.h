// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"

/// Gives tests the members of the two windows that cannot be found by an object name.
struct MainWindowProbe {
    static auto& filePath(MainWindow& window) { return window.filePath; }
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

    static auto& reservedColors(SubjectWindow& window) { return window.reservedColors; }
    static auto& centerWindow(SubjectWindow& window) { return window.centerWindow; }
    static auto& widthFraction(SubjectWindow& window) { return window.widthFraction; }
    static auto& heightFraction(SubjectWindow& window) { return window.heightFraction; }
};

using Probe = MainWindowProbe;
