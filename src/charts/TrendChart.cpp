// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "charts/ChartParts.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

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
    const QString depthTitle("Modulation Depth (%)");
    if (trendAxisY == nullptr) {
        trendAxisY = makeAxis(depthTitle, fontAxisLabels, fontAxisTitle);
        trendAxisY->setRange(trendYMin, trendYMax);
        trendAxisY->setLabelFormat("%.0f");
    } else if (data.mainParameter == modulationDepthParameter) {
        trendAxisY->setTitleText(depthTitle);
    } else if (data.mainParameter == carrierFrequencyParameter) {
        trendAxisY->setTitleText("Frequency difference (Hz)");
    }
}
