// SPDX-License-Identifier: GPL-3.0-or-later
// The charts of the window on their first display and on View: the waveforms and the spectra of
// the standard and the deviant, and the trend.
#include "app/MainWindow.h"
#include "charts/ChartData.h"
#include "charts/ChartParts.h"
#include "session/AdaptedParameter.h"
#include "session/Counts.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

void MainWindow::makeChartFonts()
{
    constexpr int labelPixels = 10;
    constexpr int titlePixels = 12;
    fontAxisLabels.setPixelSize(labelPixels);
    fontAxisTitle.setPixelSize(labelPixels);
    fontChartTitle.setPixelSize(titlePixels);
    for (QFont* font : {&fontAxisLabels, &fontAxisTitle, &fontChartTitle}) {
        font->setWeight(QFont::Normal);
    }
}

void MainWindow::updateNPointsToPlot()
{
    for (const int i : {standard, deviant}) {
        data.nPointsToPlot[i] = plottedPoints(data.fs, data.durToPlot[i], data.nSamples[i]);
    }
}

void MainWindow::displayWav()
{
    updateNPointsToPlot();
    for (const int i : {standard, deviant}) {
        makeSeriesIfMissing(waveCharts[i].line);
        stimuli[i].points = chartPoints(timeAxis, stimuli[i].samples, data.nPointsToPlot[i]);
    }
    for (const int i : {standard, deviant}) {
        waveCharts[i].line.series->replace(stimuli[i].points);
        stimuli[i].range = amplitudeRange(stimuli[i].samples);
    }
    for (const int i : {standard, deviant}) {
        showWaveChart(i);
    }
}

void MainWindow::showWaveChart(int index)
{
    constexpr const char* viewNames[] = {"standardWaveView", "deviantWaveView"};
    constexpr const char* titles[] = {"Time Waveform (standard)", "Time Waveform (Deviant)"};
    Chart& chart = waveCharts[index];
    ChartLine& line = chart.line;
    if (line.axisX == nullptr) {
        line.axisX = makeAxis("Time (ms)", fontAxisLabels, fontAxisTitle);
    }
    line.axisX->setRange(0, sampleTime(data.nPointsToPlot[index], data.fs));
    if (line.axisY == nullptr) {
        line.axisY = makeAxis("Amplitude", fontAxisLabels, fontAxisTitle);
    }
    setAxisRange(line.axisY, stimuli[index].range);
    completeChart(line, chart.chart, chart.view,
        {viewNames[index], titles[index], fontChartTitle, stimulusChartWidth, waveformRow, index,
            1},
        gridLayoutCharts);
}

void MainWindow::displayFFT()
{
    for (const int i : {standard, deviant}) {
        makeSeriesIfMissing(spectrumCharts[i].line);
        stimuli[i].spectrumPoints
            = chartPoints(frequencyAxis, stimuli[i].spectrum.amplitude, data.nFreqPointsToPlot[i]);
    }
    for (const int i : {standard, deviant}) {
        spectrumCharts[i].line.series->replace(stimuli[i].spectrumPoints);
        stimuli[i].amplitudeRange = amplitudeRange(stimuli[i].spectrum.amplitude);
    }
    for (const int i : {standard, deviant}) {
        showSpectrumChart(i);
    }
}

// The frequency axis keeps the range that it is made with.
void MainWindow::showSpectrumChart(int index)
{
    constexpr const char* viewNames[] = {"standardSpectrumView", "deviantSpectrumView"};
    constexpr const char* titles[]
        = {"Amplitude Spectrum (standard)", "Amplitude Spectrum (Deviant)"};
    Chart& chart = spectrumCharts[index];
    ChartLine& line = chart.line;
    if (line.axisX == nullptr) {
        line.axisX = makeAxis("Frequency (Hz)", fontAxisLabels, fontAxisTitle);
        line.axisX->setRange(0, data.freqToPlot[index]);
        line.axisX->setLabelFormat("%.0f");
    }
    if (line.axisY == nullptr) {
        line.axisY = makeAxis("Amplitude", fontAxisLabels, fontAxisTitle);
        line.axisY->setRange(0, 1);
    }
    setAxisRange(line.axisY, stimuli[index].amplitudeRange);
    completeChart(line, chart.chart, chart.view,
        {viewNames[index], titles[index], fontChartTitle, stimulusChartWidth, spectrumRow, index,
            1},
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
    completeChart({trendSeries, trendAxisX, trendAxisY}, trendChart, trendView,
        {"trendView", "Response Trend", fontChartTitle, leastWidth, trendRow, 0, 2},
        gridLayoutCharts);
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
