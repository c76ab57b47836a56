// SPDX-License-Identifier: GPL-3.0-or-later
// The spectra that the window makes of its two sounds.
#include "signal/Spectrum.h"
#include "support/ExactVectors.h"
#include "support/Points.h"
#include "support/WindowTest.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

QVector<double> multiples(double step, int first, int last)
{
    QVector<double> values;
    for (int k = first; k <= last; ++k) {
        values.append(step * k);
    }
    return values;
}

} // namespace

class TestSpectrumAnalysis : public WindowTest {
    Q_OBJECT

private slots:
    void defaults_giveAResolutionOf40000Over32768()
    {
        MainWindow window;
        QCOMPARE(Probe::fftLength(window), QVector<qint64>({32768, 32768}));
        QCOMPARE(Probe::fftDuration(window), QVector<double>(2, 0.8192));
        QCOMPARE(Probe::frequencyResolution(window)[standard], 1.220703125);
        QCOMPARE(Probe::frequencyResolution(window)[deviant], 1.220703125);
        const double resolution = 1 / (32768 / 40000.0);
        QCOMPARE(
            firstDifference(Probe::frequencyAxis(window), multiples(resolution, 0, 16383)), -1);
        QCOMPARE(Probe::windowSelector(window), 0);
    }

    void sounds_haveTheirPeakInBin819_whenTheyAreTonesOf1000Hz()
    {
        MainWindow window;
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(sinusoidCarrier);
        Probe::data(window).equalizeRms = false;
        window.on_pushButtonView_clicked();
        const QVector<double>& amplitude = Probe::stimuli(window)[standard].spectrum.amplitude;
        const auto peak = std::max_element(amplitude.begin(), amplitude.end());
        QCOMPARE(static_cast<int>(peak - amplitude.begin()), 819);
        QVERIFY(*peak > 0.96);
        QVERIFY(*peak < 1.0);
    }

    void eachSound_isAnalysedWithItsOwnLengths()
    {
        MainWindow window;
        Probe::fftLength(window) = {1024, 512};
        Probe::data(window).nSamples = {700, 301};
        window.genFFT();
        verifySpectra(window);
        QCOMPARE(Probe::stimuli(window)[standard].spectrum.amplitude.size(), 512);
        QCOMPARE(Probe::stimuli(window)[standard].spectrum.phase.size(), 512);
        QCOMPARE(Probe::stimuli(window)[deviant].spectrum.amplitude.size(), 256);
        QCOMPARE(Probe::stimuli(window)[deviant].spectrum.phase.size(), 256);
        QCOMPARE(Probe::fftDuration(window), QVector<double>({1024 / 40000.0, 512 / 40000.0}));
        QCOMPARE(Probe::frequencyResolution(window),
            QVector<double>({1 / (1024 / 40000.0), 1 / (512 / 40000.0)}));
    }

    void frequencyAxis_isTheDeviantsAsFarAsItsBinsGo()
    {
        MainWindow window;
        Probe::fftLength(window) = {1024, 512};
        window.genFFT();
        const double coarse = 1 / (512 / 40000.0);
        const double fine = 1 / (1024 / 40000.0);
        QCOMPARE(firstDifference(Probe::frequencyAxis(window),
                     multiples(coarse, 0, 255) + multiples(fine, 256, 511)),
            -1);

        Probe::fftLength(window) = {512, 1024};
        window.genFFT();
        QCOMPARE(firstDifference(Probe::frequencyAxis(window), multiples(fine, 0, 511)), -1);
    }

    void sounds_areLeftAlone_whenNoWindowIsSelected()
    {
        MainWindow window;
        const QVector<double> first = Probe::stimuli(window)[standard].samples;
        const QVector<double> second = Probe::stimuli(window)[deviant].samples;
        window.genFFT();
        QCOMPARE(Probe::stimuli(window)[standard].samples, first);
        QCOMPARE(Probe::stimuli(window)[deviant].samples, second);
    }

    void sounds_carryTheWindowThatIsAnalysed_whenHannIsSelected()
    {
        MainWindow window;
        QVector<double> first = Probe::stimuli(window)[standard].samples;
        QVector<double> second = Probe::stimuli(window)[deviant].samples.mid(0, 1000);
        Probe::stimuli(window)[deviant].samples = second;
        Probe::data(window).nSamples[deviant] = 1000;
        Probe::windowSelector(window) = 1;
        window.genFFT();
        applyHann(first);
        applyHann(second);
        QCOMPARE(firstDifference(Probe::stimuli(window)[standard].samples, first), -1);
        QCOMPARE(firstDifference(Probe::stimuli(window)[deviant].samples, second), -1);
        QCOMPARE(Probe::stimuli(window)[standard].samples.first(), 0.0);
        QCOMPARE(Probe::stimuli(window)[standard].samples.last(), 0.0);
        QCOMPARE(Probe::stimuli(window)[deviant].samples.first(), 0.0);
        QCOMPARE(Probe::stimuli(window)[deviant].samples.last(), 0.0);
        verifySpectra(window);
    }

    void sounds_areSilenced_whenAnUnknownWindowIsSelected()
    {
        MainWindow window;
        Probe::windowSelector(window) = 2;
        window.genFFT();
        QCOMPARE(Probe::stimuli(window)[standard].samples, QVector<double>(24000, 0.0));
        QCOMPARE(Probe::stimuli(window)[deviant].spectrum.amplitude, QVector<double>(16384, 0.0));
    }

    void silentSounds_haveNeitherAmplitudesNorPhases_data()
    {
        QTest::addColumn<int>("soundType");
        QTest::newRow("sinusoid") << sinusoidCarrier;
        QTest::newRow("noise") << noiseCarrier;
        QTest::newRow("neither") << 2;
    }

    void silentSounds_haveNeitherAmplitudesNorPhases()
    {
        QFETCH(int, soundType);
        MainWindow window;
        Data& data = Probe::data(window);
        data.soundType = soundType;
        data.amp = {0.0, 0.0};
        data.equalizeRms = false;
        window.genWav();
        window.genFFT();
        const QVector<double> zeros(16384, 0.0);
        QCOMPARE(Probe::stimuli(window)[standard].spectrum.amplitude, zeros);
        QCOMPARE(Probe::stimuli(window)[standard].spectrum.phase, zeros);
        QCOMPARE(Probe::stimuli(window)[deviant].spectrum.amplitude, zeros);
        QCOMPARE(Probe::stimuli(window)[deviant].spectrum.phase, zeros);
    }

    void longSound_isCutToItsTransform_afterItsDurationGrew()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "1200.00");
        window.on_pushButtonView_clicked();
        QCOMPARE(Probe::stimuli(window)[standard].samples.size(), 48000);
        const Spectrum cut
            = spectrumOf(Probe::stimuli(window)[standard].samples.mid(0, 32768), 32768, 48000);
        QCOMPARE(
            firstDifference(Probe::stimuli(window)[standard].spectrum.amplitude, cut.amplitude),
            -1);
    }

    void emptySounds_haveUndefinedAmplitudesAndKeepTheAxes()
    {
        MainWindow window;
        const double highest = Probe::spectrumCharts(window)[standard].line.axisY->max();
        tolerateUndefinedChartValues();
        Probe::data(window).nSamples = {0, 0};
        window.genWav();
        window.genFFT();
        window.updateFFT();
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].spectrum.amplitude));
        QVERIFY(areAllNaN(Probe::stimuli(window)[deviant].spectrum.amplitude));
        QCOMPARE(Probe::spectrumCharts(window)[standard].line.axisY->max(), highest);
    }

    void emptySpectra_showMinus1To1_whenTheTransformsAreTooShortForABin()
    {
        MainWindow window;
        Probe::fftLength(window) = {1, 1};
        window.genFFT();
        QVERIFY(Probe::stimuli(window)[standard].spectrum.amplitude.isEmpty());
        QVERIFY(Probe::stimuli(window)[deviant].spectrum.phase.isEmpty());
        QVERIFY(Probe::frequencyAxis(window).isEmpty());
        window.updateFFT();
        window.displayFFT();
        QCOMPARE(Probe::stimuli(window)[standard].amplitudeRange, QVector<double>({-1.0, 1.0}));
        QCOMPARE(Probe::stimuli(window)[deviant].amplitudeRange, QVector<double>({-1.0, 1.0}));
        QCOMPARE(Probe::spectrumCharts(window)[standard].line.series->count(), 0);
    }

    void points_areOverwrittenInPlace_whenTheSpectraChanged()
    {
        MainWindow window;
        takeNewSpectra(window);
        window.updateFFT();
        QCOMPARE(Probe::stimuli(window)[standard].spectrumPoints,
            pointsOf(Probe::frequencyAxis(window),
                Probe::stimuli(window)[standard].spectrum.amplitude, 1638));
        QCOMPARE(Probe::stimuli(window)[deviant].spectrumPoints,
            pointsOf(Probe::frequencyAxis(window),
                Probe::stimuli(window)[deviant].spectrum.amplitude, 1638));
        verifySeriesHoldTheLists(window);
    }

    void lists_keepTheirLengthAndTails_whenOtherCountsAreToBePlotted()
    {
        MainWindow window;
        const QVector<QPointF> before = Probe::stimuli(window)[standard].spectrumPoints;
        takeNewSpectra(window);
        Probe::data(window).nFreqPointsToPlot = {600, 5000};
        window.updateFFT();
        QCOMPARE(Probe::stimuli(window)[standard].spectrumPoints,
            pointsOf(Probe::frequencyAxis(window),
                Probe::stimuli(window)[standard].spectrum.amplitude, 600)
                + before.mid(600));
        QCOMPARE(Probe::stimuli(window)[deviant].spectrumPoints,
            pointsOf(Probe::frequencyAxis(window),
                Probe::stimuli(window)[deviant].spectrum.amplitude, 1638));
        verifySeriesHoldTheLists(window);
    }

    void ranges_coverTheWholeSpectra_andLeaveTheFrequencyAxes()
    {
        MainWindow window;
        takeNewSpectra(window);
        Probe::stimuli(window)[standard].spectrum.amplitude[16383] = 9.0;
        Probe::stimuli(window)[deviant].spectrum.amplitude[1638] = -2.0;
        Probe::spectrumCharts(window)[standard].line.axisX->setRange(100, 300);
        Probe::spectrumCharts(window)[deviant].line.axisX->setRange(200, 400);
        window.updateFFT();
        QCOMPARE(Probe::stimuli(window)[standard].amplitudeRange, QVector<double>({1.0, 9.0}));
        QCOMPARE(Probe::spectrumCharts(window)[standard].line.axisY->min(), 1.0);
        QCOMPARE(Probe::spectrumCharts(window)[standard].line.axisY->max(), 9.0);
        QCOMPARE(Probe::stimuli(window)[deviant].amplitudeRange, QVector<double>({-2.0, 3.0}));
        QCOMPARE(Probe::spectrumCharts(window)[deviant].line.axisY->min(), -2.0);
        QCOMPARE(Probe::spectrumCharts(window)[deviant].line.axisY->max(), 3.0);
        QCOMPARE(Probe::spectrumCharts(window)[standard].line.axisX->max(), 300.0);
        QCOMPARE(Probe::spectrumCharts(window)[deviant].line.axisX->min(), 200.0);
    }

private:
    static void applyHann(QVector<double>& sound)
    {
        const int size = sound.size();
        for (int i = 0; i < size; ++i) {
            sound[i] *= (1 - std::cos(i * 6.283185307179586 / (size - 1))) * 0.5;
        }
    }

    // The standard's amplitudes run from 1 to nearly 2, the deviant's from 3 down to nearly 2.
    static void takeNewSpectra(MainWindow& window)
    {
        for (int k = 0; k < 16384; ++k) {
            Probe::stimuli(window)[standard].spectrum.amplitude[k] = 1 + k / 16384.0;
            Probe::stimuli(window)[deviant].spectrum.amplitude[k] = 3 - k / 16384.0;
        }
    }

    static void verifySpectra(MainWindow& window)
    {
        const Data& data = Probe::data(window);
        const QVector<qint64>& length = Probe::fftLength(window);
        const Spectrum first = spectrumOf(
            Probe::stimuli(window)[standard].samples, length[standard], data.nSamples[standard]);
        const Spectrum second = spectrumOf(
            Probe::stimuli(window)[deviant].samples, length[deviant], data.nSamples[deviant]);
        QCOMPARE(
            firstDifference(Probe::stimuli(window)[standard].spectrum.amplitude, first.amplitude),
            -1);
        QCOMPARE(firstDifference(Probe::stimuli(window)[standard].spectrum.phase, first.phase), -1);
        QCOMPARE(
            firstDifference(Probe::stimuli(window)[deviant].spectrum.amplitude, second.amplitude),
            -1);
        QCOMPARE(firstDifference(Probe::stimuli(window)[deviant].spectrum.phase, second.phase), -1);
    }

    static void verifySeriesHoldTheLists(MainWindow& window)
    {
        QCOMPARE(Probe::spectrumCharts(window)[standard].line.series->pointsVector(),
            Probe::stimuli(window)[standard].spectrumPoints);
        QCOMPARE(Probe::spectrumCharts(window)[deviant].line.series->pointsVector(),
            Probe::stimuli(window)[deviant].spectrumPoints);
    }
};

QUORIN_TEST(TestSpectrumAnalysis);
#include "tst_spectrum_analysis.moc"
