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

    void timeInCycles_countsFromTheCycleThatHasTheSample()
    {
        // The second cycle begins 20 ms late, and the third has another length.
        const QVector<Arrival> cycles = {{0, 100.0}, {10, 130.0}, {20, 140.0}, {84, 204.0}};
        QCOMPARE(timeInCyclesMs(cycles, 1000.0, 0), 100.0);
        QCOMPARE(timeInCyclesMs(cycles, 1000.0, 9), 109.0);
        QCOMPARE(timeInCyclesMs(cycles, 1000.0, 10), 130.0);
        QCOMPARE(timeInCyclesMs(cycles, 1000.0, 83), 203.0);
        QCOMPARE(timeInCyclesMs(cycles, 1000.0, 90), 210.0);
    }

    void timeInCycles_isNan_whenThereAreNone()
    {
        QVERIFY(std::isnan(timeInCyclesMs({}, 1000.0, 0)));
    }

    void fillPauses_putsZerosWhereACycleIsLate()
    {
        QVector<float> samples = {1.0F, 2.0F, 3.0F, 4.0F, 5.0F};
        QVector<Arrival> cycles = {{0, 100.0}, {2, 105.0}, {4, 107.0}};
        fillPauses(samples, cycles, 1000.0);
        const QVector<float> filled = {1.0F, 2.0F, 0.0F, 0.0F, 0.0F, 3.0F, 4.0F, 5.0F};
        QCOMPARE(samples, filled);
        QCOMPARE(cycles[0].nSamples, qint64(0));
        QCOMPARE(cycles[1].nSamples, qint64(5));
        QCOMPARE(cycles[2].nSamples, qint64(7));
    }

    void fillPauses_changesNothing_whenACycleBeginsEarly()
    {
        QVector<float> samples = {1.0F, 2.0F, 3.0F};
        QVector<Arrival> cycles = {{0, 100.0}, {2, 100.5}};
        fillPauses(samples, cycles, 1000.0);
        const QVector<float> same = {1.0F, 2.0F, 3.0F};
        QCOMPARE(samples, same);
        QCOMPARE(cycles[1].nSamples, qint64(2));
    }

    void fillPauses_leavesNothing_whenNothingWasRecorded()
    {
        QVector<float> samples;
        QVector<Arrival> cycles;
        fillPauses(samples, cycles, 1000.0);
        QVERIFY(samples.isEmpty());
    }
};

QUORIN_GUILESS_TEST(TestTimingFigures);
#include "tst_timing_figures.moc"
