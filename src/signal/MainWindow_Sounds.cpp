// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"
#include "signal/Stimulus.h"

#include <algorithm>

// During a run the standard is left as the last View made it; only its level follows the deviant's.
void MainWindow::genWav()
{
    if (data.nTrials == 0) {
        const int nPlotted = std::max(data.nPointsToPlot[standard], data.nPointsToPlot[deviant]);
        timeAxis = plottedTimes(nPlotted, data.fs);
        timeAxisRate = data.fs;
        synthesise(standardSound, modulator, data, standard);
    }
    synthesise(deviantSound, modulator, data, deviant);
    if (data.equalizeRms) {
        equaliseLevels(standardSound, deviantSound);
    }
}

void MainWindow::updateWav()
{
    updateNPointsToPlot();
    refreshWavePoints(standardPoints, standardSound, data.nPointsToPlot[standard]);
    refreshWavePoints(deviantPoints, deviantSound, data.nPointsToPlot[deviant]);
    standardRange = amplitudeRange(standardSound);
    deviantRange = amplitudeRange(deviantSound);
    refreshChart({standardWaveSeries, standardWaveAxisX, standardWaveAxisY}, standardPoints,
        {0, sampleTime(data.nPointsToPlot[standard], data.fs)}, standardRange);
    refreshChart({deviantWaveSeries, deviantWaveAxisX, deviantWaveAxisY}, deviantPoints,
        {0, sampleTime(data.nPointsToPlot[deviant], data.fs)}, deviantRange);
}

// The list and the time axis are lengthened where the sound to plot outgrew them, never shortened.
// The axis goes on at the rate that it was made for: times must grow, also when the sampling rate
// was changed after View.
void MainWindow::refreshWavePoints(
    QVector<QPointF>& points, const QVector<double>& sound, int nPointsToPlot)
{
    const int nPoints = std::min(nPointsToPlot, sound.size());
    if (timeAxis.isEmpty()) {
        timeAxisRate = data.fs;
    }
    extendTimeAxis(timeAxis, nPoints, timeAxisRate);
    overwritePoints(points, timeAxis, sound, nPoints);
}
