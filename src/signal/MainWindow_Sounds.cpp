// SPDX-License-Identifier: GPL-3.0-or-later
// The two sounds of a trial, and the refresh of their charts.
#include "app/MainWindow.h"
#include "charts/ChartData.h"
#include "charts/ChartParts.h"
#include "signal/Stimulus.h"

#include <algorithm>

using namespace quorin;

// During a run the standard is left as the last View made it; only its level follows the deviant's.
void MainWindow::genWav()
{
    if (data.nTrials == 0) {
        const int nPlotted = std::max(data.nPointsToPlot[standard], data.nPointsToPlot[deviant]);
        timeAxis = plottedTimes(nPlotted, data.fs);
        timeAxisRate = data.fs;
        synthesise(stimuli[standard].samples, data, standard);
    }
    synthesise(stimuli[deviant].samples, data, deviant);
    if (data.equalizeRms) {
        equaliseLevels(stimuli[standard].samples, stimuli[deviant].samples);
    }
}

void MainWindow::updateWav()
{
    updateNPointsToPlot();
    for (const int i : {standard, deviant}) {
        refreshWavePoints(i);
        stimuli[i].range = amplitudeRange(stimuli[i].samples);
    }
    for (const int i : {standard, deviant}) {
        refreshChart(waveCharts[i].line, stimuli[i].points,
            {0, sampleTime(data.nPointsToPlot[i], data.fs)}, stimuli[i].range);
    }
}

// The list and the time axis are lengthened where the sound to plot outgrew them, never shortened.
// The axis goes on at the rate that it was made for: times must grow, also when the sampling rate
// was changed after View.
void MainWindow::refreshWavePoints(int index)
{
    const QVector<double>& samples = stimuli[index].samples;
    const int nPoints = std::min(data.nPointsToPlot[index], samples.size());
    if (timeAxis.isEmpty()) {
        timeAxisRate = data.fs;
    }
    extendTimeAxis(timeAxis, nPoints, timeAxisRate);
    overwritePoints(stimuli[index].points, timeAxis, samples, nPoints);
}
