// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers, tables and comma-separated values of runs, groups and subjects.
#include "procedure/Records.h"
#include "report/Conditions.h"
#include "report/GroupTable.h"
#include "report/RunCsv.h"
#include "report/RunTable.h"
#include "report/SubjectSummary.h"
#include "report/Texts.h"
#include "report/TrialsCsv.h"
#include "support/QuietTest.h"

#include <cmath>

using namespace quorin;

namespace {

// A run of a subject whose four values are the threshold and the figures next to it.
Run depthRun(const QString& subject, int sesType, int sesNum, double threshold)
{
    Run run;
    run.path = "folder/" + subject + ".txt";
    run.fileName = subject + ".txt";
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
    run.fileName = path.section('/', -1);
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

    void time_hasNoDecimals()
    {
        QCOMPARE(shownTime(650.4), QString("650"));
        QCOMPARE(shownTime(1234567.9), QString("1234568"));
        QCOMPARE(shownTime(std::nan("")), QString("-"));
    }

    void table_isAligned()
    {
        Run flagged = depthRun("A", 1, 7, 11.26791234);
        flagged.flags = {{"ceiling", "seen", "meaning"}, {"drift", "seen", "meaning"}};
        QCOMPARE(runTable({flagged, unnamedRun("x/try 2.txt")}),
            QString("threshold: mean of the last 8 of 14 reversals; SD: of these reversals; "
                    "reaction times (RT) in ms\n"
                    "\n"
                    "subject  session  sound    main parameter     trials  reversals  last  "
                    "threshold   SD  geo. mean  unit   RT  RT correct  RT wrong  correct %  "
                    "flags           file\n"
                    "A        test007  noise    modulation depth       40         14     8    "
                    "11.2679  1.5    11.0179     %  700         650         -       66.7  "
                    "ceiling; drift  folder/A.txt\n"
                    "unknown  unknown  unknown  carrier frequency      40         14     8       "
                    "   2  1.5       1.75    Hz  700         650         -       66.7            "
                    "      x/try 2.txt\n"));
    }

    void table_saysWhenRulesDiffer()
    {
        Run other = depthRun("B", 1, 1, 5);
        other.data.nReversals = 20;
        QVERIFY(
            runTable({depthRun("A", 1, 1, 5), other})
                .startsWith("threshold: mean of the last reversals, as many as each row says;"));
    }

    void csv_hasARowARun()
    {
        const QString headings(
            "file,subject,session_type,session,sound,main_parameter,unit,trials,"
            "reversals,rule_reversals,rule_last,threshold,threshold_db,"
            "threshold_percent_of_carrier,geometric_mean,sd_of_reversals,"
            "condition_runs,condition_se,rt_ms,rt_correct_ms,rt_wrong_ms,"
            "percent_correct,flags,checked,interrupted_trials,"
            "late_trials,output_failed_trials,start_db_spl,lowest_db_spl,highest_db_spl\n");
        Run unchecked = unnamedRun("x/a, \"b\"\n.txt");
        unchecked.departure = {3, "the correctness contradicts the positions"};
        unchecked.flags = {{"unchecked", "", ""}};
        QCOMPARE(runCsv({depthRun("A", 0, 12, 10), depthRun("A", 0, 13, 8), unchecked}, 1000.0),
            headings
                + "folder/A.txt,A,practice,12,noise,modulation depth,%,40,14,14,8,10,-20,,9.75,1.5,"
                  "2,1,700,650.125,,66.66666667,,1,,,,,,\n"
                  "folder/A.txt,A,practice,13,noise,modulation depth,%,40,14,14,8,8,-21.93820026,,"
                  "7.75,1.5,2,1,700,650.125,,66.66666667,,1,,,,,,\n"
                  "\"x/a, \"\"b\"\"\n.txt\",unknown,unknown,,unknown,carrier frequency,Hz,40,14,14,"
                  "8,2,,0.2,1.75,1.5,1,,700,650.125,,66.66666667,unchecked,0,,,,,,\n");
        QVERIFY(runCsv({unnamedRun("a")})
                    .endsWith(",2,,,1.75,1.5,1,,700,650.125,,66.66666667,,1,,,,,,\n"));
    }

    void trialsCsv_hasARowATrial()
    {
        Run run = depthRun("A", 1, 2, 10);
        run.data.nReversals = 3;
        run.data.nReversalsToCalculate = 1;
        run.data.records = {answered(true, 50, 700), answered(false, 10, 65.5),
            answered(true, 25.1250005, 9), answered(false, 0, 1e6)};
        run.reversalTrials = {1, 2, 3};
        const QString trial("folder/A.txt,A,test,2,noise,modulation depth,%,");
        QStringList lines = trialsCsv({run}, {}).split('\n');
        QCOMPARE(lines.takeFirst(),
            QString("file,subject,session_type,session,sound,main_parameter,unit,trial,value,"
                    "value_db,value_percent_of_carrier,stimulus_position,response_position,correct,"
                    "rt_ms,reversal,used,checked,interrupted_sounds,late_sounds,"
                    "worst_lateness_ms,output_failed"));
        const auto positions = [&run](int i) {
            const Record& record = run.data.records[i];
            return QString("%1,%2,").arg(record.stimulusPosition).arg(record.responsePosition);
        };
        QCOMPARE(lines[0], trial + "1,50.000000,-6.020599913,," + positions(0) + "1,700,0,0,1,,,,");
        QCOMPARE(lines[1], trial + "2,10.000000,-20,," + positions(1) + "0,65.5,1,0,1,,,,");
        QVERIFY(lines[2].endsWith(positions(2) + "1,9,1,0,1,,,,"));
        QCOMPARE(lines[3], trial + "4,0.000000,,," + positions(3) + "0,1000000,1,1,1,,,,");
        QCOMPARE(lines.size(), 5);

        run.data.mainParameter = carrierFrequencyParameter;
        QVERIFY(trialsCsv({run}, 2000.0).contains(",Hz,1,50.000000,,2.5,"));
        QVERIFY(trialsCsv({run}, {}).contains(",Hz,1,50.000000,,,"));
    }

    void estimate_isTakenInDb()
    {
        // 20 log10 of 5, 10 and 20 % are 6.0206 dB apart: the mean is 10 %, and the interval of R's
        // t.test(20 * log10(c(5, 10, 20) / 100)) goes from -34.9559993 to -5.04400071 dB.
        const QVector<Run> runs {
            depthRun("A", 1, 1, 5), depthRun("A", 1, 2, 10), depthRun("A", 1, 3, 20)};
        const ThresholdEstimate estimate = thresholdEstimate(runs, {0, 1, 2});
        constexpr double tolerance = 1e-9;
        QVERIFY(qAbs(estimate.geometricMean - 10.0) < tolerance);
        QCOMPARE(estimate.inUnit.mean, 35.0 / 3);
        QVERIFY(qAbs(20 * std::log10(estimate.low / 100) - estimate.inDb.low) < tolerance);
        QVERIFY(qAbs(20 * std::log10(estimate.high / 100) - estimate.inDb.high) < tolerance);
        QVERIFY(qAbs(estimate.inDb.low + 34.9559993) < 5e-8);
    }

    void groups_areOverSubjects()
    {
        // Subject A: geometric mean 4 of 2 and 8; B: 16. Their geometric mean is 8.
        const QVector<Run> runs {depthRun("A", 1, 1, 2), depthRun("A", 1, 2, 8),
            depthRun("B", 1, 1, 16), depthRun("B", 0, 1, 50), unnamedRun("x")};
        QCOMPARE(groupTable(runs, {"type"}),
            QString(
                "\nThresholds by type, parameter; n: subjects, each by the geometric mean of its "
                "runs\n\n"
                "type      parameter         runs  n  mean       SD  SE  geo. mean   95 % from     "
                "  to  unit\n"
                "practice  modulation depth     1  1    50        -   -         50           -     "
                "   -     %\n"
                "test      modulation depth     3  2    10  8.48528   6          8  0.00119713  "
                "53461.2     %\n"
                "runs of unknown subjects, left out: 1\n"));
    }

    void groups_areOverRuns_whenTheSubjectIsAKey()
    {
        QVector<Run> runs {depthRun("A", 1, 1, 2), depthRun("A", 1, 2, 8), depthRun("B", 1, 1, 16)};
        for (int i = 0; i < runs.size(); ++i) {
            runs[i].path = QString::number(i);
        }
        const QStringList lines
            = groupTable(runs, {"parameter", "subject", "sound", "session"}).split('\n');
        QCOMPARE(lines[1], QString("Thresholds by parameter, subject, sound, session; n: runs"));
        QCOMPARE(lines[4].simplified(), QString("modulation depth A noise 001 1 1 2 - - 2 - - %"));
        QCOMPARE(groupTable(runs, {"subject"}).split('\n')[4].simplified(),
            QString("A modulation depth 2 2 5 4.24264 3 4 0.000598565 26730.6 %"));
    }

    void subjects_haveTheirRunsInOrder()
    {
        const QVector<Subject> subjects = bySubject({depthRun("B", 1, 1, 1), depthRun("A", 1, 2, 2),
            unnamedRun("x/C"), depthRun("A", 1, 1, 3), depthRun("A", 0, 9, 4), unnamedRun("y/C")});
        QStringList names;
        for (const Subject& subject : subjects) {
            names.append(subject.name);
        }
        QCOMPARE(names, QStringList({"A", "B", "unknown (C)", "unknown (C)"}));
        QCOMPARE(subjects[2].pictureName, QString("C"));
        QCOMPARE(subjects[0].runs.size(), 3);
        QCOMPARE(subjects[0].runs[0].data.threshold, 4.0);
        QCOMPARE(subjects[0].runs[1].data.threshold, 3.0);
        QCOMPARE(subjects[0].runs[2].data.threshold, 2.0);
    }

    void page_averagesEachCondition()
    {
        QVector<Run> runs {depthRun("A", 1, 2, 2), depthRun("A", 0, 1, 20), depthRun("A", 1, 1, 8)};
        runs[0].flags = {{"ceiling", "3 of 40 trials", "it may be higher"}};
        QCOMPARE(summaryPage(bySubject(runs).constFirst()),
            QString("\n"
                    "Subject A, runs: 3\n"
                    "\n"
                    "main parameter    sound  session   runs  mean threshold       SD  SE  "
                    "geo. mean    95 % from       to  unit   RT  correct %\n"
                    "modulation depth  noise  practice     1              20        -   -  "
                    "       20            -        -     %  700       66.7\n"
                    "modulation depth  noise  test         2               5  4.24264   3  "
                    "        4  0.000598565  26730.6     %  700       66.7\n"
                    "\n"
                    "test002 noise: ceiling: 3 of 40 trials; it may be higher\n"));
    }
};

QUORIN_GUILESS_TEST(TestReportTables);
#include "tst_report_tables.moc"
