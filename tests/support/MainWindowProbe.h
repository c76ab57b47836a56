// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"

/// Gives tests the members of the two windows that cannot be found by an object name.
struct MainWindowProbe {
    static auto& filePath(MainWindow& window) { return window.filePath; }
    static auto& data(MainWindow& window) { return window.data; }
    static auto& timeAxis(MainWindow& window) { return window.timeAxis; }
    static auto& stimuli(MainWindow& window) { return window.stimuli; }
    static auto& waveCharts(MainWindow& window) { return window.waveCharts; }
    static auto& spectrumCharts(MainWindow& window) { return window.spectrumCharts; }
    static auto& trendX(MainWindow& window) { return window.trendX; }
    static auto& trendY(MainWindow& window) { return window.trendY; }
    static auto& trendYMin(MainWindow& window) { return window.trendYMin; }
    static auto& trendYMax(MainWindow& window) { return window.trendYMax; }
    static auto& fftLength(MainWindow& window) { return window.fftLength; }
    static auto& fftDuration(MainWindow& window) { return window.fftDuration; }
    static auto& frequencyResolution(MainWindow& window) { return window.frequencyResolution; }
    static auto& frequencyAxis(MainWindow& window) { return window.frequencyAxis; }
    static auto& windowSelector(MainWindow& window) { return window.windowSelector; }
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
    static auto& disturbances(MainWindow& window) { return window.disturbances; }
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
