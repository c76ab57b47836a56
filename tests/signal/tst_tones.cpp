// SPDX-License-Identifier: GPL-3.0-or-later
// Tones, modulated tones and their levels.
#include "signal/SignalToolkit.h"
#include "signal/StatedSound.h"
#include "support/ExactVectors.h"
#include "support/TestProgram.h"

#include <cmath>
#include <limits>

namespace {

constexpr double twoPi = 6.283185307179586;
constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

class TestTones : public QObject {
    Q_OBJECT

private slots:
    void length_isDurationTimesRateRoundedDown_data()
    {
        addColumns<double, double, int>("fs", "duration", "length");
        QTest::newRow("whole") << 40000.0 << 0.5 << 20000;
        QTest::newRow("just below 1000") << 1000.0 << 0.9999999 << 999;
        QTest::newRow("a product that rounds below 1720") << 40000.0 << 0.043 << 1719;
        QTest::newRow("one sample") << 1000.0 << 0.0019 << 1;
        QTest::newRow("less than one sample") << 1000.0 << 0.0009 << 0;
        QTest::newRow("no duration") << 40000.0 << 0.0 << 0;
        QTest::newRow("no rate") << 0.0 << 0.5 << 0;
        QTest::newRow("negative duration") << 40000.0 << -0.5 << 0;
        QTest::newRow("negative rate") << -40000.0 << 0.5 << 0;
        QTest::newRow("not a number") << 40000.0 << notANumber << 0;
    }

    void length_isDurationTimesRateRoundedDown()
    {
        QFETCH(double, fs);
        QFETCH(double, duration);
        QFETCH(int, length);
        QCOMPARE(sine(fs, duration, 1000, 1, 0).size(), length);
        QCOMPARE(sam(fs, duration, 1000, 40, 0.5, 1, 0, 0, true).size(), length);
    }

    void sine_equalsItsExpressionBitForBit_data()
    {
        addColumns<double, double, double, double>("fs", "frequency", "amplitude", "phase");
        QTest::newRow("1 kHz") << 40000.0 << 1000.0 << 1.0 << 0.0;
        QTest::newRow("odd numbers") << 44100.0 << 777.7 << 0.3 << 33.0;
        QTest::newRow("negative phase and amplitude") << 8000.0 << 123.4 << -2.5 << -271.0;
        QTest::newRow("above half the rate") << 1000.0 << 4321.0 << 1.0 << 180.0;
    }

    void sine_equalsItsExpressionBitForBit()
    {
        QFETCH(double, fs);
        QFETCH(double, frequency);
        QFETCH(double, amplitude);
        QFETCH(double, phase);
        QVector<double> expected(1000);
        for (int k = 0; k < expected.size(); ++k) {
            expected[k]
                = std::sin(k * (frequency * twoPi) / fs + phase * radiansPerDegree) * amplitude;
        }
        const QVector<double> tone = sine(fs, 1000.5 / fs, frequency, amplitude, phase);
        QCOMPARE(firstDifference(tone, expected), -1);
    }

    void sine_passesItsExtremes_atQuartersOfThePeriod()
    {
        const QVector<double> tone = sine(40000, 0.5, 1000, 1, 0);
        QUORIN_COMPARE_EXACT(tone[0], 0.0);
        QUORIN_COMPARE_EXACT(tone[10], 1.0);
        QUORIN_COMPARE_EXACT(tone[30], -1.0);
        QUORIN_COMPARE_EXACT(sine(40000, 0.5, 1000, 3, 90)[0], 3.0);
    }

    void sam_equalsItsExpressionBitForBit_data()
    {
        addColumns<double, bool>("m", "normalise");
        QTest::newRow("shallow") << 0.3 << false;
        QTest::newRow("shallow, normalised") << 0.3 << true;
        QTest::newRow("full, normalised") << 1.0 << true;
        QTest::newRow("overmodulated") << 2.5 << false;
        QTest::newRow("overmodulated, normalised") << 2.5 << true;
    }

    void sam_equalsItsExpressionBitForBit()
    {
        QFETCH(double, m);
        QFETCH(bool, normalise);
        constexpr double fs = 44100;
        constexpr double fc = 777.7;
        constexpr double fm = 37.1;
        constexpr double amplitude = 0.7;
        const double g = 1 / (m + 1);
        QVector<double> expected(2000);
        for (int k = 0; k < expected.size(); ++k) {
            const double c = std::sin(fc * twoPi * k / fs + 33.0 * radiansPerDegree);
            const double d = std::cos(k * (fm * twoPi) / fs + 111.0 * radiansPerDegree);
            expected[k] = c * ((d * m + 1) * amplitude);
            expected[k] = normalise ? expected[k] * g : expected[k];
        }
        const QVector<double> tone
            = sam(fs, 2000.5 / fs, fc, fm, m, amplitude, 33.0, 111.0, normalise);
        QCOMPARE(firstDifference(tone, expected), -1);
    }

    void sam_equalsSine_whenUnmodulated()
    {
        const QVector<double> modulated = sam(40000, 0.1, 1234.5, 40, 0, 0.8, 20, 70, false);
        QCOMPARE(firstDifference(modulated, sine(40000, 0.1, 1234.5, 0.8, 20)), -1);
    }

    // A carrier of 0 Hz at 90 degrees is 1 throughout, so that the samples are the envelope.
    void sam_hasACosineEnvelopeWithItsPeakAtTheAmplitude_whenNormalised()
    {
        constexpr double amplitude = 0.5;
        const QVector<double> envelope = sam(8, 1, 0, 1, 1, amplitude, 90, 0, true);
        QCOMPARE(envelope.size(), 8);
        QUORIN_COMPARE_EXACT(envelope[0], amplitude);
        for (int k = 0; k < envelope.size(); ++k) {
            const double expected = amplitude * (1 + std::cos(M_PI * k / 4)) / 2;
            QVERIFY(std::abs(envelope[k] - expected) < roundingTolerance);
        }
    }

    void sam_peaksAtTheDepthAboveTheAmplitude_whenNotNormalised()
    {
        const QVector<double> envelope = sam(8, 1, 0, 1, 2, 0.5, 90, 0, false);
        QUORIN_COMPARE_EXACT(envelope[0], 0.5 * (1 + 2));
        QUORIN_COMPARE_EXACT(envelope[4], 0.5 * (1 - 2));
    }

    void sam_startsAtItsMinimum_whenTheModulatorStartsAt180Degrees()
    {
        QUORIN_COMPARE_EXACT(sam(8, 1, 0, 1, 1, 0.5, 90, 180, true)[0], 0.0);
    }

    void rms_isNaN_whenTheVectorIsEmpty()
    {
        QVERIFY(std::isnan(rms(QVector<int>())));
        QVERIFY(std::isnan(rms(QVector<double>())));
    }

    void rms_isTheRootOfTheMeanSquare_whenThereAreTwoElements()
    {
        QUORIN_COMPARE_EXACT(rms(QVector<int>({3, -4})), std::sqrt(12.5));
        QUORIN_COMPARE_EXACT(rms(QVector<double>({3, -4})), std::sqrt(12.5));
    }

    void rms_doesNotOverflow_whenTheIntegersAreTheLimits()
    {
        QUORIN_COMPARE_EXACT(rms(QVector<int>({std::numeric_limits<int>::min()})), 2147483648.0);
        QUORIN_COMPARE_EXACT(rms(QVector<int>({46341, 46341})), 46341.0);
    }

    // 1e16 + 1 is 1e16: only a sum in index order loses every one of the small squares.
    void rms_sumsInIndexOrder_whenTheSquaresDifferInSize()
    {
        QVector<double> samples(1001, 1.0);
        samples.first() = 1e8;
        QUORIN_COMPARE_EXACT(rms(samples), std::sqrt(1e16 / 1001));
    }

    void rmsOfTwo_isEachOnesOwn_whateverTheLengths_data()
    {
        addColumns<QVector<double>, QVector<double>>("first", "second");
        QTest::newRow("first longer") << QVector<double>({1e8, 1, 1}) << QVector<double>({3, -4});
        QTest::newRow("second longer") << QVector<double>({0.1}) << QVector<double>({0.1, 0.7, 3});
        QTest::newRow("same length") << QVector<double>({3, -4}) << QVector<double>({0.1, 0.2});
    }

    void rmsOfTwo_isEachOnesOwn_whateverTheLengths()
    {
        QFETCH(QVector<double>, first);
        QFETCH(QVector<double>, second);
        const auto [firstLevel, secondLevel] = rms(first, second);
        QUORIN_COMPARE_EXACT(firstLevel, statedRms(first));
        QUORIN_COMPARE_EXACT(secondLevel, statedRms(second));
    }

    void rmsOfTwo_isNaN_forTheEmptyOneAlone()
    {
        QVERIFY(std::isnan(rms({}, {2.0}).first));
        QUORIN_COMPARE_EXACT(rms({}, {2.0}).second, 2.0);
        QUORIN_COMPARE_EXACT(rms({2.0}, {}).first, 2.0);
        QVERIFY(std::isnan(rms({2.0}, {}).second));
    }
};

QUORIN_APPLESS_TEST(TestTones);
#include "tst_tones.moc"
