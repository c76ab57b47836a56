// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"
#include "charts/LineLayout.h"
#include "session/Counts.h"
#include "signal/Stimulus.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

void MainWindow::updateNPointsToPlot()
{
    for (const int i : {standard, deviant}) {
        data.nPointsToPlot[i] = plottedPoints(data.fs, data.durToPlot[i], data.nSamples[i]);
    }
}

void MainWindow::displayWav()
{
    updateNPointsToPlot();
    makeIfMissing(standardWaveSeries);
    makeIfMissing(deviantWaveSeries);
    standardPoints = chartPoints(timeAxis, standardSound, data.nPointsToPlot[standard]);
    deviantPoints = chartPoints(timeAxis, deviantSound, data.nPointsToPlot[deviant]);
    LineLayout::of(standardWaveSeries).replaceNow(standardPoints);
    LineLayout::of(deviantWaveSeries).replaceNow(deviantPoints);
    standardRange = amplitudeRange(standardSound);
    deviantRange = amplitudeRange(deviantSound);
    showWaveChart({standardWaveSeries, standardWaveAxisX, standardWaveAxisY, standardWaveChart,
                      standardWaveView, "standardWaveView"},
        "Time Waveform (standard)", standard, standardRange);
    showWaveChart({deviantWaveSeries, deviantWaveAxisX, deviantWaveAxisY, deviantWaveChart,
                      deviantWaveView, "deviantWaveView"},
        "Time Waveform (Deviant)", deviant, deviantRange);
}

void MainWindow::showWaveChart(
    const ChartMembers& members, const QString& title, int stimulus, const QVector<double>& range)
{
    if (members.axisX == nullptr) {
        members.axisX = makeAxis("Time (ms)", fontAxisLabels, fontAxisTitle);
    }
    members.axisX->setRange(0, sampleTime(data.nPointsToPlot[stimulus], data.fs));
    if (members.axisY == nullptr) {
        members.axisY = makeAxis("Amplitude", fontAxisLabels, fontAxisTitle);
    }
    setAxisRange(members.axisY, range);
    completeChart(members, {title, fontChartTitle, stimulusChartWidth, waveformRow, stimulus, 1},
        gridLayoutCharts);
}
