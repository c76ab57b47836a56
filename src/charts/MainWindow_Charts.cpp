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
    showWaveChart(standard);
    showWaveChart(deviant);
}

void MainWindow::showWaveChart(int index)
{
    constexpr const char* viewNames[] = {"standardWaveView", "deviantWaveView"};
    constexpr const char* titles[] = {"Time Waveform (standard)", "Time Waveform (Deviant)"};
    Stimulus& stimulus = stimuli[index];
    Chart& chart = waveCharts[index];
    ChartLine& line = chart.line;
    if (line.series == nullptr) {
        line.series = new QtCharts::QLineSeries;
    }
    stimulus.points = chartPoints(timeAxis, stimulus.samples, data.nPointsToPlot[index]);
    line.series->replace(stimulus.points);
    stimulus.range = amplitudeRange(stimulus.samples);
    if (line.axisX == nullptr) {
        line.axisX = makeAxis("Time (ms)", fontAxisLabels, fontAxisTitle);
    }
    line.axisX->setRange(0, sampleTime(data.nPointsToPlot[index], data.fs));
    if (line.axisY == nullptr) {
        line.axisY = makeAxis("Amplitude", fontAxisLabels, fontAxisTitle);
    }
    setAxisRange(line.axisY, stimulus.range);
    completeChart(line, chart.chart, chart.view,
        {viewNames[index], titles[index], fontChartTitle, stimulusChartWidth, waveformRow, index,
            1},
        gridLayoutCharts);
}

void MainWindow::displayFFT()
{
    showSpectrumChart(standard);
    showSpectrumChart(deviant);
}

// The frequency axis keeps the range that it is made with.
void MainWindow::showSpectrumChart(int index)
{
    constexpr const char* viewNames[] = {"standardSpectrumView", "deviantSpectrumView"};
    constexpr const char* titles[]
        = {"Amplitude Spectrum (standard)", "Amplitude Spectrum (Deviant)"};
    Stimulus& stimulus = stimuli[index];
    const QVector<double>& amplitude = stimulus.spectrum.amplitude;
    Chart& chart = spectrumCharts[index];
    ChartLine& line = chart.line;
    if (line.series == nullptr) {
        line.series = new QtCharts::QLineSeries;
    }
    stimulus.spectrumPoints = chartPoints(frequencyAxis, amplitude, data.nFreqPointsToPlot[index]);
    line.series->replace(stimulus.spectrumPoints);
    stimulus.amplitudeRange = amplitudeRange(amplitude);
    if (line.axisX == nullptr) {
        line.axisX = makeAxis("Frequency (Hz)", fontAxisLabels, fontAxisTitle);
        line.axisX->setRange(0, data.freqToPlot[index]);
        line.axisX->setLabelFormat("%.0f");
    }
    if (line.axisY == nullptr) {
        line.axisY = makeAxis("Amplitude", fontAxisLabels, fontAxisTitle);
        line.axisY->setRange(0, 1);
    }
    setAxisRange(line.axisY, stimulus.amplitudeRange);
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
