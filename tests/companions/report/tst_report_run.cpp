// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of one run, and its name.
#include "ReadRun.h"
#include "SimulatedRun.h"
#include "procedure/Records.h"
#include "report/Run.h"
#include "statistics/Spread.h"
#include "support/QuietTest.h"

#include <cmath>

using namespace quorin;

using Values = QVector<double>;

namespace {

// The answers as 'c' and 'w', with the values 1, 2, 3 ... and reaction times of 10, 20, 30 ... ms.
Run judged(const QString& answers, int nReversals, int nLast)
{
    Run run;
    run.data.mainParameter = modulationDepthParameter;
    for (const QChar answer : answers) {
        const int number = run.data.records.size() + 1;
        run.data.records.append(answered(isCorrect(answer), number, 10 * number));
    }
    judgeRun(run, {nReversals, nLast});
    return run;
}

} // namespace

class TestReportRun : public QuietTest {
    Q_OBJECT

private slots:
    void figures_areThoseOfTheTrials()
    {
        // reversals at trials 3, 4, 6, 7 and 8 with the values 3, 4, 6, 7 and 8
        const Run run = judged("ccwccwcw", 5, 3);
        QCOMPARE(run.data.nTrials, 8);
        QCOMPARE(run.reversalTrials, QVector<int>({2, 3, 5, 6, 7}));
        QCOMPARE(run.data.reversals, QVector<double>({3, 4, 6, 7, 8}));
        QCOMPARE(run.data.threshold, 7.0);
        QCOMPARE(run.standardDeviation, 1.0);
        QCOMPARE(run.geometricMean, std::cbrt(6.0 * 7 * 8));
        QCOMPARE(run.data.meanReactionTime, 45.0);
        QCOMPARE(run.data.meanReactionTimeCorrect, (10.0 + 20 + 40 + 50 + 70) / 5);
        QCOMPARE(run.data.meanReactionTimeIncorrect, (30.0 + 60 + 80) / 3);
        QCOMPARE(run.percentCorrect, 62.5);
    }

    void threshold_isThatOfTheRule_whenTheRunGoesOn()
    {
        const Run run = judged("ccwccwcw", 4, 2);
        QCOMPARE(run.data.threshold, 6.5);
        QCOMPARE(run.data.reversalCount, 5);
        QCOMPARE(run.data.nTrials, 8);
    }

    void spread_isUndefined_forOneReversal()
    {
        const Run run = judged("cw", 1, 1);
        QCOMPARE(run.data.threshold, 2.0);
        QVERIFY(std::isnan(run.standardDeviation));
        QCOMPARE(run.geometricMean, 2.0);
    }

    void means_followTheirDefinitions()
    {
        QCOMPARE(meanOf(Values({1, 2, 6})), 3.0);
        QCOMPARE(standardDeviationOf(Values({1, 2, 6})), std::sqrt(7.0));
        QCOMPARE(geometricMeanOf(Values({2, 4, 8})), 4.0);
        QCOMPARE(geometricMeanOf(Values({0, 4, 8})), 0.0);
        QVERIFY(std::isnan(geometricMeanOf(Values({-1, 4}))));
        QVERIFY(std::isnan(meanOf(Values())));
        QVERIFY(std::isnan(standardDeviationOf(Values({1}))));
        QVERIFY(std::isnan(geometricMeanOf(Values())));
    }

    void threshold_isThatOfTheApplication_forSimulatedRuns_data()
    {
        addColumns<int, int, double>("mainParameter", "nReversals", "unit");
        QTest::newRow("depth") << modulationDepthParameter << 14 << 100.0;
        QTest::newRow("difference") << carrierFrequencyParameter << 14 << 1234.5;
        QTest::newRow("many reversals") << modulationDepthParameter << 60 << 100.0;
    }

    void threshold_isThatOfTheApplication_forSimulatedRuns()
    {
        QFETCH(int, mainParameter);
        QFETCH(int, nReversals);
        QFETCH(double, unit);
        // Each value is rounded to 6 decimals, and so no mean of them is further off; the rest is
        // the rounding of the sums.
        constexpr double filePrecision = 0.5e-6 + 1e-12;
        for (unsigned seed = 1; seed <= 50; ++seed) {
            const Data data = simulatedRun(mainParameter, seed, nReversals);
            const auto [run, complaint] = readBack(resultsBytes(data));
            QCOMPARE(complaint.text, QString());
            QCOMPARE(run.data.nTrials, data.nTrials);
            QCOMPARE(run.data.reversalCount, nReversals);
            QCOMPARE(run.data.nReversals, nReversals);
            QCOMPARE(run.data.nReversalsToCalculate, 8);
            QVERIFY(qAbs(run.data.threshold - data.threshold * unit) <= filePrecision);
            QCOMPARE(run.data.meanReactionTime, data.meanReactionTime);
            QCOMPARE(run.data.meanReactionTimeCorrect, data.meanReactionTimeCorrect);
            QCOMPARE(run.data.meanReactionTimeIncorrect, data.meanReactionTimeIncorrect);
        }
    }

    void last_isAll_whenThereAreFewerThanEight()
    {
        const Run run = readBack(depthFile(1, 5)).run;
        QCOMPARE(run.data.nReversals, 5);
        QCOMPARE(run.data.nReversalsToCalculate, 5);
        QCOMPARE(ruleOf(run.data), QString("threshold: mean of the last 5 of 5 reversals"));
    }

    void last_isRefused_beyondTheReversals()
    {
        const QByteArray file = depthFile(1, 5);
        const auto [run, complaint] = readBack(file, "run.txt", {std::nullopt, 6});
        QCOMPARE(textOf(complaint),
            QString("%1 the run has 5 reversals, fewer than the last 6 that are asked for")
                .arg(file.count('\n')));
    }

    void reversals_areTheFirstOnes_whenFewerAreAskedFor()
    {
        const Run all = readBack(depthFile(1)).run;
        const Run run = readBack(depthFile(1), "run.txt", {10, 4}).run;
        QCOMPARE(run.data.reversalCount, 14);
        QCOMPARE(run.data.threshold, meanOf(all.data.reversals.mid(6, 4)));
        QVector<int> used;
        for (int i = 0; i < 14; ++i) {
            if (isUsed(run.data, i)) {
                used.append(i);
            }
        }
        QCOMPARE(used, QVector<int>({6, 7, 8, 9}));
    }

    void name_tellsTheSession()
    {
        const auto [run, complaint]
            = readBack(depthFile(1), "A_1_practice012_noise_modulation depth.txt");
        QCOMPARE(complaint.text, QString());
        QVERIFY(run.isNamed);
        QCOMPARE(subjectOf(run), QString("A_1"));
        QCOMPARE(sessionOf(run), QString("practice012"));
        QCOMPARE(soundOf(run), QString("noise"));
        QCOMPARE(unitOf(run.data), QString("%"));
    }

    void subject_isUnknown_whenTheNameDoesNotFollowThePattern()
    {
        const auto [run, complaint]
            = readBack(resultsBytes(simulatedRun(carrierFrequencyParameter, 1)), "first try.txt");
        QCOMPARE(complaint.text, QString());
        QVERIFY(!run.isNamed);
        QCOMPARE(run.fileName, QString("first try.txt"));
        QCOMPARE(subjectOf(run), QString("unknown"));
        QCOMPARE(sessionOf(run), QString("unknown"));
        QCOMPARE(sessionTypeOf(run), QString("unknown"));
        QCOMPARE(soundOf(run), QString("unknown"));
        QCOMPARE(unitOf(run.data), QString("Hz"));
        QCOMPARE(run.data.mainParameter, carrierFrequencyParameter);
    }

    void name_isThatOfTheRealFile()
    {
        const QTemporaryDir folder;
        const QString real = folder.filePath("A_test001_noise_modulation depth.txt");
        fillFile(real, depthFile(1));
        Run run;
        run.path = folder.filePath("B_test002_noise_modulation depth.txt");
        QVERIFY(QFile::link(real, run.path));
        QCOMPARE(readRun(run, contentOf(run.path)).text, QString());
        QCOMPARE(subjectOf(run), QString("A"));
        QCOMPARE(sessionOf(run), QString("test001"));
    }

    void run_isRefused_whenItsNameSaysTheOtherKind()
    {
        QCOMPARE(
            textOf(readBack(depthFile(1), "A_test001_sinusoid_carrier frequency.txt").complaint),
            QString("1 the file's name says carrier frequency, its header modulation depth"));
    }
};

QUORIN_GUILESS_TEST(TestReportRun);
#include "tst_report_run.moc"
