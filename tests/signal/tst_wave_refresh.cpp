// SPDX-License-Identifier: GPL-3.0-or-later
// The waveform charts after new sounds.
#include "signal/StatedSound.h"
#include "support/ExactVectors.h"
#include "support/Points.h"
#include "support/WindowTest.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

namespace {

QVector<double> ramp(int size, double start, double step)
{
    QVector<double> samples(size);
    for (int k = 0; k < size; ++k) {
        samples[k] = start + k * step;
    }
    return samples;
}

QVector<QPointF> points(const QVector<double>& y, int n)
{
    return pointsOf(statedTimes(n, 40000.0), y, n);
}

} // namespace

class TestWaveRefresh : public WindowTest {
    Q_OBJECT

private slots:
    void points_areOverwrittenInPlace_whenTheSoundsChanged()
    {
        MainWindow window;
        takeNewSounds(window);
        window.updateWav();
        QCOMPARE(Probe::stimuli(window)[standard].points,
            points(Probe::stimuli(window)[standard].samples, 2000));
        QCOMPARE(Probe::stimuli(window)[deviant].points,
            points(Probe::stimuli(window)[deviant].samples, 2000));
        QCOMPARE(Probe::waveCharts(window)[standard].line.series->pointsVector(),
            Probe::stimuli(window)[standard].points);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.series->pointsVector(),
            Probe::stimuli(window)[deviant].points);
    }

    void lists_keepTheirLengthAndTails_whenFewerPointsArePlotted()
    {
        MainWindow window;
        const QVector<QPointF> oldStandard = Probe::stimuli(window)[standard].points;
        const QVector<QPointF> oldDeviant = Probe::stimuli(window)[deviant].points;
        takeNewSounds(window);
        Probe::data(window).durToPlot = {0.025, 0.01};
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({1000, 400}));
        QCOMPARE(Probe::stimuli(window)[standard].points,
            points(Probe::stimuli(window)[standard].samples, 1000) + oldStandard.mid(1000));
        QCOMPARE(Probe::stimuli(window)[deviant].points,
            points(Probe::stimuli(window)[deviant].samples, 400) + oldDeviant.mid(400));
        QCOMPARE(Probe::waveCharts(window)[standard].line.series->pointsVector(),
            Probe::stimuli(window)[standard].points);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.series->count(), 2000);
        QCOMPARE(Probe::timeAxis(window).size(), 2000);
    }

    void listsAndTimes_areLengthened_whenMorePointsArePlotted()
    {
        MainWindow window;
        takeNewSounds(window);
        Probe::data(window).durToPlot = {0.1, 0.06};
        window.updateWav();
        QCOMPARE(Probe::stimuli(window)[standard].points,
            points(Probe::stimuli(window)[standard].samples, 4000));
        QCOMPARE(Probe::stimuli(window)[deviant].points,
            points(Probe::stimuli(window)[deviant].samples, 2400));
        QCOMPARE(firstDifference(Probe::timeAxis(window), statedTimes(4000, 40000.0)), -1);
        QCOMPARE(Probe::waveCharts(window)[standard].line.series->count(), 4000);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.series->count(), 2400);
    }

    // Reading the panel for a run may ask for more samples than the sounds of the last View have.
    void noPoint_isAddedThatTheSoundsDoNotHave()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "20.00");
        type(window, "lineEditDevDuration", "10.00");
        window.on_pushButtonView_clicked();
        Probe::data(window).nSamples = {24000, 24000};
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({2000, 2000}));
        QCOMPARE(Probe::stimuli(window)[standard].points,
            points(Probe::stimuli(window)[standard].samples, 800));
        QCOMPARE(Probe::stimuli(window)[deviant].points,
            points(Probe::stimuli(window)[deviant].samples, 400));
        QCOMPARE(Probe::timeAxis(window).size(), 800);
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisX->max(), 50.0);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisX->max(), 50.0);
    }

    void timeAxes_endAtThePlottedCounts()
    {
        MainWindow window;
        Probe::data(window).durToPlot = {0.0250249, 0.7};
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({1000, 24000}));
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisX->min(), 0.0);
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisX->max(), 25.0);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisX->min(), 0.0);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisX->max(), 600.0);
    }

    void ranges_coverTheWholeSounds_notOnlyThePlottedPart()
    {
        MainWindow window;
        takeNewSounds(window);
        Probe::stimuli(window)[standard].samples[20000] = 5.0;
        Probe::stimuli(window)[standard].samples[23999] = -6.0;
        Probe::stimuli(window)[deviant].samples[2000] = 7.0;
        Probe::stimuli(window)[deviant].samples[2001] = -8.0;
        window.updateWav();
        verifyRanges(window, {-6.0, 5.0}, {-8.0, 7.0});
    }

    void emptySounds_keepTheListsAndShowMinus1To1()
    {
        MainWindow window;
        const QVector<QPointF> before = Probe::stimuli(window)[standard].points;
        emptySounds(window, 0);
        window.updateWav();
        QCOMPARE(Probe::stimuli(window)[standard].points, before);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.series->count(), 2000);
        verifyRanges(window, {-1.0, 1.0}, {-1.0, 1.0});
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisX->max(), 0.0);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisX->max(), 0.0);
    }

    // A time axis that would end before 0 is refused by Qt Charts.
    void timeAxes_keepTheirRange_whenTheCountsAreNegative()
    {
        MainWindow window;
        emptySounds(window, -100);
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({-100, -100}));
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisX->max(), 50.0);
        verifyRanges(window, {-1.0, 1.0}, {-1.0, 1.0});
    }

    void axes_keepTheirRange_whenTheStandardIsUndefined()
    {
        MainWindow window;
        takeNewSounds(window);
        window.updateWav();
        const double lowest = Probe::waveCharts(window)[standard].line.axisY->min();
        const double highest = Probe::waveCharts(window)[standard].line.axisY->max();
        tolerateUndefinedChartValues();
        Probe::stimuli(window)[standard].samples.fill(qQNaN());
        window.updateWav();
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisY->min(), lowest);
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisY->max(), highest);
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].range));
    }

    // The axis was made by View, at its rate; the list that View made keeps its length.
    void times_goOnGrowing_whenTheRateWasRaisedAfterView()
    {
        MainWindow window;
        window.on_pushButtonView_clicked();
        answerATrialAt(window, "44100");
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({2205, 2205}));
        QCOMPARE(Probe::timeAxis(window), statedTimes(2205, 40000.0));
        QCOMPARE(Probe::stimuli(window)[deviant].points,
            pointsOf(statedTimes(2205, 40000.0), Probe::stimuli(window)[deviant].samples, 2205));
        QCOMPARE(Probe::stimuli(window)[standard].points,
            pointsOf(statedTimes(2205, 40000.0), Probe::stimuli(window)[standard].samples, 2205));
    }

    void oldTail_staysInThePicture_whenTheRateWasLoweredAfterView()
    {
        MainWindow window;
        window.on_pushButtonView_clicked();
        const QVector<QPointF> old = Probe::stimuli(window)[deviant].points;
        answerATrialAt(window, "22050");
        QCOMPARE(Probe::timeAxis(window), statedTimes(2000, 40000.0));
        QCOMPARE(Probe::stimuli(window)[deviant].points,
            points(Probe::stimuli(window)[deviant].samples, 1102) + old.mid(1102));
    }

    void times_areOfTheNewRate_whenTheAxisWasEmpty()
    {
        tolerateUndefinedChartValues();
        MainWindow window;
        type(window, "lineEditSamplingRate", "0");
        window.on_pushButtonView_clicked();
        answerATrialAt(window, "44100");
        QCOMPARE(Probe::timeAxis(window), statedTimes(2205, 44100.0));
    }

private:
    // Go and an answer at another rate than that of View.
    static void answerATrialAt(MainWindow& window, const QString& rate)
    {
        type(window, "lineEditSamplingRate", rate);
        window.on_pushButtonGo_clicked();
        window.updateMainwindow(0);
        window.updateMainwindow(2);
    }

    static void takeNewSounds(MainWindow& window)
    {
        Probe::stimuli(window)[standard].samples = ramp(24000, -1.0, 1.0 / 16384);
        Probe::stimuli(window)[deviant].samples = ramp(24000, 0.75, -1.0 / 32768);
    }

    static void emptySounds(MainWindow& window, int nSamples)
    {
        Probe::data(window).nSamples = {nSamples, nSamples};
        Probe::stimuli(window)[standard].samples.clear();
        Probe::stimuli(window)[deviant].samples.clear();
    }

    static void verifyRanges(
        MainWindow& window, const QVector<double>& first, const QVector<double>& second)
    {
        QCOMPARE(Probe::stimuli(window)[standard].range, first);
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisY->min(), first[0]);
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisY->max(), first[1]);
        QCOMPARE(Probe::stimuli(window)[deviant].range, second);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisY->min(), second[0]);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisY->max(), second[1]);
    }
};

QUORIN_TEST(TestWaveRefresh);
#include "tst_wave_refresh.moc"
