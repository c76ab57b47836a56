// SPDX-License-Identifier: GPL-3.0-or-later
// What the charts of the sounds and of their spectra show.
#include "charts/ChartObjects.h"
#include "support/ExactVectors.h"
#include "support/Points.h"
#include "support/WindowTest.h"

#include <algorithm>

using namespace quorin;

namespace {

QVector<double> extremes(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return {values.first(), values.last()};
}

} // namespace

class TestStimulusCharts : public WindowTest {
    Q_OBJECT

private slots:
    void waveforms_show50Milliseconds_whenTheWindowOpens()
    {
        MainWindow window;
        verifyWaveforms(window, {2000, 2000});
        verifyRange(waveChart(window, standard).axisX, 0.0, 50.0);
        verifyRange(waveChart(window, deviant).axisX, 0.0, 50.0);
    }

    void waveforms_areReplaced_whenDisplayedAfterNewSounds()
    {
        MainWindow window;
        window.genWav();
        Probe::data(window).durToPlot = {0.025, 0.01};
        window.displayWav();
        QCOMPARE(Probe::stimuli(window)[standard].points.size(), 1000);
        QCOMPARE(Probe::stimuli(window)[deviant].points.size(), 400);
        verifyWaveforms(window, {1000, 400});
    }

    void pointsToPlot_areRoundedDownAndLimited_data()
    {
        addColumns<double, int, double>("seconds", "nPoints", "endMs");
        QTest::newRow("whole") << 0.02 << 800 << 20.0;
        QTest::newRow("rounded down") << 0.01001 << 400 << 10.0;
        QTest::newRow("a product that rounds below 1720") << 0.043 << 1719 << 42.975;
        QTest::newRow("as long as the sound") << 0.6 << 24000 << 600.0;
        QTest::newRow("longer than the sound") << 5.0 << 24000 << 600.0;
        QTest::newRow("none") << 0.0 << 0 << 0.0;
        QTest::newRow("not a number") << qQNaN() << 0 << 0.0;
    }

    void pointsToPlot_areRoundedDownAndLimited()
    {
        QFETCH(double, seconds);
        QFETCH(int, nPoints);
        QFETCH(double, endMs);
        MainWindow window;
        Probe::data(window).durToPlot = {seconds, seconds};
        window.updateNPointsToPlot();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({nPoints, nPoints}));
        window.genWav();
        window.displayWav();
        verifyWaveforms(window, {nPoints, nPoints});
        verifyRange(waveChart(window, standard).axisX, 0.0, endMs);
        verifyRange(waveChart(window, deviant).axisX, 0.0, endMs);
    }

    void pointsToPlot_areCutForEachSoundByItself()
    {
        MainWindow window;
        Probe::data(window).nSamples = {300, 24000};
        Probe::data(window).durToPlot = {0.05, 0.005};
        window.updateNPointsToPlot();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({300, 200}));
    }

    void pointsToPlot_areNeverMoreThanAChartCanShow()
    {
        MainWindow window;
        Probe::data(window).nSamples = {1 << 23, 100000};
        Probe::data(window).durToPlot = {1e9, 1e9};
        window.updateNPointsToPlot();
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({100000, 100000}));
    }

    void amplitudeRanges_coverTheWholeSounds()
    {
        MainWindow window;
        Probe::stimuli(window)[standard].samples[23999] = 4.0;
        Probe::stimuli(window)[deviant].samples[12000] = -3.0;
        window.displayWav();
        QCOMPARE(waveChart(window, standard).axisY->max(), 4.0);
        QCOMPARE(waveChart(window, deviant).axisY->min(), -3.0);
        verifyWaveforms(window, {2000, 2000});
    }

    void amplitudeAxes_showMinus1To1OverNoTime_whenTheSoundsAreEmpty()
    {
        MainWindow window;
        tolerateUndefinedChartValues(); // the spectra of nothing
        typeDurations(window, "0");
        window.on_pushButtonView_clicked();
        for (const ChartObjects& objects :
            {waveChart(window, standard), waveChart(window, deviant)}) {
            QCOMPARE(objects.series->count(), 0);
            verifyRange(objects.axisX, 0.0, 0.0);
            verifyRange(objects.axisY, -1.0, 1.0);
        }
        QCOMPARE(Probe::stimuli(window)[standard].range, QVector<double>({-1.0, 1.0}));
        QCOMPARE(Probe::stimuli(window)[deviant].range, QVector<double>({-1.0, 1.0}));
    }

    void amplitudeAxes_keepTheirRanges_whenTheValuesAreUndefined()
    {
        MainWindow window;
        const double wave = waveChart(window, standard).axisY->max();
        const double spectrum = spectrumChart(window, standard).axisY->max();
        tolerateUndefinedChartValues();
        Probe::stimuli(window)[standard].samples.fill(qQNaN());
        Probe::stimuli(window)[standard].spectrum.amplitude.fill(qQNaN());
        window.displayWav();
        window.displayFFT();
        QCOMPARE(waveChart(window, standard).axisY->max(), wave);
        QCOMPARE(spectrumChart(window, standard).axisY->max(), spectrum);
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].range));
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].amplitudeRange));
    }

    void spectra_showTheirFirst1638Bins_whenTheWindowOpens()
    {
        MainWindow window;
        verifySpectra(window, {1638, 1638});
        verifyRange(spectrumChart(window, standard).axisX, 0.0, 2000.0);
        verifyRange(spectrumChart(window, deviant).axisX, 0.0, 2000.0);
    }

    void spectra_areReplaced_whenDisplayedAgain()
    {
        MainWindow window;
        window.genWav();
        window.genFFT();
        Probe::data(window).nFreqPointsToPlot = {500, 16384};
        window.displayFFT();
        QCOMPARE(Probe::stimuli(window)[standard].spectrumPoints.size(), 500);
        QCOMPARE(Probe::stimuli(window)[deviant].spectrumPoints.size(), 16384);
        verifySpectra(window, {500, 16384});
    }

    void frequencyAxes_keepTheRangeOfTheirCreation()
    {
        MainWindow window;
        Probe::data(window).freqToPlot = {500.0, 600.0};
        window.displayFFT();
        window.on_pushButtonView_clicked();
        verifyRange(spectrumChart(window, standard).axisX, 0.0, 2000.0);
        verifyRange(spectrumChart(window, deviant).axisX, 0.0, 2000.0);
    }

    void frequencyAxes_takeTheirOwnHighestFrequency_whenCreated()
    {
        MainWindow window;
        spectrumChart(window, standard).remove();
        spectrumChart(window, deviant).remove();
        Probe::data(window).freqToPlot = {500.0, 600.0};
        window.displayFFT();
        verifyRange(spectrumChart(window, standard).axisX, 0.0, 500.0);
        verifyRange(spectrumChart(window, deviant).axisX, 0.0, 600.0);
    }

    void spectrumAmplitudeAxes_span0To1_whenCreatedOverUndefinedSpectra()
    {
        MainWindow window;
        tolerateUndefinedChartValues();
        spectrumChart(window, standard).remove();
        spectrumChart(window, deviant).remove();
        Probe::stimuli(window)[standard].spectrum.amplitude.fill(qQNaN());
        Probe::stimuli(window)[deviant].spectrum.amplitude.fill(qQNaN());
        window.displayFFT();
        verifyRange(spectrumChart(window, standard).axisY, 0.0, 1.0);
        verifyRange(spectrumChart(window, deviant).axisY, 0.0, 1.0);
    }

    void amplitudeAxis_hasEqualLimits_whenAllAmplitudesAreEqual()
    {
        MainWindow window;
        Probe::stimuli(window)[standard].spectrum.amplitude.fill(0.25);
        Probe::stimuli(window)[deviant].spectrum.amplitude.fill(0.0);
        window.displayFFT();
        verifyRange(spectrumChart(window, standard).axisY, 0.25, 0.25);
        verifyRange(spectrumChart(window, deviant).axisY, 0.0, 0.0);
        verifySpectra(window, {1638, 1638});
    }

    void amplitudeRanges_coverTheWholeSpectra()
    {
        MainWindow window;
        Probe::stimuli(window)[standard].spectrum.amplitude[16383] = 4.0;
        Probe::stimuli(window)[deviant].spectrum.amplitude[1638] = 5.0;
        window.displayFFT();
        QCOMPARE(spectrumChart(window, standard).axisY->max(), 4.0);
        QCOMPARE(spectrumChart(window, deviant).axisY->max(), 5.0);
        verifySpectra(window, {1638, 1638});
    }

    void everyChart_follows_whenATrialIsAnswered()
    {
        MainWindow window;
        window.updateMainwindow(0);
        for (int answers = 1; answers <= 3; ++answers) {
            const QVector<QPointF> before = waveChart(window, deviant).series->pointsVector();
            window.updateMainwindow(2);
            QVERIFY(waveChart(window, deviant).series->pointsVector() != before);
            verifyWaveforms(window, {2000, 2000});
            verifySpectra(window, {1638, 1638});
            QCOMPARE(trend(window).series->count(), answers);
        }
    }

private:
    static void verifyWaveforms(MainWindow& window, const QVector<int>& nPoints)
    {
        for (const int i : {standard, deviant}) {
            const QVector<double>& sound = Probe::stimuli(window)[i].samples;
            verifyChart(waveChart(window, i), Probe::timeAxis(window), sound, nPoints[i]);
            QCOMPARE(Probe::stimuli(window)[i].range, extremes(sound));
        }
    }

    static void verifySpectra(MainWindow& window, const QVector<int>& nPoints)
    {
        for (const int i : {standard, deviant}) {
            const QVector<double>& amplitude = Probe::stimuli(window)[i].spectrum.amplitude;
            verifyChart(
                spectrumChart(window, i), Probe::frequencyAxis(window), amplitude, nPoints[i]);
            QCOMPARE(Probe::stimuli(window)[i].amplitudeRange, extremes(amplitude));
        }
    }

    static void verifyChart(
        const ChartObjects& objects, const QVector<double>& x, const QVector<double>& y, int n)
    {
        QCOMPARE(objects.series->pointsVector(), pointsOf(x, y, n));
        verifyRange(objects.axisY, extremes(y)[0], extremes(y)[1]);
    }
};

QUORIN_TEST(TestStimulusCharts);
#include "tst_stimulus_charts.moc"
