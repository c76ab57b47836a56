// SPDX-License-Identifier: GPL-3.0-or-later
// All that a window holds and shows after View, and the first difference between two of them.
#include "hostile/WindowState.h"

#include "hostile/PanelFields.h"
#include "support/ExactVectors.h"
#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <algorithm>

using namespace quorin;

using Numbers = QVector<QPair<QString, QVector<double>>>;

namespace {

QVector<double> coordinates(const QVector<QPointF>& points)
{
    QVector<double> numbers;
    numbers.reserve(2 * points.size());
    for (const QPointF& point : points)
        numbers << point.x() << point.y();
    return numbers;
}

QVector<double> asDoubles(const QVector<int>& integers)
{
    return {integers.begin(), integers.end()};
}

QVector<double> limits(const QtCharts::QValueAxis* axis)
{
    return {axis->min(), axis->max()};
}

Numbers recordOf(const Data& data)
{
    const bool noReversals = std::all_of(
        data.reversals.begin(), data.reversals.end(), [](double value) { return value == 0.0; });
    return {
        {"choices", asDoubles({data.sesType, data.soundType, data.mainParameter, data.sesNum})},
        {"sampling rate", {data.fs}},
        {"durations", data.dur},
        {"numbers of samples", asDoubles(data.nSamples)},
        {"points to plot", asDoubles(data.nPointsToPlot)},
        {"bins to plot", asDoubles(data.nFreqPointsToPlot)},
        {"modulation frequencies", data.mf},
        {"modulation depths", data.md},
        {"frequency differences", data.fd},
        {"carriers", data.cf},
        {"numbers of reversals", asDoubles({data.nReversals, data.nReversalsToCalculate})},
        {"silence", {data.silentInterval}},
        {"progress", asDoubles({data.nTrials, data.reversalCount, data.records.size()})},
        {"no reversals", {noReversals ? 1.0 : 0.0}},
        {"results",
            {data.threshold, data.meanReactionTime, data.meanReactionTimeCorrect,
                data.meanReactionTimeIncorrect}},
        {"boxes", asDoubles({data.resetMdFd ? 1 : 0, data.saveData ? 1 : 0})},
    };
}

Numbers signalsOf(MainWindow& window)
{
    const QVector<qint64>& lengths = Probe::fftLength(window);
    return {
        {"time axis", Probe::timeAxis(window)},
        {"standard", Probe::stimuli(window)[standard].samples},
        {"deviant", Probe::stimuli(window)[deviant].samples},
        {"standard's range", Probe::stimuli(window)[standard].range},
        {"deviant's range", Probe::stimuli(window)[deviant].range},
        {"transform lengths", {lengths.begin(), lengths.end()}},
        {"transform durations", Probe::fftDuration(window)},
        {"resolutions", Probe::frequencyResolution(window)},
        {"frequency axis", Probe::frequencyAxis(window)},
        {"standard's amplitudes", Probe::stimuli(window)[standard].spectrum.amplitude},
        {"deviant's amplitudes", Probe::stimuli(window)[deviant].spectrum.amplitude},
        {"standard's phases", Probe::stimuli(window)[standard].spectrum.phase},
        {"deviant's phases", Probe::stimuli(window)[deviant].spectrum.phase},
        {"standard's amplitude range", Probe::stimuli(window)[standard].amplitudeRange},
        {"deviant's amplitude range", Probe::stimuli(window)[deviant].amplitudeRange},
        {"trend's trials", Probe::trendX(window)},
        {"trend's values", Probe::trendY(window)},
        {"trend's limits", {Probe::trendYMin(window), Probe::trendYMax(window)}},
    };
}

Numbers chartsOf(MainWindow& window)
{
    return {
        {"standard's curve",
            coordinates(Probe::waveCharts(window)[standard].line.series->pointsVector())},
        {"deviant's curve",
            coordinates(Probe::waveCharts(window)[deviant].line.series->pointsVector())},
        {"standard's spectrum",
            coordinates(Probe::spectrumCharts(window)[standard].line.series->pointsVector())},
        {"deviant's spectrum",
            coordinates(Probe::spectrumCharts(window)[deviant].line.series->pointsVector())},
        {"trend's curve", coordinates(Probe::trendSeries(window)->pointsVector())},
        {"standard's time axis", limits(Probe::waveCharts(window)[standard].line.axisX)},
        {"standard's amplitude axis", limits(Probe::waveCharts(window)[standard].line.axisY)},
        {"deviant's time axis", limits(Probe::waveCharts(window)[deviant].line.axisX)},
        {"deviant's amplitude axis", limits(Probe::waveCharts(window)[deviant].line.axisY)},
        {"standard's frequency axis", limits(Probe::spectrumCharts(window)[standard].line.axisX)},
        {"standard's spectrum axis", limits(Probe::spectrumCharts(window)[standard].line.axisY)},
        {"deviant's frequency axis", limits(Probe::spectrumCharts(window)[deviant].line.axisX)},
        {"deviant's spectrum axis", limits(Probe::spectrumCharts(window)[deviant].line.axisY)},
        {"trend's value axis", limits(Probe::trendAxisY(window))},
    };
}

Numbers controlsOf(MainWindow& window)
{
    return {
        {"shown choices",
            asDoubles({comboBoxOf(window, "comboBoxSesType")->currentIndex(),
                comboBoxOf(window, "comboBoxSoundType")->currentIndex(),
                comboBoxOf(window, "comboBoxMainParameter")->currentIndex()})},
        {"shown boxes",
            asDoubles({checkBoxOf(window, "checkBoxResetMdFd")->isChecked() ? 1 : 0,
                checkBoxOf(window, "checkBoxSaveData")->isChecked() ? 1 : 0})},
        {"what can be pressed",
            asDoubles({window.isEnabled() ? 1 : 0,
                buttonOf(window, "pushButtonView")->isEnabled() ? 1 : 0,
                buttonOf(window, "pushButtonGo")->isEnabled() ? 1 : 0})},
    };
}

} // namespace

WindowState stateOf(MainWindow& window)
{
    const Data& data = Probe::data(window);
    WindowState state = {{},
        {data.outputDir, data.subCode, data.fileName, textOf(window, "lineEditFilePath"),
            textOf(window, "lineEditFileName"), Probe::trendAxisY(window)->titleText()}};
    for (const Numbers& group :
        {recordOf(data), signalsOf(window), chartsOf(window), controlsOf(window)}) {
        for (const auto& entry : group)
            state.numbers.append(entry);
    }
    for (const PanelField& field : panelFields())
        state.texts.append(textOf(window, field.name));
    return state;
}

QString difference(const WindowState& a, const WindowState& b)
{
    for (int i = 0; i < a.numbers.size(); ++i) {
        const int place = firstDifference(a.numbers[i].second, b.numbers[i].second);
        if (place >= 0)
            return QString("%1, number %2").arg(a.numbers[i].first).arg(place);
    }
    for (int i = 0; i < a.texts.size(); ++i) {
        if (a.texts[i] != b.texts[i])
            return QString("<%1> instead of <%2>").arg(a.texts[i], b.texts[i]);
    }
    return {};
}
