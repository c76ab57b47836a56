// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of the timing measurement.
#include "support/QuietTest.h"
#include "timing/SampleClock.h"
#include "timing/Summary.h"

#include <cmath>

class TestTimingFigures : public QuietTest {
    Q_OBJECT

private slots:
    void summary_hasMeanSdAndLimits()
    {
        const Summary summary = summaryOf({2.0, 4.0, 4.0, 4.0, 5.0, 5.0, 7.0, 9.0});
        QCOMPARE(summary.n, 8);
        QCOMPARE(summary.mean, 5.0);
        QCOMPARE(summary.sd, std::sqrt(32.0 / 7.0));
        QCOMPARE(summary.minimum, 2.0);
        QCOMPARE(summary.maximum, 9.0);
    }

    void summary_hasNoSpread_whenThereIsOneValue()
    {
        const Summary summary = summaryOf({-3.5});
        QCOMPARE(summary.n, 1);
        QCOMPARE(summary.mean, -3.5);
        QCOMPARE(summary.sd, 0.0);
        QCOMPARE(summary.minimum, -3.5);
        QCOMPARE(summary.maximum, -3.5);
    }

    void summary_isZero_whenThereIsNothing() { QCOMPARE(summaryOf({}).n, 0); }

    void sampleClock_followsTheLeastDelayedBlock()
    {
        // 1000 samples a second from 500 ms on; the middle block comes without delay.
        const SampleClock clock({{10, 514.0}, {20, 520.0}, {30, 537.0}}, 1000.0);
        QCOMPARE(clock.timeMs(20), 520.0);
        QCOMPARE(clock.timeMs(0), 500.0);
        QCOMPARE(clock.timeMs(35), 535.0);
    }

    void sampleClock_forgetsBlocksOfOtherSeconds()
    {
        // The sink's clock has lost 50 ms between the first block and the last one.
        const SampleClock clock({{1000, 1000.0}, {5000, 5050.0}}, 1000.0);
        QCOMPARE(clock.timeMs(1100), 1100.0);
        QCOMPARE(clock.timeMs(4900), 4950.0);
    }

    void sampleClock_usesWhatThereIs_whenNoBlockIsNear()
    {
        const SampleClock clock({{1000, 1010.0}}, 1000.0);
        QCOMPARE(clock.timeMs(9000), 9010.0);
    }

    void sampleClock_isNan_whenNothingArrived()
    {
        QVERIFY(std::isnan(SampleClock({}, 1000.0).timeMs(0)));
    }
};

QUORIN_GUILESS_TEST(TestTimingFigures);
#include "tst_timing_figures.moc"
