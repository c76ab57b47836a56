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
        addColumns<int, QVector<bool>>("position", "sequence");
        addRow("second", 2, QVector<bool> {false, true, false, false});
        addRow("third", 3, QVector<bool> {false, false, true, false});
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
        addColumns<double, QVector<double>, int>("silence", "durations", "period");
        addRow("defaults", 1.0, QVector<double> {0.6, 0.6}, 1600);
        addRow("standard longer", 1.0, QVector<double> {0.6, 0.25}, 1600);
        addRow("deviant longer", 1.0, QVector<double> {0.25, 0.6}, 1600);
        addRow("no silence", 0.0, QVector<double> {0.25, 0.6}, 600);
        addRow("sum truncated, not the parts", 0.0015, QVector<double> {0.00175, 0.0}, 3);
        // 60 + 600, where (0.06 + 0.6) * 1000 is just below 660; then the other way round.
        addRow("sum of products, not product of the sum", 0.06, QVector<double> {0.6, 0.6}, 660);
        addRow(
            "sum of products below that of the sum", 1.0009, QVector<double> {0.1001, 0.1}, 1100);
        addRow("truncated, not rounded", 0.0, QVector<double> {0.00199, 0.0}, 1);
        addRow("nothing at all", 0.0, QVector<double> {0.0, 0.0}, 1);
        addRow("negative", -5.0, QVector<double> {0.6, 0.6}, 1);
        addRow("silence not a number", nan, QVector<double> {0.6, 0.6}, 1);
        addRow("standard not a number", 1.0, QVector<double> {nan, 0.6}, 1);
        addRow("deviant not a number", 1.0, QVector<double> {0.6, nan}, 1600);
        addRow("too long", 1e9, QVector<double> {0.6, 0.6}, longest);
        addRow("endless", infinity, QVector<double> {0.6, 0.6}, longest);
    }

    void period_isSilenceAndLongerSound()
    {
        QFETCH(double, silence);
        QFETCH(QVector<double>, durations);
        QTEST(trialPeriodMs(silence, durations), "period");
    }

    void silence_isTruncatedToMilliseconds_oneAtLeast_data()
    {
        addColumns<double, int>("silence", "milliseconds");
        addRow("default", 1.0, 1000);
        addRow("truncated", 0.0609, 60);
        addRow("less than one", 0.0005, 1);
        addRow("none", 0.0, 1);
    }

    void silence_isTruncatedToMilliseconds_oneAtLeast()
    {
        QFETCH(double, silence);
        QTEST(silentIntervalMs(silence), "milliseconds");
    }

    void reportTimeout_isFiveSecondsMore_withinTheTimersRange_data()
    {
        constexpr int longest = std::numeric_limits<int>::max();
        addColumns<int, int>("period", "timeout");
        addRow("defaults", 1600, 6600);
        addRow("shortest", 1, 5001);
        addRow("last that fits", longest - 5001, longest - 1);
        addRow("just limited", longest - 4999, longest);
        addRow("longest", longest, longest);
    }

    void reportTimeout_isFiveSecondsMore_withinTheTimersRange()
    {
        QFETCH(int, period);
        QTEST(endReportTimeoutMs(period), "timeout");
    }
};

QUORIN_GUILESS_TEST(TestTrialSequence);
#include "tst_trial_sequence.moc"
