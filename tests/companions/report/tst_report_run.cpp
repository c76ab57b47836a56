// SPDX-License-Identifier: GPL-3.0-or-later
#include "SimulatedRun.h"
#include "procedure/Records.h"
#include "report/Run.h"
#include "statistics/Spread.h"
#include "support/QuietTest.h"

#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using Values = QVector<double>;

namespace {

// The answers as 'c' and 'w', with the values 1, 2, 3 ... and reaction times of 10, 20, 30 ... ms.
Run judged(const QString& answers, int nReversals, int nLast)
{
    Run run;
    run.data.mainParameter = modulationDepthParameter;
    run.data.nReversals = nReversals;
    run.data.nReversalsToCalculate = nLast;
    for (const QChar answer : answers) {
        const int number = run.data.records.size() + 1;
        run.data.records.append(answered(isCorrect(answer), number, 10 * number));
    }
    judgeRun(run);
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
        QTest::addColumn<int>("mainParameter");
        QTest::addColumn<int>("nReversals");
        QTest::addColumn<double>("unit");
        QTest::newRow("depth") << modulationDepthParameter << 14 << 100.0;
        QTest::newRow("difference") << carrierFrequencyParameter << 14 << 1234.5;
        QTest::newRow("many reversals") << modulationDepthParameter << 60 << 100.0;
    }

    void threshold_isThatOfTheApplication_forSimulatedRuns()
    {
        QFETCH(int, mainParameter);
        QFETCH(int, nReversals);
        QFETCH(double, unit);
        const QTemporaryDir folder;
        // Each value is rounded to 6 decimals, and so no mean of them is further off; the rest is
        // the rounding of the sums.
        constexpr double filePrecision = 0.5e-6 + 1e-12;
        for (unsigned seed = 1; seed <= 50; ++seed) {
            const Data data = simulatedRun(mainParameter, seed, nReversals);
            Run run;
            run.path = folder.filePath("run.txt");
            run.data.nReversals = nReversals;
            fillFile(run.path, resultsFile(data));
            QCOMPARE(readRun(run).text, QString());
            QCOMPARE(run.data.nTrials, data.nTrials);
            QCOMPARE(run.data.reversalCount, data.reversalCount);
            QVERIFY(qAbs(run.data.threshold - data.threshold * unit) <= filePrecision);
            QCOMPARE(run.data.meanReactionTime, data.meanReactionTime);
            QCOMPARE(run.data.meanReactionTimeCorrect, data.meanReactionTimeCorrect);
            QCOMPARE(run.data.meanReactionTimeIncorrect, data.meanReactionTimeIncorrect);
        }
    }

    void name_tellsTheSession()
    {
        const QTemporaryDir folder;
        Run run;
        run.path = folder.filePath("A_1_practice012_noise_modulation depth.txt");
        fillFile(run.path, resultsFile(simulatedRun(modulationDepthParameter, 1)));
        QCOMPARE(readRun(run).text, QString());
        QVERIFY(run.isNamed);
        QCOMPARE(subjectOf(run), QString("A_1"));
        QCOMPARE(sessionOf(run), QString("practice012"));
        QCOMPARE(soundOf(run), QString("noise"));
        QCOMPARE(unitOf(run.data), QString("%"));
    }

    void name_isTheSubject_whenItDoesNotFollowThePattern()
    {
        const QTemporaryDir folder;
        Run run;
        run.path = folder.filePath("first try.txt");
        fillFile(run.path, resultsFile(simulatedRun(carrierFrequencyParameter, 1)));
        QCOMPARE(readRun(run).text, QString());
        QVERIFY(!run.isNamed);
        QCOMPARE(subjectOf(run), QString("first try.txt"));
        QCOMPARE(sessionOf(run), QString("-"));
        QCOMPARE(soundOf(run), QString("-"));
        QCOMPARE(unitOf(run.data), QString("Hz"));
        QCOMPARE(run.data.mainParameter, carrierFrequencyParameter);
    }

    void run_isRefused_whenItsNameSaysTheOtherKind()
    {
        const QTemporaryDir folder;
        Run run;
        run.path = folder.filePath("A_test001_sinusoid_carrier frequency.txt");
        fillFile(run.path, resultsFile(simulatedRun(modulationDepthParameter, 1)));
        const Complaint complaint = readRun(run);
        QCOMPARE(complaint.line, 1);
        QCOMPARE(complaint.text,
            QString("the file's name says carrier frequency, its header modulation depth"));
    }

    void run_isRefused_withTooFewReversals()
    {
        const QTemporaryDir folder;
        const Data data = simulatedRun(modulationDepthParameter, 1, 13);
        Run run;
        run.path = folder.filePath("run.txt");
        fillFile(run.path, resultsFile(data));
        const Complaint complaint = readRun(run);
        QCOMPARE(complaint.line, data.nTrials + 1);
        QCOMPARE(complaint.text, QString("the file ends after 13 reversals, 14 are needed"));
    }

    void run_isRefused_whenTheFileCannotBeRead()
    {
        Run run;
        run.path = "missing.txt";
        const Complaint complaint = readRun(run);
        QCOMPARE(complaint.line, 0);
        QCOMPARE(complaint.text, QString("cannot be read: No such file or directory"));
    }
};

QTEST_GUILESS_MAIN(TestReportRun)
#include "tst_report_run.moc"
