// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"
#include "charts/LineLayout.h"
#include "session/AdaptedParameter.h"
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

void MainWindow::displayTrend()
{
    constexpr int leastWidth = 400;
    if (trendSeries == nullptr) {
        trendSeries = new QtCharts::QLineSeries;
        trendSeries->setName("trend");
        trendSeries->setPointsVisible(true);
    }
    if (trendAxisX == nullptr) {
        trendAxisX = makeAxis("Number of Trials", fontAxisLabels, fontAxisTitle);
        trendAxisX->setLabelsVisible(false);
        trendAxisX->setTickCount(2);
    }
    makeOrNameTrendAxisY();
    completeChart({trendSeries, trendAxisX, trendAxisY, trendChart, trendView, "trendView"},
        {"Response Trend", fontChartTitle, leastWidth, trendRow, 0, 2}, gridLayoutCharts);
}

// A new axis is named after the modulation depth whatever the main parameter; later calls correct
// it.
void MainWindow::makeOrNameTrendAxisY()
{
    const AdaptedParameter* const adapted = adaptedParameter(data.mainParameter);
    if (trendAxisY == nullptr) {
        trendAxisY = makeAxis(
            adaptedParameter(modulationDepthParameter)->axisTitle, fontAxisLabels, fontAxisTitle);
        trendAxisY->setRange(trendYMin, trendYMax);
        trendAxisY->setLabelFormat("%.0f");
    } else if (adapted != nullptr) {
        trendAxisY->setTitleText(adapted->axisTitle);
    }
}
