// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"
#include "signal/Spectrum.h"
#include "signal/Stimulus.h"

#include <algorithm>

// The window goes onto the sounds themselves, so that what is played is what was analysed.
void MainWindow::genFFT()
{
    if (windowSelector != 0) {
        applyWindow(standardSound, data.nSamples[standard], windowSelector);
        applyWindow(deviantSound, data.nSamples[deviant], windowSelector);
    }
    const qint64 longerTransform = std::max(fftLength[standard], fftLength[deviant]);
    frequencyAxis.resize(static_cast<int>(longerTransform / 2));
    analyse(standard, standardSound, standardAmplitude, standardPhase);
    analyse(deviant, deviantSound, deviantAmplitude, deviantPhase);
}

// Both analyses write the one frequency axis: it ends up as the deviant's.
void MainWindow::analyse(
    int stimulus, const QVector<double>& sound, QVector<double>& amplitude, QVector<double>& phase)
{
    Spectrum spectrum = spectrumOf(sound, fftLength[stimulus], data.nSamples[stimulus]);
    amplitude.swap(spectrum.amplitude);
    phase.swap(spectrum.phase);
    fftDuration[stimulus] = static_cast<double>(fftLength[stimulus]) / data.fs;
    frequencyResolution[stimulus] = 1 / fftDuration[stimulus];
    overwriteFrequencies(frequencyAxis, amplitude.size(), frequencyResolution[stimulus]);
}

void MainWindow::updateFFT()
{
    overwritePoints(standardSpectrumPoints, frequencyAxis, standardAmplitude,
        std::min(data.nFreqPointsToPlot[standard], standardSpectrumPoints.size()));
    overwritePoints(deviantSpectrumPoints, frequencyAxis, deviantAmplitude,
        std::min(data.nFreqPointsToPlot[deviant], deviantSpectrumPoints.size()));
    standardAmplitudeRange = amplitudeRange(standardAmplitude);
    deviantAmplitudeRange = amplitudeRange(deviantAmplitude);
    refreshChart({standardSpectrumSeries, standardSpectrumAxisX, standardSpectrumAxisY},
        standardSpectrumPoints, axisRange(standardSpectrumAxisX), standardAmplitudeRange);
    refreshChart({deviantSpectrumSeries, deviantSpectrumAxisX, deviantSpectrumAxisY},
        deviantSpectrumPoints, axisRange(deviantSpectrumAxisX), deviantAmplitudeRange);
}
