// SPDX-License-Identifier: GPL-3.0-or-later
#include "procedure/Records.h"
#include "report/RunTable.h"
#include "report/SubjectSummary.h"
#include "report/Texts.h"
#include "support/QuietTest.h"

#include <QTest>

#include <cmath>

namespace {

// A run of a subject whose four values are the threshold and the figures next to it.
Run depthRun(const QString& subject, int sesType, int sesNum, double threshold)
{
    Run run;
    run.path = "folder/" + subject + ".txt";
    run.isNamed = true;
    run.data.subCode = subject;
    run.data.sesType = sesType;
    run.data.sesNum = sesNum;
    run.data.soundType = noiseCarrier;
    run.data.mainParameter = modulationDepthParameter;
    run.data.nTrials = 40;
    run.data.reversalCount = 14;
    run.data.threshold = threshold;
    run.standardDeviation = 1.5;
    run.geometricMean = threshold - 0.25;
    run.data.meanReactionTime = 700;
    run.data.meanReactionTimeCorrect = 650.125;
    run.data.meanReactionTimeIncorrect = std::nan("");
    run.percentCorrect = 66.666666666666;
    return run;
}

Run unnamedRun(const QString& path)
{
    Run run = depthRun("", 0, 1, 2.0);
    run.path = path;
    run.isNamed = false;
    run.data.mainParameter = carrierFrequencyParameter;
    return run;
}

} // namespace

class TestReportTables : public QuietTest {
    Q_OBJECT

private slots:
    void number_hasSixDigits_orIsALine()
    {
        QCOMPARE(shown(11.26791234), QString("11.2679"));
        QCOMPARE(shown(1234567.0), QString("1.23457e+06"));
        QCOMPARE(shown(std::nan("")), QString("-"));
    }

    void text_staysOnOneLine()
    {
        QCOMPARE(onOneLine(QString::fromUtf8("a\nb\tc\x1b[1m\u00e9\u007f")),
            QString::fromUtf8("a?b?c?[1m\u00e9?"));
    }

    void table_isAligned()
    {
        QCOMPARE(runTable({depthRun("A", 1, 7, 11.26791234), unnamedRun("x/try 2.txt")}),
            QString("threshold: mean of the last 8 of 14 reversals; reaction times (RT) in ms\n"
                    "\n"
                    "subject    session  sound  main parameter     trials  reversals  threshold   "
                    "SD  geo. mean  unit   RT  RT correct  RT wrong  correct %\n"
                    "A          test007  noise  modulation depth       40         14    11.2679  "
                    "1.5    11.0179     %  700     650.125         -       66.7\n"
                    "try 2.txt  -        -      carrier frequency      40         14          2  "
                    "1.5       1.75    Hz  700     650.125         -       66.7\n"));
    }

    void csv_hasARowARun()
    {
        QCOMPARE(runCsv({depthRun("A", 0, 12, 11.26791234), unnamedRun("x/a, \"b\"\n.txt")}),
            QString("file,subject,session_type,session,sound,main_parameter,unit,trials,reversals,"
                    "threshold,sd,geometric_mean,rt_ms,rt_correct_ms,rt_wrong_ms,percent_correct\n"
                    "folder/A.txt,A,practice,12,noise,modulation depth,%,40,14,11.26791234,1.5,"
                    "11.01791234,700,650.125,,66.66666667\n"
                    "\"x/a, \"\"b\"\"\n.txt\",\"a, \"\"b\"\"\n.txt\",,,,carrier frequency,Hz,40,14,"
                    "2,1.5,1.75,700,650.125,,66.66666667\n"));
    }

    void subjects_haveTheirRunsInOrder()
    {
        const QVector<Subject> subjects = bySubject({depthRun("B", 1, 1, 1), depthRun("A", 1, 2, 2),
            unnamedRun("x/C"), depthRun("A", 1, 1, 3), depthRun("A", 0, 9, 4), unnamedRun("y/C")});
        QCOMPARE(subjects.size(), 3);
        QCOMPARE(subjects[0].name, QString("A"));
        QCOMPARE(subjects[1].name, QString("B"));
        QCOMPARE(subjects[2].name, QString("C"));
        QCOMPARE(subjects[0].runs.size(), 3);
        QCOMPARE(subjects[0].runs[0].data.threshold, 4.0);
        QCOMPARE(subjects[0].runs[1].data.threshold, 3.0);
        QCOMPARE(subjects[0].runs[2].data.threshold, 2.0);
        QCOMPARE(subjects[2].runs.size(), 2);
    }

    void page_averagesEachCondition()
    {
        const QVector<Subject> subjects
            = bySubject({depthRun("A", 1, 2, 2), depthRun("A", 0, 1, 20), depthRun("A", 1, 1, 8)});
        QCOMPARE(summaryPage(subjects.constFirst()),
            QString("\n"
                    "Subject A, runs: 3\n"
                    "\n"
                    "main parameter    sound  session   runs  mean threshold       SD  geo. mean  "
                    "unit   RT  correct %\n"
                    "modulation depth  noise  practice     1              20        -         20  "
                    "   %  700       66.7\n"
                    "modulation depth  noise  test         2               5  4.24264          4  "
                    "   %  700       66.7\n"));
    }
};

QTEST_GUILESS_MAIN(TestReportTables)
#include "tst_report_tables.moc"
