// SPDX-License-Identifier: GPL-3.0-or-later
// Amplitude and phase of known sounds.
#include "signal/DefiningSum.h"
#include "signal/Spectrum.h"
#include "support/ExactVectors.h"
#include "support/TestProgram.h"

#include <cmath>

namespace {

// Bins are off by a few epsilons of the sound's level, here 1, for every pass of the transform.
constexpr double spectrumTolerance = 1e-14;

QVector<double> tone(int size, double cycles, double amplitude, double phase)
{
    QVector<double> sound(size);
    for (int i = 0; i < size; ++i) {
        sound[i] = amplitude * std::cos(2 * M_PI * cycles * i / size + phase);
    }
    return sound;
}

QVector<double> impulse(int size)
{
    QVector<double> sound(size, 0.0);
    sound[0] = 1.0;
    return sound;
}

} // namespace

class TestSpectrum : public QObject {
    Q_OBJECT

private slots:
    void tone_hasItsAmplitudeAndPhaseInItsBin_data()
    {
        QTest::addColumn<double>("phase");
        QTest::newRow("cosine") << 0.0;
        QTest::newRow("sine") << -M_PI / 2;
        QTest::newRow("negative sine") << M_PI / 2;
        QTest::newRow("between") << 1.0;
        QTest::newRow("near the end") << -3.0;
    }

    void tone_hasItsAmplitudeAndPhaseInItsBin()
    {
        QFETCH(double, phase);
        constexpr int length = 64;
        constexpr int cycles = 5;
        const Spectrum spectrum = spectrumOf(tone(length, cycles, 0.7, phase), length, length);
        QCOMPARE(spectrum.amplitude.size(), length / 2);
        QCOMPARE(spectrum.phase.size(), length / 2);
        for (int k = 0; k < length / 2; ++k) {
            const double expected = k == cycles ? 0.7 : 0.0;
            QVERIFY(std::abs(spectrum.amplitude[k] - expected) < spectrumTolerance);
        }
        QVERIFY(std::abs(spectrum.phase[cycles] - phase) < spectrumTolerance);
    }

    // A mean of 3 under an alternation of 4: f[0] = 3 N and f[N/2] = 4 N.
    void bin0_takesTheNyquistTermAsItsImaginaryPart()
    {
        const QVector<double> sound({7, -1, 7, -1, 7, -1, 7, -1});
        const Spectrum spectrum = spectrumOf(sound, 8, 8);
        QCOMPARE(spectrum.amplitude[0], 2 * 5.0);
        QCOMPARE(spectrum.phase[0], std::atan2(-4.0, 3.0));
    }

    void impulse_isFlat_exceptInBin0()
    {
        const Spectrum spectrum = spectrumOf(impulse(16), 16, 16);
        QCOMPARE(spectrum.amplitude[0], std::sqrt(2.0) / 8);
        QCOMPARE(spectrum.phase[0], -M_PI / 4);
        QCOMPARE(spectrum.amplitude.mid(1), QVector<double>(7, 1.0 / 8));
        QCOMPARE(spectrum.phase.mid(1), QVector<double>(7, 0.0));
    }

    void scale_isTheIntegerHalfOfTheStatedLength_data()
    {
        addColumns<int, double>("nSamples", "amplitude");
        QTest::newRow("even") << 6 << 1.0 / 3;
        QTest::newRow("odd, truncated") << 7 << 1.0 / 3;
        QTest::newRow("not the vector's size") << 101 << 1.0 / 50;
        QTest::newRow("1 divides by 0") << 1 << qInf();
        QTest::newRow("0 divides by 0") << 0 << qInf();
        QTest::newRow("negative, truncated toward 0") << -7 << -1.0 / 3;
    }

    void scale_isTheIntegerHalfOfTheStatedLength()
    {
        QFETCH(int, nSamples);
        QFETCH(double, amplitude);
        QCOMPARE(
            spectrumOf(impulse(7), 8, nSamples).amplitude.mid(1), QVector<double>(3, amplitude));
    }

    void sound_isPadded_whenShorterThanTheTransform()
    {
        const QVector<double> sound({0.5, -0.25, 1, 2, -3});
        const QVector<double> padded({0.5, -0.25, 1, 2, -3, 0, 0, 0});
        verifySame(spectrumOf(sound, 8, 5), spectrumOf(padded, 8, 5));
        verifySame(spectrumOf({}, 8, 5), spectrumOf(QVector<double>(8, 0.0), 8, 5));
    }

    void sound_isCut_whenLongerThanTheTransform()
    {
        const QVector<double> sound({0.5, -0.25, 1, 2, -3, 4, 7, 9, 1, 1, 1});
        verifySame(spectrumOf(sound, 8, 11), spectrumOf(sound.mid(0, 8), 8, 11));
    }

    void sound_isNotChanged()
    {
        const QVector<double> sound = tone(64, 5.5, 1, 1);
        const QVector<double> copy = tone(64, 5.5, 1, 1);
        spectrumOf(sound, 64, 64);
        QCOMPARE(sound, copy);
    }

    void silence_hasNeitherAmplitudeNorPhase_data()
    {
        QTest::addColumn<QVector<double>>("sound");
        QVector<double> mixed(24000, 0.0);
        for (int i = 0; i < mixed.size(); ++i) {
            mixed[i] = std::sin(i * 0.157) * 0.0; // a tone of amplitude 0
        }
        QTest::newRow("zeros") << QVector<double>(24000, 0.0);
        QTest::newRow("negative zeros") << QVector<double>(32768, -0.0);
        QTest::newRow("zeros of either sign") << mixed;
        QTest::newRow("nothing") << QVector<double>();
    }

    void silence_hasNeitherAmplitudeNorPhase()
    {
        QFETCH(QVector<double>, sound);
        for (const int length : {2, 4, 8, 1024, 32768}) {
            const Spectrum spectrum = spectrumOf(sound, length, 24000);
            QCOMPARE(spectrum.amplitude, QVector<double>(length / 2, 0.0));
            QCOMPARE(spectrum.phase, QVector<double>(length / 2, 0.0));
        }
    }

    void paddedTone_peaksInTheNearestBin_belowItsAmplitude()
    {
        const Spectrum spectrum = spectrumOf(paddedToneSound(), 32768, 24000);
        const auto peak = std::max_element(spectrum.amplitude.begin(), spectrum.amplitude.end());
        QCOMPARE(static_cast<int>(peak - spectrum.amplitude.begin()), 819);
        // The window's main lobe 0.2 bins off: sin(x) / x at x = pi 0.2 24000 / 32768. The mirror
        // image of the tone adds less than 1 / (24000 sin(pi 1638 / 32768)) to it.
        const double x = M_PI * 0.2 * 24000 / 32768;
        QVERIFY(std::abs(*peak - std::sin(x) / x) < 3e-4);
        QVERIFY(*peak < 1.0);
    }

    void paddedTone_followsTheDefiningSum_data()
    {
        QTest::addColumn<int>("bin");
        for (const int bin : {1, 2, 500, 818, 819, 820, 821, 8191, 16383}) {
            QTest::newRow(QByteArray::number(bin)) << bin;
        }
    }

    void paddedTone_followsTheDefiningSum()
    {
        QFETCH(int, bin);
        constexpr int length = 32768;
        const QVector<double> sound = paddedToneSound();
        std::vector<double> block(sound.begin(), sound.end());
        block.resize(length, 0.0);
        const definingSum::Complex sum
            = definingSum::bin(block, definingSum::roots(length), static_cast<std::size_t>(bin));
        const Spectrum spectrum = spectrumOf(sound, length, 24000);
        const double amplitude = static_cast<double>(std::abs(sum)) / 12000;
        QVERIFY(std::abs(spectrum.amplitude[bin] - amplitude) < spectrumTolerance);
        // A bin's phase is as good as its amplitude, seen from the bin's own length.
        const auto phase = static_cast<double>(std::arg(sum));
        QVERIFY(std::abs(spectrum.phase[bin] - phase) < spectrumTolerance / amplitude);
    }

    void shortestTransforms_haveOneBinOrNone()
    {
        QVERIFY(spectrumOf({2.0}, 1, 2).amplitude.isEmpty());
        const Spectrum spectrum = spectrumOf({3.0, 1.0}, 2, 2);
        QCOMPARE(spectrum.amplitude, QVector<double>({std::sqrt(4.0 * 4.0 + 2.0 * 2.0)}));
    }

    void hannWindow_equalsItsFormulaBitForBit()
    {
        QVector<double> sound(1000, 0.7);
        applyWindow(sound, 1000, 1);
        QVector<double> expected;
        for (int i = 0; i < 1000; ++i) {
            expected.append(0.7 * ((1 - std::cos(i * 6.283185307179586 / (1000 - 1))) * 0.5));
        }
        QCOMPARE(firstDifference(sound, expected), -1);
        QCOMPARE(sound.first(), 0.0);
        QCOMPARE(sound.last(), 0.0);
    }

    void hannWindow_isAsLongAsStated_notAsTheVector()
    {
        QVector<double> sound(5, 1.0);
        applyWindow(sound, 9, 1);
        QCOMPARE(sound.first(), 0.0);
        QVERIFY(std::abs(sound[2] - 0.5) < spectrumTolerance);
        QCOMPARE(sound.last(), 1.0);
    }

    void hannWindow_isUndefined_whenTheSoundIsOneSample()
    {
        QVector<double> sound({1.0});
        applyWindow(sound, 1, 1);
        QVERIFY(areAllNaN(sound));
    }

    void window_silences_whenTheSelectorIsAnyOther()
    {
        for (const int selector : {2, -1}) {
            QVector<double> sound({1.0, 2.0, 3.0});
            applyWindow(sound, 3, selector);
            QCOMPARE(sound, QVector<double>(3, 0.0));
        }
    }

    void frequencies_areMultiplesOfTheResolution_asFarAsTheyAreOverwritten()
    {
        QVector<double> axis(5, -1.0);
        overwriteFrequencies(axis, 3, 0.1);
        QCOMPARE(axis, QVector<double>({0.1 * 0, 0.1 * 1, 0.1 * 2, -1.0, -1.0}));
        overwriteFrequencies(axis, 7, 2.0);
        QCOMPARE(axis, QVector<double>({0, 2, 4, 6, 8}));
    }

private:
    // 600 ms of 1000 Hz at 40 kHz.
    static QVector<double> paddedToneSound() { return tone(24000, 600, 1, -M_PI / 2); }

    static void verifySame(const Spectrum& a, const Spectrum& b)
    {
        QCOMPARE(firstDifference(a.amplitude, b.amplitude), -1);
        QCOMPARE(firstDifference(a.phase, b.phase), -1);
    }
};

QUORIN_APPLESS_TEST(TestSpectrum);
#include "tst_spectrum.moc"
