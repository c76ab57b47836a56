// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"
#include "charts/LineLayout.h"
#include "signal/Stimulus.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

void MainWindow::displayFFT()
{
    makeIfMissing(standardSpectrumSeries);
    makeIfMissing(deviantSpectrumSeries);
    standardSpectrumPoints
        = chartPoints(frequencyAxis, standardAmplitude, data.nFreqPointsToPlot[standard]);
    deviantSpectrumPoints
        = chartPoints(frequencyAxis, deviantAmplitude, data.nFreqPointsToPlot[deviant]);
    LineLayout::of(standardSpectrumSeries).replaceNow(standardSpectrumPoints);
    LineLayout::of(deviantSpectrumSeries).replaceNow(deviantSpectrumPoints);
    standardAmplitudeRange = amplitudeRange(standardAmplitude);
    deviantAmplitudeRange = amplitudeRange(deviantAmplitude);
    showSpectrumChart({standardSpectrumSeries, standardSpectrumAxisX, standardSpectrumAxisY,
                          standardSpectrumChart, standardSpectrumView, "standardSpectrumView"},
        "Amplitude Spectrum (standard)", standard, standardAmplitudeRange);
    showSpectrumChart({deviantSpectrumSeries, deviantSpectrumAxisX, deviantSpectrumAxisY,
                          deviantSpectrumChart, deviantSpectrumView, "deviantSpectrumView"},
        "Amplitude Spectrum (Deviant)", deviant, deviantAmplitudeRange);
}

// The frequency axis keeps the range that it is made with.
void MainWindow::showSpectrumChart(
    const ChartMembers& members, const QString& title, int stimulus, const QVector<double>& range)
{
    if (members.axisX == nullptr) {
        members.axisX = makeAxis("Frequency (Hz)", fontAxisLabels, fontAxisTitle);
        members.axisX->setRange(0, data.freqToPlot[stimulus]);
        members.axisX->setLabelFormat("%.0f");
    }
    if (members.axisY == nullptr) {
        members.axisY = makeAxis("Amplitude", fontAxisLabels, fontAxisTitle);
        members.axisY->setRange(0, 1);
    }
    setAxisRange(members.axisY, range);
    completeChart(members, {title, fontChartTitle, stimulusChartWidth, spectrumRow, stimulus, 1},
        gridLayoutCharts);
}
