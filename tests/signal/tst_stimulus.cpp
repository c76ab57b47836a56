// SPDX-License-Identifier: GPL-3.0-or-later
// One stimulus against its formula, and the equalisation of levels.
#include "signal/StatedSound.h"
#include "signal/Stimulus.h"
#include "support/Draws.h"
#include "support/ExactVectors.h"
#include "support/TestProgram.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

Data unlikeSounds()
{
    Data data;
    data.fs = 44100.0;
    data.nSamples = {3000, 2000};
    data.cf = {777.7, 1234.5};
    data.cfPhase = {0.3, -1.7};
    data.mf = {37.1, 4.3};
    data.mfPhase = {1.1, 3.141592653589793};
    data.md = {0.3, 0.7};
    data.amp = {0.8, 0.6};
    return data;
}

// A carrier of 0 Hz at 90 degrees is 1 throughout, so that the samples are the envelope.
Data barEnvelope()
{
    Data data;
    data.soundType = sinusoidCarrier;
    data.cf = {0.0, 0.0};
    data.cfPhase = {M_PI / 2, M_PI / 2};
    return data;
}

// Made in a vector with something else in it, as those of the window are.
QVector<double> synthesised(const Data& data, int stimulus)
{
    QVector<double> sound(100, qQNaN());
    synthesise(sound, data, stimulus);
    return sound;
}

} // namespace

class TestStimulus : public QObject {
    Q_OBJECT

private slots:
    void sound_equalsItsFormulaBitForBit_data()
    {
        addColumns<int, double, bool>("soundType", "depth", "normalise");
        QTest::newRow("sinusoid") << sinusoidCarrier << 0.3 << false;
        QTest::newRow("sinusoid, normalised") << sinusoidCarrier << 0.3 << true;
        QTest::newRow("sinusoid, overmodulated") << sinusoidCarrier << 1.7 << true;
        QTest::newRow("noise") << noiseCarrier << 0.3 << false;
        QTest::newRow("noise, normalised") << noiseCarrier << 0.3 << true;
        QTest::newRow("noise, unmodulated") << noiseCarrier << 0.0 << true;
        QTest::newRow("neither") << 2 << 0.3 << true;
    }

    void sound_equalsItsFormulaBitForBit()
    {
        QFETCH(double, depth);
        Data data = unlikeSounds();
        QFETCH(int, soundType);
        QFETCH(bool, normalise);
        data.soundType = soundType;
        data.normalizeMd = normalise;
        for (const int stimulus : {standard, deviant}) {
            data.md[stimulus] = depth;
            const QVector<int> draws = drawsAfter(1, 3001);
            const QVector<double> sound = synthesised(data, stimulus);
            QCOMPARE(firstDifference(sound, statedSound(data, stimulus, draws)), -1);
            QCOMPARE(drawsMade(draws), soundType == noiseCarrier ? data.nSamples[stimulus] : 0);
        }
    }

    void sound_equalsItsFormula_whateverItsLength_data()
    {
        QTest::addColumn<int>("nSamples");
        for (const int nSamples : {1, 2, 255, 256, 257, 511, 512, 513}) {
            QTest::addRow("%d samples", nSamples) << nSamples;
        }
    }

    void sound_equalsItsFormula_whateverItsLength()
    {
        Data data = unlikeSounds();
        QFETCH(int, nSamples);
        data.nSamples[deviant] = nSamples;
        for (const int soundType : {sinusoidCarrier, noiseCarrier}) {
            data.soundType = soundType;
            const QVector<int> draws = drawsAfter(1, 600);
            const QVector<double> sound = synthesised(data, deviant);
            QCOMPARE(firstDifference(sound, statedSound(data, deviant, draws)), -1);
        }
    }

    void sound_isAPlainSine_whenUnmodulatedAndNormalised()
    {
        Data data = unlikeSounds();
        data.md = {0.0, 0.0};
        QVector<double> expected;
        for (int k = 0; k < data.nSamples[standard]; ++k) {
            const double angle = k * (data.cf[standard] * 6.283185307179586) / data.fs;
            expected.append(data.amp[standard] * std::sin(angle + data.cfPhase[standard]));
        }
        QCOMPARE(firstDifference(synthesised(data, standard), expected), -1);
    }

    void envelope_peaksAtTheAmplitudeAndTouches0OnceAPeriod_whenFullyModulated()
    {
        Data data = barEnvelope();
        data.md[deviant] = 1.0;
        data.amp[deviant] = 0.5;
        const QVector<double> envelope = synthesised(data, deviant);
        const double peak = *std::max_element(envelope.begin(), envelope.end());
        QVERIFY(std::abs(peak - 0.5) < roundingTolerance);
        // The samples beside a zero are 5e-6 above it: nothing but the zeros lies below 1e-9.
        const auto zeros = std::count_if(
            envelope.begin(), envelope.end(), [](double x) { return std::abs(x) < 1e-9; });
        QCOMPARE(static_cast<int>(zeros), 24);
        QCOMPARE(envelope[0], 0.0);
    }

    void envelope_startsAtItsMinimum_atTheDefaultModulatorPhase()
    {
        Data data = barEnvelope();
        data.md[deviant] = 0.25;
        data.normalizeMd = false;
        const QVector<double> envelope = synthesised(data, deviant);
        QUORIN_COMPARE_EXACT(envelope[0], 0.75);
        QUORIN_COMPARE_EXACT(envelope[500], 1.25);
        QUORIN_COMPARE_EXACT(envelope[1000], 0.75);
    }

    void noise_staysWithinTheAmplitudeAndIsCentred_whenNormalised()
    {
        Data data = unlikeSounds();
        data.soundType = noiseCarrier;
        data.md = {0.0, 0.0};
        qsrand(1);
        const QVector<double> noise = synthesised(data, standard);
        QVERIFY(*std::min_element(noise.begin(), noise.end()) >= -data.amp[standard]);
        QVERIFY(*std::min_element(noise.begin(), noise.end()) < -0.9 * data.amp[standard]);
        QVERIFY(*std::max_element(noise.begin(), noise.end()) <= data.amp[standard]);
        QVERIFY(*std::max_element(noise.begin(), noise.end()) > 0.9 * data.amp[standard]);
    }

    void sound_isSilent_whenItsTypeIsNeitherOfTheTwo()
    {
        Data data;
        data.soundType = -1;
        QCOMPARE(synthesised(data, deviant), QVector<double>(24000, 0.0));
    }

    void sound_isEmpty_whenThereAreNoSamples_data()
    {
        QTest::addColumn<int>("nSamples");
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << -1;
        QTest::newRow("the most negative") << std::numeric_limits<int>::min();
    }

    void sound_isEmpty_whenThereAreNoSamples()
    {
        QFETCH(int, nSamples);
        Data data;
        data.nSamples[standard] = nSamples;
        QVERIFY(synthesised(data, standard).isEmpty());
    }

    void equalising_scalesTheStandardToTheDeviantsLevelBitForBit_data()
    {
        QTest::addColumn<int>("nStandard");
        QTest::newRow("standard shorter") << 1999;
        QTest::newRow("same length") << 2000;
        QTest::newRow("standard longer") << 3000;
    }

    void equalising_scalesTheStandardToTheDeviantsLevelBitForBit()
    {
        Data data = unlikeSounds();
        QFETCH(int, nStandard);
        data.nSamples[standard] = nStandard;
        QVector<double> first = synthesised(data, standard);
        const QVector<double> second = synthesised(data, deviant);
        const QVector<double> expected = statedEqualised(first, second);
        equaliseLevels(first, second);
        QCOMPARE(firstDifference(first, expected), -1);
        QCOMPARE(statedRms(first), statedRms(second));
    }

    void equalising_leavesNothing_whenTheStandardIsEmpty()
    {
        QVector<double> empty;
        equaliseLevels(empty, {1.0, 2.0});
        QVERIFY(empty.isEmpty());
    }

    void equalising_isUndefined_whenALevelIs_data()
    {
        addColumns<QVector<double>, QVector<double>>("standardSound", "deviantSound");
        QTest::newRow("empty deviant") << QVector<double>({1, 2}) << QVector<double>();
        QTest::newRow("silent standard") << QVector<double>({0, 0}) << QVector<double>({1, 2});
        QTest::newRow("both silent") << QVector<double>({0, 0}) << QVector<double>({0, 0});
    }

    void equalising_isUndefined_whenALevelIs()
    {
        QFETCH(QVector<double>, standardSound);
        QFETCH(QVector<double>, deviantSound);
        equaliseLevels(standardSound, deviantSound);
        QVERIFY(areAllNaN(standardSound));
    }

    void equalising_silencesTheStandard_whenTheDeviantIsSilent()
    {
        QVector<double> first({1, -2});
        equaliseLevels(first, {0, 0});
        QCOMPARE(first, QVector<double>({0, 0}));
    }
};

QUORIN_APPLESS_TEST(TestStimulus);
#include "tst_stimulus.moc"
