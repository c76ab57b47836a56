// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of one run, and runs that cannot be used.
#include "SimulatedRun.h"
#include "procedure/Records.h"
#include "report/Run.h"
#include "statistics/Spread.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTemporaryDir>
#include <QTest>

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

// A run whose file is written into a folder and read.
struct ReadRun {
    Run run;
    Complaint complaint;
};

ReadRun readBack(const QByteArray& bytes, const QString& name = "run.txt", const RunRule& rule = {},
    bool isUnchecked = false)
{
    const QTemporaryDir folder;
    ReadRun result;
    result.run.path = folder.filePath(name);
    fillFile(result.run.path, bytes);
    result.complaint = readRun(result.run, bytes, rule, isUnchecked);
    return result;
}

QByteArray depthFile(unsigned seed, int nReversals = 14)
{
    return resultsBytes(simulatedRun(modulationDepthParameter, seed, nReversals));
}

bool isRight(const QByteArray& line)
{
    return line.split('\t')[3] == "1";
}

QList<QByteArray> linesOf(const QByteArray& file)
{
    QList<QByteArray> lines = file.split('\n');
    lines.removeLast();
    return lines;
}

QByteArray fileOf(const QList<QByteArray>& lines)
{
    return lines.join('\n') + '\n';
}

// A run whose last line but one is no reversal. Without its last line any other run looks like one
// that was asked for fewer reversals.
unsigned seedOfALongEnd()
{
    for (unsigned seed = 1;; ++seed) {
        const QList<QByteArray> lines = linesOf(depthFile(seed));
        if (isRight(lines[lines.size() - 2]) == isRight(lines[lines.size() - 3])) {
            return seed;
        }
    }
}

QString textOf(const Complaint& complaint)
{
    return QString::number(complaint.line) + ' ' + complaint.text;
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

    void run_isRefused_withTooFewReversals()
    {
        const QByteArray file = depthFile(1, 13);
        QCOMPARE(textOf(readBack(file, "run.txt", {14, std::nullopt}).complaint),
            QString("%1 the file ends after 13 reversals, 14 are needed").arg(file.count('\n')));
    }

    void changedLine_isRefused_andReadUnchecked_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("complaint");
        const QByteArray good = depthFile(1);
        const QList<QByteArray> lines = linesOf(good);
        const auto changed = [&lines](int line, const QByteArray& from, const QByteArray& to) {
            QList<QByteArray> all = lines;
            all[line - 1].replace(from, to);
            return fileOf(all);
        };
        const QString unlike("%1 %2 does not follow from the line before, %3 would: a line is "
                             "missing, doubled, moved or changed");
        const auto valueAt = [&lines](int line) { return lines[line - 1].split('\t')[0]; };

        QTest::newRow("value") << changed(5, valueAt(5), "33.333333")
                               << unlike.arg(QString("5"), "33.333333", valueAt(5));
        QList<QByteArray> flipped = lines;
        const int place = flipped[2].lastIndexOf('\t') - 1;
        flipped[2].replace(place, 1, flipped[2].at(place) == '0' ? "1" : "0");
        QTest::newRow("correctness")
            << fileOf(flipped) << QString("3 the correctness contradicts the positions");
        QTest::newRow("infinite value")
            << changed(5, valueAt(5), "inf") << QString("5 inf is no value of a run");
        QTest::newRow("no number")
            << changed(2, valueAt(2), "nan") << QString("2 nan is no value of a run");
        QTest::newRow("negative value")
            << changed(2, valueAt(2), "-50.000000") << QString("2 -50.000000 is no value of a run");

        QList<QByteArray> missing = lines;
        missing.removeAt(5);
        QTest::newRow("missing line")
            << fileOf(missing) << unlike.arg(QString("6"), valueAt(7), valueAt(6));
        QList<QByteArray> atEnd = linesOf(depthFile(seedOfALongEnd()));
        atEnd.removeLast();
        QTest::newRow("last line missing")
            << fileOf(atEnd)
            << QString("%1 the run does not end with a reversal: lines are missing")
                   .arg(atEnd.size());
        QList<QByteArray> doubled = lines;
        doubled.insert(5, lines[5]);
        QTest::newRow("doubled line")
            << fileOf(doubled) << unlike.arg(QString("7"), valueAt(6), valueAt(7));
        QTest::newRow("two runs in one file")
            << fileOf(lines + linesOf(depthFile(2)).mid(1))
            << QString("%1 ").arg(lines.size() + 1); // the value that would follow is not shown
    }

    void changedLine_isRefused_andReadUnchecked()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, complaint);
        const ReadRun refused = readBack(file);
        QVERIFY2(
            textOf(refused.complaint).startsWith(complaint), qPrintable(textOf(refused.complaint)));
        const ReadRun read = readBack(file, "run.txt", {}, true);
        QCOMPARE(read.complaint.text, QString());
        QCOMPARE(textOf(read.run.departure), textOf(refused.complaint));
        QCOMPARE(read.run.data.records.size(), file.count('\n') - 1);
    }

    void secondHeader_isRefused_andPassedOverUnchecked()
    {
        const QList<QByteArray> lines = linesOf(depthFile(1));
        const QByteArray file = fileOf(lines + linesOf(depthFile(2)));
        const QString complaint = QString("%1 a second header: there is more than one run in the "
                                          "file")
                                      .arg(lines.size() + 1);
        QCOMPARE(textOf(readBack(file).complaint), complaint);
        QCOMPARE(textOf(readBack(file + "damage\r\n").complaint), complaint);
        const ReadRun read = readBack(file, "run.txt", {}, true);
        QCOMPARE(textOf(read.complaint), QString("0 "));
        QCOMPARE(textOf(read.run.departure), complaint);
        QCOMPARE(read.run.data.records.size(), file.count('\n') - 2);
        QCOMPARE(read.run.trialLines.constLast(), file.count('\n'));
    }

    void position_isRefused_beyondTwoAndThree()
    {
        QList<QByteArray> lines = linesOf(depthFile(1));
        QList<QByteArray> fields = lines[2].split('\t');
        fields[1] = "1";
        fields[3] = "0";
        lines[2] = fields.join('\t');
        QCOMPARE(textOf(readBack(fileOf(lines)).complaint),
            QString("3 the stimulus position is 1, not 2 or 3"));
        fields[1] = "2";
        fields[2] = "4";
        lines[2] = fields.join('\t');
        QCOMPARE(textOf(readBack(fileOf(lines)).complaint),
            QString("3 the response position is 4, not 2 or 3"));
    }

    void everyValue_isChecked()
    {
        const QList<QByteArray> lines = linesOf(depthFile(3));
        for (int line = 3; line <= lines.size(); ++line) {
            QList<QByteArray> changed = lines;
            QList<QByteArray> fields = changed[line - 1].split('\t');
            fields[0] = QByteArray::number(fields[0].toDouble() * 1.01, 'f', 6);
            changed[line - 1] = fields.join('\t');
            QCOMPARE(readBack(fileOf(changed)).complaint.line, line);
        }
    }
};

QUORIN_GUILESS_TEST(TestReportRun);
#include "tst_report_run.moc"
