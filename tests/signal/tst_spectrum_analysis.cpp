// SPDX-License-Identifier: GPL-3.0-or-later
// The spectra that the window makes of its two sounds.
#include "charts/ChartObjects.h"
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
        QCOMPARE(Probe::frequencyResolution(window), QVector<double>(2, 1.220703125));
        verifyFrequencies(window, multiples(1 / (32768 / 40000.0), 0, 16383));
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
        QVERIFY(*peak > 0.96 && *peak < 1.0);
    }

    void eachSound_isAnalysedWithItsOwnLengths()
    {
        MainWindow window;
        Probe::fftLength(window) = {1024, 512};
        Probe::data(window).nSamples = {700, 301};
        window.genFFT();
        verifySpectra(window);
        for (const int i : {standard, deviant}) {
            const Spectrum& spectrum = Probe::stimuli(window)[i].spectrum;
            QCOMPARE(spectrum.amplitude.size(), i == standard ? 512 : 256);
            QCOMPARE(spectrum.phase.size(), i == standard ? 512 : 256);
        }
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
        verifyFrequencies(window, multiples(coarse, 0, 255) + multiples(fine, 256, 511));

        Probe::fftLength(window) = {512, 1024};
        window.genFFT();
        verifyFrequencies(window, multiples(fine, 0, 511));
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
        QVector<double>& shorter = Probe::stimuli(window)[deviant].samples;
        shorter = shorter.mid(0, 1000);
        Probe::data(window).nSamples[deviant] = 1000;
        const QVector<double> before[] = {Probe::stimuli(window)[standard].samples, shorter};
        Probe::windowSelector(window) = 1;
        window.genFFT();
        for (const int i : {standard, deviant}) {
            const QVector<double>& sound = Probe::stimuli(window)[i].samples;
            QCOMPARE(firstDifference(sound, withHann(before[i])), -1);
            QCOMPARE(sound.first(), 0.0);
            QCOMPARE(sound.last(), 0.0);
        }
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
        for (const auto& stimulus : Probe::stimuli(window)) {
            QCOMPARE(stimulus.spectrum.amplitude, QVector<double>(16384, 0.0));
            QCOMPARE(stimulus.spectrum.phase, QVector<double>(16384, 0.0));
        }
    }

    void longSound_isCutToItsTransform_afterItsDurationGrew()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "1200.00");
        window.on_pushButtonView_clicked();
        const auto& longer = Probe::stimuli(window)[standard];
        QCOMPARE(longer.samples.size(), 48000);
        const Spectrum cut = spectrumOf(longer.samples.mid(0, 32768), 32768, 48000);
        QCOMPARE(firstDifference(longer.spectrum.amplitude, cut.amplitude), -1);
    }

    void emptySounds_haveUndefinedAmplitudesAndKeepTheAxes()
    {
        MainWindow window;
        const double highest = spectrumChart(window, standard).axisY->max();
        tolerateUndefinedChartValues();
        Probe::data(window).nSamples = {0, 0};
        window.genWav();
        window.genFFT();
        window.updateFFT();
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].spectrum.amplitude));
        QVERIFY(areAllNaN(Probe::stimuli(window)[deviant].spectrum.amplitude));
        QCOMPARE(spectrumChart(window, standard).axisY->max(), highest);
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
        for (const auto& stimulus : Probe::stimuli(window))
            QCOMPARE(stimulus.amplitudeRange, QVector<double>({-1.0, 1.0}));
        QCOMPARE(spectrumChart(window, standard).series->count(), 0);
    }

    void points_areOverwrittenInPlace_whenTheSpectraChanged()
    {
        MainWindow window;
        takeNewSpectra(window);
        window.updateFFT();
        verifyPoints(window, standard, pointsOfSpectrum(window, standard, 1638));
        verifyPoints(window, deviant, pointsOfSpectrum(window, deviant, 1638));
    }

    void lists_keepTheirLengthAndTails_whenOtherCountsAreToBePlotted()
    {
        MainWindow window;
        const QVector<QPointF> before = Probe::stimuli(window)[standard].spectrumPoints;
        takeNewSpectra(window);
        Probe::data(window).nFreqPointsToPlot = {600, 5000};
        window.updateFFT();
        verifyPoints(window, standard, pointsOfSpectrum(window, standard, 600) + before.mid(600));
        verifyPoints(window, deviant, pointsOfSpectrum(window, deviant, 1638));
    }

    void ranges_coverTheWholeSpectra_andLeaveTheFrequencyAxes()
    {
        MainWindow window;
        takeNewSpectra(window);
        Probe::stimuli(window)[standard].spectrum.amplitude[16383] = 9.0;
        Probe::stimuli(window)[deviant].spectrum.amplitude[1638] = -2.0;
        spectrumChart(window, standard).axisX->setRange(100, 300);
        spectrumChart(window, deviant).axisX->setRange(200, 400);
        window.updateFFT();
        QCOMPARE(Probe::stimuli(window)[standard].amplitudeRange, QVector<double>({1.0, 9.0}));
        QCOMPARE(Probe::stimuli(window)[deviant].amplitudeRange, QVector<double>({-2.0, 3.0}));
        verifyRange(spectrumChart(window, standard).axisY, 1.0, 9.0);
        verifyRange(spectrumChart(window, deviant).axisY, -2.0, 3.0);
        verifyRange(spectrumChart(window, standard).axisX, 100.0, 300.0);
        verifyRange(spectrumChart(window, deviant).axisX, 200.0, 400.0);
    }

private:
    static QVector<double> withHann(QVector<double> sound)
    {
        const int size = sound.size();
        for (int i = 0; i < size; ++i)
            sound[i] *= (1 - std::cos(i * 6.283185307179586 / (size - 1))) * 0.5;
        return sound;
    }

    // The standard's amplitudes run from 1 to nearly 2, the deviant's from 3 down to nearly 2.
    static void takeNewSpectra(MainWindow& window)
    {
        for (int k = 0; k < 16384; ++k) {
            Probe::stimuli(window)[standard].spectrum.amplitude[k] = 1 + k / 16384.0;
            Probe::stimuli(window)[deviant].spectrum.amplitude[k] = 3 - k / 16384.0;
        }
    }

    static QVector<QPointF> pointsOfSpectrum(MainWindow& window, int stimulus, int n)
    {
        const Spectrum& spectrum = Probe::stimuli(window)[stimulus].spectrum;
        return pointsOf(Probe::frequencyAxis(window), spectrum.amplitude, n);
    }

    static void verifyPoints(MainWindow& window, int stimulus, const QVector<QPointF>& expected)
    {
        QCOMPARE(Probe::stimuli(window)[stimulus].spectrumPoints, expected);
        QCOMPARE(spectrumChart(window, stimulus).series->pointsVector(), expected);
    }

    static void verifyFrequencies(MainWindow& window, const QVector<double>& expected)
    {
        QCOMPARE(firstDifference(Probe::frequencyAxis(window), expected), -1);
    }

    static void verifySpectra(MainWindow& window)
    {
        for (const int i : {standard, deviant}) {
            const auto& stimulus = Probe::stimuli(window)[i];
            const Spectrum expected = spectrumOf(
                stimulus.samples, Probe::fftLength(window)[i], Probe::data(window).nSamples[i]);
            QCOMPARE(firstDifference(stimulus.spectrum.amplitude, expected.amplitude), -1);
            QCOMPARE(firstDifference(stimulus.spectrum.phase, expected.phase), -1);
        }
    }
};

QUORIN_TEST(TestSpectrumAnalysis);
#include "tst_spectrum_analysis.moc"
