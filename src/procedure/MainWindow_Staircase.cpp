// SPDX-License-Identifier: GPL-3.0-or-later
// The trend, the judgement of a trial, and the steps of the deviant.
#include "app/MainWindow.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

void MainWindow::updateTrend()
{
    if (!hasCurrentRecord(data)) {
        return;
    }
    trendX.append(data.nTrials - 1);
    const AdaptedParameter* const adapted = adaptedParameter(data.mainParameter);
    if (adapted != nullptr) {
        trendY.append(adapted->shown(adaptedValue(data), data.cf[standard]));
    }
    // Ticks before range before point: in any other order the chart is painted twice.
    trendAxisX->setTickCount(data.nTrials + 1);
    trendAxisX->setRange(0, data.nTrials);
    trendAxisX->setLabelFormat("%g");
    widenTrend();
    if (!trendY.isEmpty()) {
        trendSeries->append(trendX.last(), trendY.last());
    }
}

// One point alone leaves the axis as it was. From the first value that differs from it on, the axis
// shows the smallest to the largest value so far.
void MainWindow::widenTrend()
{
    if (trendY.isEmpty()) {
        return;
    }
    const double last = trendY.last();
    if (trendY.size() == 1) {
        trendYMin = last;
        trendYMax = last;
        return;
    }
    if (last > trendYMax) {
        trendYMax = last;
        trendAxisY->setRange(trendYMin, trendYMax);
    }
    if (trendYMin > last) {
        trendYMin = last;
        trendAxisY->setRange(trendYMin, trendYMax);
    }
}

void MainWindow::updateReversal()
{
    if (!hasCurrentRecord(data)) {
        return;
    }
    if (judgeTrial(data, data.nTrials - 1) == AfterTrial::end) {
        finishIt();
        return;
    }
    updateMD();
    genWav();
    updateWav();
    genFFT();
    updateFFT();
    playWav();
}

void MainWindow::updateMD()
{
    stepDeviant(data);
    if (data.mainParameter == modulationDepthParameter) {
        showDeviantDepth();
    } else if (data.mainParameter == carrierFrequencyParameter) {
        showDeviantDifference();
        showDeviantCarrier();
    }
}

void MainWindow::resetMdFdCf()
{
    resetDeviant(data);
    showDeviantDepth();
    showDeviantDifference();
    showDeviantCarrier();
}

void MainWindow::resetTrend()
{
    trendX.clear();
    trendY.clear();
    clearRun(data);
    recordedDisturbances.clear();
    disturbances = {};
    trendSeries->clear();
    trendYMin = emptyTrendMin;
    trendYMax = emptyTrendMax;
    trendAxisY->setRange(trendYMin, trendYMax);
}
