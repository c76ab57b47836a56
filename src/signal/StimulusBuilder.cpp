// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"
#include "signal/Stimulus.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <algorithm>

// During a run the standard is left as the last View made it; only its level follows the deviant's.
void MainWindow::genWav()
{
    if (data.nTrials == 0) {
        const int nPlotted = std::max(data.nPointsToPlot[standard], data.nPointsToPlot[deviant]);
        timeAxis = plottedTimes(nPlotted, data.fs);
        standardSound = synthesised(data, standard);
    }
    deviantSound = synthesised(data, deviant);
    if (data.equalizeRms) {
        equaliseLevels(standardSound, deviantSound);
    }
}

// The axes move under empty series: with the points in place, each new range would have their lines
// built anew.
void MainWindow::updateWav()
{
    updateNPointsToPlot();
    refreshWavePoints(standardPoints, standardSound, data.nPointsToPlot[standard]);
    refreshWavePoints(deviantPoints, deviantSound, data.nPointsToPlot[deviant]);
    standardRange = amplitudeRange(standardSound);
    deviantRange = amplitudeRange(deviantSound);
    standardWaveSeries->clear();
    deviantWaveSeries->clear();
    standardWaveAxisX->setRange(0, sampleTime(data.nPointsToPlot[standard], data.fs));
    deviantWaveAxisX->setRange(0, sampleTime(data.nPointsToPlot[deviant], data.fs));
    setAxisRange(standardWaveAxisY, standardRange);
    setAxisRange(deviantWaveAxisY, deviantRange);
    standardWaveSeries->replace(standardPoints);
    deviantWaveSeries->replace(deviantPoints);
}

// The list and the time axis are lengthened where the sound to plot outgrew them, never shortened.
void MainWindow::refreshWavePoints(
    QVector<QPointF>& points, const QVector<double>& sound, int nPointsToPlot)
{
    const int nPoints = std::min(nPointsToPlot, sound.size());
    extendTimeAxis(timeAxis, nPoints, data.fs);
    overwritePoints(points, timeAxis, sound, nPoints);
}
