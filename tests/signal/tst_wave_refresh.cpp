// SPDX-License-Identifier: GPL-3.0-or-later
// The waveform charts after new sounds.
#include "charts/ChartObjects.h"
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

} // namespace

class TestWaveRefresh : public WindowTest {
    Q_OBJECT

private slots:
    void points_areOverwrittenInPlace_whenTheSoundsChanged()
    {
        MainWindow window;
        takeNewSounds(window);
        window.updateWav();
        for (const int i : {standard, deviant}) {
            QCOMPARE(pointsOfSound(window, i), firstPoints(window, i, 2000));
            QCOMPARE(waveChart(window, i).series->pointsVector(), pointsOfSound(window, i));
        }
    }

    void lists_keepTheirLengthAndTails_whenFewerPointsArePlotted()
    {
        MainWindow window;
        const QVector<QPointF> oldStandard = pointsOfSound(window, standard);
        const QVector<QPointF> oldDeviant = pointsOfSound(window, deviant);
        takeNewSounds(window);
        Probe::data(window).durToPlot = {0.025, 0.01};
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({1000, 400}));
        QCOMPARE(pointsOfSound(window, standard),
            firstPoints(window, standard, 1000) + oldStandard.mid(1000));
        QCOMPARE(pointsOfSound(window, deviant),
            firstPoints(window, deviant, 400) + oldDeviant.mid(400));
        QCOMPARE(
            waveChart(window, standard).series->pointsVector(), pointsOfSound(window, standard));
        QCOMPARE(waveChart(window, deviant).series->count(), 2000);
        QCOMPARE(Probe::timeAxis(window).size(), 2000);
    }

    void listsAndTimes_areLengthened_whenMorePointsArePlotted()
    {
        MainWindow window;
        takeNewSounds(window);
        Probe::data(window).durToPlot = {0.1, 0.06};
        window.updateWav();
        QCOMPARE(pointsOfSound(window, standard), firstPoints(window, standard, 4000));
        QCOMPARE(pointsOfSound(window, deviant), firstPoints(window, deviant, 2400));
        QCOMPARE(firstDifference(Probe::timeAxis(window), statedTimes(4000, 40000.0)), -1);
        QCOMPARE(waveChart(window, standard).series->count(), 4000);
        QCOMPARE(waveChart(window, deviant).series->count(), 2400);
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
        QCOMPARE(pointsOfSound(window, standard), firstPoints(window, standard, 800));
        QCOMPARE(pointsOfSound(window, deviant), firstPoints(window, deviant, 400));
        QCOMPARE(Probe::timeAxis(window).size(), 800);
        verifyTimes(window, 50.0, 50.0);
    }

    void timeAxes_endAtThePlottedCounts()
    {
        MainWindow window;
        Probe::data(window).durToPlot = {0.0250249, 0.7};
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({1000, 24000}));
        verifyTimes(window, 25.0, 600.0);
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
        const QVector<QPointF> before = pointsOfSound(window, standard);
        emptySounds(window, 0);
        window.updateWav();
        QCOMPARE(pointsOfSound(window, standard), before);
        QCOMPARE(waveChart(window, deviant).series->count(), 2000);
        verifyRanges(window, {-1.0, 1.0}, {-1.0, 1.0});
        verifyTimes(window, 0.0, 0.0);
    }

    // A time axis that would end before 0 is refused by Qt Charts.
    void timeAxes_keepTheirRange_whenTheCountsAreNegative()
    {
        MainWindow window;
        emptySounds(window, -100);
        window.updateWav();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({-100, -100}));
        verifyTimes(window, 50.0, 50.0);
        verifyRanges(window, {-1.0, 1.0}, {-1.0, 1.0});
    }

    void axes_keepTheirRange_whenTheStandardIsUndefined()
    {
        MainWindow window;
        takeNewSounds(window);
        window.updateWav();
        const QtCharts::QValueAxis* const axis = waveChart(window, standard).axisY;
        const double lowest = axis->min();
        const double highest = axis->max();
        tolerateUndefinedChartValues();
        Probe::stimuli(window)[standard].samples.fill(qQNaN());
        window.updateWav();
        verifyRange(axis, lowest, highest);
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
        for (const int i : {standard, deviant})
            QCOMPARE(pointsOfSound(window, i), firstPoints(window, i, 2205));
    }

    void oldTail_staysInThePicture_whenTheRateWasLoweredAfterView()
    {
        MainWindow window;
        window.on_pushButtonView_clicked();
        const QVector<QPointF> old = pointsOfSound(window, deviant);
        answerATrialAt(window, "22050");
        QCOMPARE(Probe::timeAxis(window), statedTimes(2000, 40000.0));
        QCOMPARE(
            pointsOfSound(window, deviant), firstPoints(window, deviant, 1102) + old.mid(1102));
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

    static QVector<QPointF> pointsOfSound(MainWindow& window, int stimulus)
    {
        return Probe::stimuli(window)[stimulus].points;
    }

    // The points of the first n samples at the rate that the window opens with.
    static QVector<QPointF> firstPoints(MainWindow& window, int stimulus, int n)
    {
        return pointsOf(statedTimes(n, 40000.0), Probe::stimuli(window)[stimulus].samples, n);
    }

    static void verifyTimes(MainWindow& window, double standardEnd, double deviantEnd)
    {
        verifyRange(waveChart(window, standard).axisX, 0.0, standardEnd);
        verifyRange(waveChart(window, deviant).axisX, 0.0, deviantEnd);
    }

    static void verifyRanges(
        MainWindow& window, const QVector<double>& first, const QVector<double>& second)
    {
        QCOMPARE(Probe::stimuli(window)[standard].range, first);
        QCOMPARE(Probe::stimuli(window)[deviant].range, second);
        verifyRange(waveChart(window, standard).axisY, first[0], first[1]);
        verifyRange(waveChart(window, deviant).axisY, second[0], second[1]);
    }
};

QUORIN_TEST(TestWaveRefresh);
#include "tst_wave_refresh.moc"
