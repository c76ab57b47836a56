// SPDX-License-Identifier: GPL-3.0-or-later
// The transform's tables.
#include "signal/FFTRealProbe.h"
#include "signal/FFTTestSignals.h"
#include "support/TestProgram.h"

#include <limits>

using fftTest::noise;
using fftTest::Samples;

// The angle's own rounding, at most half an epsilon of pi / 2, and the cosine's.
constexpr double cosineTolerance = std::numeric_limits<double>::epsilon();

class TestFFTTables : public QObject {
    Q_OBJECT

private slots:
    void bitReversal_reversesTheBits_ofEveryIndex()
    {
        const FFTReal<double> fft(64);
        QCOMPARE(FFTRealProbe::bitReversal(fft).size(), qint64(64));
        for (int i = 0; i < 64; ++i) {
            int reversed = 0;
            for (int bit = 0; bit < 6; ++bit)
                reversed |= (i >> bit & 1) << (5 - bit);
            QCOMPARE(FFTRealProbe::bitReversal(fft)[i], qint64(reversed));
        }
    }

    void cosines_areLaidOutByLevel_fromLevelThree()
    {
        const FFTReal<double> fft(32768);
        const FFTArray<double>& cosines = FFTRealProbe::cosines(fft);
        QCOMPARE(cosines.size(), qint64((1 << 14) - 4));
        for (int level = 3; level <= 14; ++level) {
            const qint64 count = qint64 {1} << (level - 1);
            for (qint64 i = 0; i < count; ++i) {
                const long double angle = std::acos(-1.0L) * i / (2 * count);
                QVERIFY(
                    std::abs(double(cosines[count - 4 + i] - std::cos(angle))) <= cosineTolerance);
            }
        }
    }

    void cosines_areAbsent_belowSixteenSamples()
    {
        QCOMPARE(FFTRealProbe::cosines(FFTReal<double>(8)).size(), qint64(0));
        QCOMPARE(FFTRealProbe::cosines(FFTReal<double>(16)).size(), qint64(4));
    }

    void oscillators_areOneForEachPassAboveTwelve()
    {
        QCOMPARE(FFTRealProbe::oscillators(FFTReal<double>(1024)).size(), qint64(0));
        QCOMPARE(FFTRealProbe::oscillators(FFTReal<double>(4096)).size(), qint64(0));
        QCOMPARE(FFTRealProbe::oscillators(FFTReal<double>(8192)).size(), qint64(1));
        const FFTReal<double> fft(65536);
        QCOMPARE(FFTRealProbe::oscillators(fft).size(), qint64(4));
        for (int j = 0; j < 4; ++j) {
            const FFTOscillator<double>& oscillator = FFTRealProbe::oscillators(fft)[j];
            QCOMPARE(oscillator.cosine, 1.0);
            QCOMPARE(oscillator.sine, 0.0);
            QCOMPARE(oscillator.stepCosine, std::cos(M_PI / (8192 << j)));
            QCOMPARE(oscillator.stepSine, std::sin(M_PI / (8192 << j)));
        }
    }

    void oscillator_entersTheSpectrum_from16384SamplesOn()
    {
        for (const std::size_t n : {8192U, 16384U}) {
            FFTReal<double> fft {qint64(n)};
            const Samples x = noise(n);
            Samples before(n);
            Samples after(n);
            fft.do_fft(before.data(), x.data());
            FFTRealProbe::oscillators(fft)[0].setStep(1.0);
            fft.do_fft(after.data(), x.data());
            QCOMPARE(before == after, n == 8192);
        }
    }
};

QUORIN_GUILESS_TEST(TestFFTTables);
#include "tst_fft_tables.moc"
