// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers of samples, points and bins, within their limits.
#include "session/Counts.h"
#include "support/QuietTest.h"

#include <limits>

using namespace quorin;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

} // namespace

class TestCounts : public QuietTest {
    Q_OBJECT

private slots:
    void count_isThis_whenMadeFromADouble_data()
    {
        addColumns<double, int, int>("value", "truncated", "floored");
        QTest::newRow("zero") << 0.0 << 0 << 0;
        QTest::newRow("whole") << 24000.0 << 24000 << 24000;
        QTest::newRow("just below a whole") << 1719.9999999999998 << 1719 << 1719;
        QTest::newRow("negative") << -0.5 << 0 << -1;
        QTest::newRow("negative whole") << -400.0 << -400 << -400;
        QTest::newRow("negative part") << -400.25 << -400 << -401;
        QTest::newRow("not a number") << notANumber << 0 << 0;
        QTest::newRow("largest int") << 2147483647.0 << highest << highest;
        QTest::newRow("beyond int") << 2147483648.0 << highest << highest;
        QTest::newRow("smallest int") << -2147483648.0 << lowest << lowest;
        QTest::newRow("below int") << -2147483649.0 << lowest << lowest;
        QTest::newRow("infinite") << infinity << highest << highest;
        QTest::newRow("minus infinite") << -infinity << lowest << lowest;
    }

    void count_isThis_whenMadeFromADouble()
    {
        QFETCH(double, value);
        QTEST(truncatedCount(value), "truncated");
        QTEST(flooredCount(value), "floored");
    }

    void soundLength_isThis_whenRateAndDurationAre_data()
    {
        addColumns<double, double, int>("fs", "duration", "expected");
        QTest::newRow("defaults") << 40000.0 << 0.6 << 24000;
        QTest::newRow("product just below a whole number") << 40000.0 << 0.043 << 1719;
        QTest::newRow("part of a sample") << 44100.0 << 0.0001 << 4;
        QTest::newRow("no duration") << 40000.0 << 0.0 << 0;
        QTest::newRow("no rate") << 0.0 << 0.6 << 0;
        QTest::newRow("negative duration") << 40000.0 << -0.01 << -400;
        QTest::newRow("negative part of a sample") << 3.0 << -0.5 << -2;
        QTest::newRow("longest") << 8388608.0 << 1.0 << 8388608;
        QTest::newRow("longer than the longest") << 8388609.0 << 1.0 << 8388608;
        QTest::newRow("infinite") << infinity << 1.0 << 8388608;
        QTest::newRow("not a number") << infinity << 0.0 << 0;
        QTest::newRow("minus infinite") << -infinity << 1.0 << lowest;
    }

    void soundLength_isThis_whenRateAndDurationAre()
    {
        QFETCH(double, fs);
        QFETCH(double, duration);
        QTEST(soundLength(fs, duration), "expected");
    }

    void plottedPoints_areThis_whenTheSoundHasSoManySamples_data()
    {
        addColumns<double, double, int, int>("fs", "span", "nSamples", "expected");
        QTest::newRow("defaults") << 40000.0 << 0.05 << 24000 << 2000;
        QTest::newRow("span rounded down") << 11025.0 << 0.05 << 24000 << 551;
        QTest::newRow("sound as long as the span") << 40000.0 << 0.05 << 2000 << 2000;
        QTest::newRow("sound shorter than the span") << 40000.0 << 0.05 << 1999 << 1999;
        QTest::newRow("no sound") << 40000.0 << 0.05 << 0 << 0;
        QTest::newRow("negative count of samples") << 40000.0 << 0.05 << -400 << -400;
        QTest::newRow("negative rate") << -40000.0 << 0.05 << 24000 << -2000;
        QTest::newRow("as many as a chart takes") << 2000000.0 << 0.05 << 8388608 << 100000;
        QTest::newRow("more than a chart takes") << 2000020.0 << 0.05 << 8388608 << 100000;
        QTest::newRow("not a number") << notANumber << 0.05 << 24000 << 0;
    }

    void plottedPoints_areThis_whenTheSoundHasSoManySamples()
    {
        QFETCH(double, fs);
        QFETCH(double, span);
        QFETCH(int, nSamples);
        QTEST(plottedPoints(fs, span, nSamples), "expected");
    }

    void spectrumLength_isThePowerOfTwoThatHoldsTheSound_whenItHasSamples()
    {
        QCOMPARE(spectrumLength(24000), 32768LL);
        QCOMPARE(spectrumLength(1), 1LL);
        QCOMPARE(spectrumLength(2), 2LL);
        for (int bits = 2; bits <= 22; ++bits) {
            const int length = 1 << bits;
            QCOMPARE(spectrumLength(length - 1), static_cast<long long>(length));
            QCOMPARE(spectrumLength(length), static_cast<long long>(length));
            QCOMPARE(spectrumLength(length + 1), 2LL * length);
        }
        QCOMPARE(spectrumLength(longestSound), static_cast<long long>(longestSound));
    }

    void spectrumLength_isOne_whenThereAreNoSamples()
    {
        QCOMPARE(spectrumLength(0), 1LL);
        QCOMPARE(spectrumLength(-400), 1LL);
        QCOMPARE(spectrumLength(lowest), 1LL);
    }
};

QUORIN_GUILESS_TEST(TestCounts);
#include "tst_counts.moc"
