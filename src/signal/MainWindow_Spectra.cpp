// SPDX-License-Identifier: GPL-3.0-or-later
// The spectra of the two sounds, their lengths, and the refresh of their charts.
#include "app/MainWindow.h"
#include "charts/ChartData.h"
#include "charts/ChartParts.h"
#include "session/Counts.h"
#include "signal/Spectrum.h"

#include <algorithm>

using namespace quorin;

void MainWindow::deriveTransformLengths()
{
    for (const int i : {standard, deviant}) {
        fftLength[i] = spectrumLength(data.nSamples[i]);
        fftDuration[i] = static_cast<double>(fftLength[i]) / data.fs;
        const int nBins = static_cast<int>(fftLength[i] / 2);
        data.nFreqPointsToPlot[i]
            = std::min(truncatedCount(data.freqToPlot[i] * fftDuration[i]), nBins);
    }
}

// The sounds themselves are multiplied by the window: what is analysed is what is played.
void MainWindow::genFFT()
{
    if (windowSelector != 0) {
        for (const int i : {standard, deviant}) {
            applyWindow(stimuli[i].samples, data.nSamples[i], windowSelector);
        }
    }
    const qint64 longerTransform = std::max(fftLength[standard], fftLength[deviant]);
    frequencyAxis.resize(static_cast<int>(longerTransform / 2));
    analyse(standard);
    analyse(deviant);
}

// Both analyses write the one frequency axis: it ends up as the deviant's.
void MainWindow::analyse(int index)
{
    Spectrum& spectrum = stimuli[index].spectrum;
    spectrum = spectrumOf(stimuli[index].samples, fftLength[index], data.nSamples[index]);
    fftDuration[index] = static_cast<double>(fftLength[index]) / data.fs;
    frequencyResolution[index] = 1 / fftDuration[index];
    overwriteFrequencies(frequencyAxis, spectrum.amplitude.size(), frequencyResolution[index]);
}

void MainWindow::updateFFT()
{
    for (const int i : {standard, deviant}) {
        Stimulus& stimulus = stimuli[i];
        overwritePoints(stimulus.spectrumPoints, frequencyAxis, stimulus.spectrum.amplitude,
            std::min(data.nFreqPointsToPlot[i], stimulus.spectrumPoints.size()));
        stimulus.amplitudeRange = amplitudeRange(stimulus.spectrum.amplitude);
    }
    for (const int i : {standard, deviant}) {
        const ChartLine& line = spectrumCharts[i].line;
        refreshChart(
            line, stimuli[i].spectrumPoints, axisRange(line.axisX), stimuli[i].amplitudeRange);
    }
}
