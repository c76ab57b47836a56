// SPDX-License-Identifier: GPL-3.0-or-later
// Which intervals hold the deviant, and the times of a trial.
#include "app/TrialSequence.h"
#include "support/QuietTest.h"

#include <limits>

class TestTrialSequence : public QuietTest {
    Q_OBJECT

private slots:
    void sequence_isTrueAtTheDeviantOnly_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QVector<bool>>("sequence");
        QTest::newRow("second") << 2 << QVector<bool> {false, true, false, false};
        QTest::newRow("third") << 3 << QVector<bool> {false, false, true, false};
    }

    void sequence_isTrueAtTheDeviantOnly()
    {
        QFETCH(int, position);
        QTEST(trialSequence(4, position), "sequence");
    }

    void period_isSilenceAndLongerSound_data()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr double nan = std::numeric_limits<double>::quiet_NaN();
        constexpr int longest = std::numeric_limits<int>::max();
        QTest::addColumn<double>("silence");
        QTest::addColumn<QVector<double>>("durations");
        QTest::addColumn<int>("period");
        QTest::newRow("defaults") << 1.0 << QVector<double> {0.6, 0.6} << 1600;
        QTest::newRow("standard longer") << 1.0 << QVector<double> {0.6, 0.25} << 1600;
        QTest::newRow("deviant longer") << 1.0 << QVector<double> {0.25, 0.6} << 1600;
        QTest::newRow("no silence") << 0.0 << QVector<double> {0.25, 0.6} << 600;
        QTest::newRow("sum truncated, not the parts")
            << 0.0015 << QVector<double> {0.00175, 0.0} << 3;
        // 60 + 600, where (0.06 + 0.6) * 1000 is just below 660; then the other way round.
        QTest::newRow("sum of products, not product of the sum")
            << 0.06 << QVector<double> {0.6, 0.6} << 660;
        QTest::newRow("sum of products below that of the sum")
            << 1.0009 << QVector<double> {0.1001, 0.1} << 1100;
        QTest::newRow("truncated, not rounded") << 0.0 << QVector<double> {0.00199, 0.0} << 1;
        QTest::newRow("nothing at all") << 0.0 << QVector<double> {0.0, 0.0} << 1;
        QTest::newRow("negative") << -5.0 << QVector<double> {0.6, 0.6} << 1;
        QTest::newRow("silence not a number") << nan << QVector<double> {0.6, 0.6} << 1;
        QTest::newRow("standard not a number") << 1.0 << QVector<double> {nan, 0.6} << 1;
        QTest::newRow("deviant not a number") << 1.0 << QVector<double> {0.6, nan} << 1600;
        QTest::newRow("too long") << 1e9 << QVector<double> {0.6, 0.6} << longest;
        QTest::newRow("endless") << infinity << QVector<double> {0.6, 0.6} << longest;
    }

    void period_isSilenceAndLongerSound()
    {
        QFETCH(double, silence);
        QFETCH(QVector<double>, durations);
        QTEST(trialPeriodMs(silence, durations), "period");
    }

    void reportTimeout_isFiveSecondsMore_withinTheTimersRange_data()
    {
        constexpr int longest = std::numeric_limits<int>::max();
        QTest::addColumn<int>("period");
        QTest::addColumn<int>("timeout");
        QTest::newRow("defaults") << 1600 << 6600;
        QTest::newRow("shortest") << 1 << 5001;
        QTest::newRow("last that fits") << longest - 5001 << longest - 1;
        QTest::newRow("just limited") << longest - 4999 << longest;
        QTest::newRow("longest") << longest << longest;
    }

    void reportTimeout_isFiveSecondsMore_withinTheTimersRange()
    {
        QFETCH(int, period);
        QTEST(endReportTimeoutMs(period), "timeout");
    }
};

QUORIN_GUILESS_TEST(TestTrialSequence);
#include "tst_trial_sequence.moc"
