// SPDX-License-Identifier: GPL-3.0-or-later
// The flags of runs, on both sides of each limit.
#include "report/RunFlags.h"
#include "support/QuietTest.h"

using namespace quorin;

namespace {

// Gives the trials values that rise by their full step after wrong answers.
void setValues(Run& run, double value)
{
    QVector<Record>& records = run.data.records;
    for (int i = 0; i < records.size(); ++i) {
        records[i].value
            = i > 0 && !records[i - 1].correctness ? records[i - 1].value * 1.6 : value;
    }
}

// A run of a subject with the answers of a good listener: 30 right of 40, both positions alike.
Run plainRun(double value = 10.0)
{
    Run run;
    run.isNamed = true;
    run.data.subCode = "A";
    run.data.sesType = 1;
    run.data.soundType = noiseCarrier;
    run.data.mainParameter = modulationDepthParameter;
    for (int i = 0; i < 40; ++i) {
        Record record;
        record.stimulusPosition = 2 + i % 2;
        record.correctness = i % 4 != 0 && i % 4 != 1 ? true : i / 4 % 2 == 0;
        record.responsePosition
            = record.correctness ? record.stimulusPosition : 5 - record.stimulusPosition;
        record.reactionTime = 500 + 10 * (i % 7);
        run.data.records.append(record);
    }
    setValues(run, 1.0);
    run.data.nTrials = 40;
    run.data.threshold = value;
    return run;
}

QString flagsOf(const Run& run)
{
    QVector<Run> runs {run};
    flagRuns(runs);
    return flagNames(runs[0]);
}

Flag firstFlag(const Run& run)
{
    QVector<Run> runs {run};
    flagRuns(runs);
    return runs[0].flags.isEmpty() ? Flag() : runs[0].flags[0];
}

void answer(Record& record, bool isRight)
{
    record.correctness = isRight;
    record.responsePosition = isRight ? record.stimulusPosition : 5 - record.stimulusPosition;
}

} // namespace

class TestRunFlags : public QuietTest {
    Q_OBJECT

private slots:
    void plainRun_hasNone() { QCOMPARE(flagsOf(plainRun()), QString()); }

    void ceiling_isTouched_byFullDepth()
    {
        Run run = plainRun();
        run.data.records[3].value = 100.0; // after a right answer
        QCOMPARE(firstFlag(run).name, QString("ceiling"));
        QCOMPARE(firstFlag(run).seen, QString("1 of 40 trials at the upper limit of the value"));
    }

    void ceiling_isTouched_byADifferenceThatRisesTooLittle()
    {
        Run run = plainRun();
        run.data.mainParameter = carrierFrequencyParameter;
        // Answer 4 is right and answer 5 is wrong: the value rises by 4 dB, or less at the ceiling.
        for (int i = 0; i < 40; ++i) {
            answer(run.data.records[i], i != 5 && i < 38);
            run.data.records[i].value = i < 6 ? 900.0 : 999.9;
        }
        QCOMPARE(firstFlag(run).name, QString("ceiling"));
        QVERIFY(firstFlag(run).seen.startsWith("2 of 40 "));
        for (int i = 6; i < 40; ++i) {
            run.data.records[i].value = 900.0 * 1.58489319;
        }
        QVERIFY(firstFlag(run).seen.startsWith("1 of 40 ")); // the wrong answer 38
    }

    void guessing_isFlagged_upToThePointOfChance()
    {
        Run run = plainRun();
        for (int i = 0; i < 40; ++i) {
            answer(run.data.records[i], i % 8 < 5); // 25 right: p = 0.077
        }
        setValues(run, 1.0);
        QCOMPARE(firstFlag(run).name, QString("guessing"));
        QCOMPARE(firstFlag(run).seen, QString("25 of 40 answers right, by chance in p = 0.077"));
        answer(run.data.records[7], true);
        QCOMPARE(firstFlag(run).seen, QString()); // 26 right: p = 0.040
    }

    void drift_isFlagged_overTheReversalsUsed()
    {
        Run run = plainRun();
        run.data.nReversals = 10;
        run.data.nReversalsToCalculate = 8;
        run.data.reversals = {90, 80, 20, 18, 17, 15, 13.5, 12, 11, 10};
        QCOMPARE(flagsOf(run), QString("drift"));
        QVERIFY(firstFlag(run).seen.startsWith("the reversals used go by -0.88 dB each, p = "));
        run.data.reversals = {90, 80, 10, 12, 10, 12, 10, 12, 10, 12};
        QCOMPARE(flagsOf(run), QString());
    }

    void positionBias_isFlagged_byTheWrongAnswers()
    {
        Run run = plainRun();
        for (int i = 0; i < 40; ++i) {
            answer(run.data.records[i], i % 4 != 0); // all 10 wrong ones: 3 instead of 2
        }
        setValues(run, 1.0);
        QCOMPARE(flagsOf(run), QString("position bias"));
        QCOMPARE(firstFlag(run).seen, QString("10 of 10 wrong answers were position 3, p = 0.002"));
    }

    void reactionTimes_areFlagged()
    {
        Run run = plainRun();
        run.data.records[8].reactionTime = 100;
        run.data.records[9].reactionTime = 99;
        run.data.records[20].reactionTime = 4000;
        QCOMPARE(flagsOf(run), QString("anticipations; RT outliers"));
        QCOMPARE(firstFlag(run).seen, QString("1 of 40 answers within 100 ms"));
        QVector<Run> runs {run};
        flagRuns(runs);
        QCOMPARE(runs[0].flags[1].seen,
            QString("3 of 40 reaction times beyond 3 deviations, the first in trial 9 (100 ms)"));
    }

    void stranger_isFlagged_amongAtLeastThreeOthers()
    {
        QVector<Run> runs;
        for (const double threshold : {5.0, 5.5, 30.0, 4.8}) {
            runs.append(plainRun(threshold));
        }
        flagRuns(runs);
        QCOMPARE(flagNames(runs[2]), QString("unlike the others"));
        QVERIFY(runs[2].flags[0].seen.startsWith(
            "30 %, the geometric mean of the other 3 is 5.09164 %, p = "));
        QCOMPARE(flagNames(runs[0]), QString());

        runs.removeLast();
        flagRuns(runs);
        QCOMPARE(flagNames(runs[2]), QString());
    }

    void stranger_isNotSought_amongOtherSubjectsOrUnknownOnes()
    {
        for (const bool isNamed : {true, false}) {
            QVector<Run> runs;
            for (const double threshold : {5.0, 5.5, 4.8, 30.0}) {
                runs.append(plainRun(threshold));
                runs.last().path = QString::number(threshold);
                runs.last().isNamed = isNamed;
            }
            runs.last().data.subCode = "B";
            flagRuns(runs);
            QCOMPARE(flagNames(runs[3]), QString());
        }
    }

    void departure_isAFlag()
    {
        Run run = plainRun();
        run.departure = {7, "the correctness contradicts the positions"};
        QCOMPARE(firstFlag(run).name, QString("unchecked"));
        QCOMPARE(firstFlag(run).seen, QString("line 7: the correctness contradicts the positions"));
    }
};

QUORIN_GUILESS_TEST(TestRunFlags);
#include "tst_run_flags.moc"
