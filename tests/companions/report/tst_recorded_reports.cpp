// SPDX-License-Identifier: GPL-3.0-or-later
// Reports of recorded runs: their figures, their results files, and what is not counted.
#include "RecordedFolder.h"
#include "companions/record/SampleNote.h"
#include "record/JsonFields.h"
#include "record/RecordReader.h"
#include "record/SoundLevels.h"
#include "report/HtmlPage.h"
#include "report/LevelTable.h"
#include "report/RunCsv.h"
#include "report/RunFlags.h"
#include "report/TrialsCsv.h"
#include "support/WindowTest.h"

using namespace quorin;

namespace {

/// The record as if the session had had a note.
QByteArray calibrated(const QByteArray& record, const QStringList& differences)
{
    const int end = record.indexOf('\n') + 1;
    QJsonObject first = QJsonDocument::fromJson(record.left(end)).object();
    first["calibration"]
        = asJson(std::optional<RunCalibration>({"note.json", sampleNote(), differences}));
    return lineBytes(first) + record.mid(end);
}

} // namespace

class TestRecordedReports : public WindowTest {
    Q_OBJECT

private slots:
    void record_hasTheFiguresOfItsResultsFile_byItsOwnRule()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put("a.jsonl", files.record);
        folder.put("b.txt", files.results);
        const Reading record = folder.read({"a.jsonl"});
        const Reading results = folder.read({"b.txt"}, false, {6, 4});
        QCOMPARE(record.told + results.told, QStringList());
        QCOMPARE(record.runs.size(), 1);
        const Run& run = record.runs[0];
        const Run& other = results.runs[0];
        QCOMPARE(ruleOf(run.data), QString("threshold: mean of the last 4 of 6 reversals"));
        QCOMPARE(run.data.threshold, other.data.threshold);
        QCOMPARE(run.standardDeviation, other.standardDeviation);
        QCOMPARE(run.geometricMean, other.geometricMean);
        QCOMPARE(run.data.meanReactionTime, other.data.meanReactionTime);
        QCOMPARE(run.percentCorrect, other.percentCorrect);
        QCOMPARE(run.data.nTrials, other.data.nTrials);
        QCOMPARE(run.reversalTrials, other.reversalTrials);
        const ReadRecord read = readRecord(files.record);
        constexpr double halfOfLastDecimal = 0.5e-6;
        QVERIFY(qAbs(run.data.threshold - 100 * std::get<RunSaved>(read.run.end).threshold)
            < halfOfLastDecimal);
    }

    void record_tellsWhoAndWhatItWas()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put("a.jsonl", files.record);
        const Run run = folder.read().runs.value(0);
        QCOMPARE(subjectOf(run), QString("S/07"));
        QCOMPARE(sessionOf(run), QString("test001"));
        QCOMPARE(soundOf(run), QString("noise"));
        QCOMPARE(parameterOf(run), QString("modulation depth"));
        QCOMPARE(carrierOf(run), std::optional<double>(1000.0));
        QCOMPARE(run.fileName, QString("a.jsonl"));
        const QString time = readRecord(files.record).run.begun.time;
        QCOMPARE(run.written, QDateTime::fromString(time, Qt::ISODateWithMs));
        QCOMPARE(settingsOf(run),
            QString("duration 10 ms, silence 3.6e+06 ms, amplitude 1, carrier noise, modulation "
                    "40 Hz, standard's depth 0 %, sampling rate 40000 Hz; steps 2, 2, 1 dB, times "
                    "-1 after correct and 2 after wrong answers; threshold: mean of the last 4 of "
                    "6 reversals"));
        QVERIFY(htmlPage({run}, {}).contains(settingsOf(run).toHtmlEscaped().toUtf8()));
        Run unrecorded = run;
        unrecorded.isRecorded = false;
        QCOMPARE(settingsOf(unrecorded), QString());
        QCOMPARE(carrierOf(unrecorded), std::optional<double>());
    }

    void levels_areThoseOfTheCalibration()
    {
        const Folder folder;
        folder.put("a.jsonl", calibrated(recordedRun().record, {}));
        folder.put("b.jsonl", recordedRun("cwcwcwc").record);
        const Reading reading = folder.read();
        QCOMPARE(reading.told, QStringList());
        const Run& run = reading.runs[0];
        const Data go = readRecord(recordedRun().record).run.begun.go;
        QVector<double> values;
        for (const RecordedTrial& trial : readRecord(recordedRun().record).run.trials) {
            values.append(trial.begun.value);
        }
        const auto ends = std::minmax_element(values.cbegin(), values.cend());
        const LevelRange range = levelRange(go, *ends.first, *ends.second);
        QVERIFY(run.levels.has_value());
        QCOMPARE(run.levels->startDb, 100.0 + range.startDb[standard]);
        QCOMPARE(run.levels->lowestDb, 100.0 + range.lowestDb);
        QCOMPARE(run.levels->highestDb, 100.0 + range.highestDb);
        QVERIFY(run.levels->lowestDb < run.levels->startDb);
        QVERIFY(run.levels->startDb < run.levels->highestDb);
        QVERIFY(!reading.runs[1].levels.has_value());
        QVERIFY(!flagNames(run).contains("calibration"));
    }

    void levels_areInTablesAndPage_whereARunHasThem()
    {
        const Folder folder;
        folder.put("a.jsonl", calibrated(recordedRun().record, {"the volume is low"}));
        folder.put("b.jsonl", recordedRun("cwcwcwc").record);
        QVector<Run> runs = folder.read().runs;
        runs[0].levels->startDb = 80.0;
        runs[0].levels->lowestDb = 79.5;
        runs[0].levels->highestDb = 82.26;
        QCOMPARE(levelRows(runs),
            QVector<QStringList>({{"run", "start", "lowest", "highest", "per Hz", "digital",
                                      "meter", "weighting", "holds", "note"},
                {"a.jsonl", "80.0", "79.5", "82.3", "37.0", "-30.0", "70.0", "Z", "no",
                    "note.json"}}));
        QVERIFY(levelTable(runs).startsWith("\nlevels by the calibration notes in dB SPL; per Hz: "
                                            "at the start\n\nrun      start  lowest"));
        QVERIFY(htmlPage(runs, {}).contains("<h2>Levels in dB SPL by the calibration notes</h2>"));
        QStringList lines = runCsv(runs).split('\n');
        QVERIFY(lines[0].endsWith(",start_db_spl,lowest_db_spl,highest_db_spl"));
        QVERIFY(lines[1].endsWith(",80.00,79.50,82.26"));
        QVERIFY(lines[2].endsWith(",1,0,0,7,,,"));
        flagRuns(runs);
        QVERIFY(flagNames(runs[0]).contains("; calibration"));
        runs.removeFirst();
        QCOMPARE(levelTable(runs), QString());
        QVERIFY(!htmlPage(runs, {}).contains("<h2>Levels"));
    }

    void levels_areLeftOut_whereTheRecordsNumbersMakeNoSound()
    {
        const Folder folder;
        QByteArray endless = calibrated(recordedRun().record, {});
        endless.replace("\"nSamples\":[400,400]", "\"nSamples\":[400,2000000000]");
        QVERIFY(endless.contains("2000000000"));
        folder.put("a.jsonl", endless);
        const Reading reading = folder.read({"."}, true);
        QCOMPARE(reading.runs.size(), 1);
        QVERIFY(!reading.runs[0].levels.has_value());
    }

    void rule_isTheUsers_whereItIsGiven()
    {
        const Folder folder;
        folder.put("a.jsonl", recordedRun().record);
        QCOMPARE(ruleOf(folder.read({"a.jsonl"}, false, {{}, 6}).runs.value(0).data),
            QString("threshold: mean of the last 6 of 6 reversals"));
        const Reading shorter = folder.read({"a.jsonl"}, false, {3, {}});
        QCOMPARE(ruleOf(shorter.runs.value(0).data),
            QString("threshold: mean of the last 3 of 3 reversals"));
        QCOMPARE(shorter.told.size(), 1);
        QVERIFY(shorter.told[0].endsWith(": note: the run goes on after reversal 3, to 6"));
        QVERIFY(!folder.read({"a.jsonl"}, false, {7, {}}).isGood);
    }

    void thresholdOfNothing_isRefused()
    {
        RecordedRun run;
        type(*run.window, "lineEditNReversalsToCalc", "0");
        run.play("cwc");
        const Folder folder;
        folder.put("a.jsonl", run.content());
        QCOMPARE(folder.read().told,
            QStringList("a.jsonl:1: the threshold is that of the last 0 of 2 reversals: there is "
                        "none"));
    }

    void pair_isCountedOnce_whateverTheResultsFileIsCalled()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        const QString record = files.name + ".jsonl";
        folder.put(record, files.record);
        folder.put(files.name + ".txt", files.results);
        folder.put("0.txt", files.results);
        folder.put("z/lines.txt", QByteArray(files.results).replace("\r\n", "\n"));
        const Reading reading = folder.read();
        QVERIFY(reading.isGood);
        QCOMPARE(reading.runs.size(), 1);
        QVERIFY(reading.runs[0].isRecorded);
        const QString note(": note: the same trials as " + record + ", counted once");
        QCOMPARE(reading.told,
            QStringList({"0.txt" + note, files.name + ".txt" + note, "z/lines.txt" + note}));
    }

    void resultsFile_isARunByItself_withoutItsRecord()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put(files.name + ".txt", files.results);
        const Reading reading = folder.read();
        QCOMPARE(reading.told, QStringList());
        QCOMPARE(subjectOf(reading.runs.value(0)), QString("unknown"));
    }

    void unfinishedResultsFile_isLeftOut_atEachLine()
    {
        const RunFiles& files = recordedRun();
        const QString record = files.name + ".jsonl";
        for (int nLines = 0; nLines < files.results.count('\n'); ++nLines) {
            const Folder folder;
            folder.put(record, files.record);
            folder.put(files.name + ".txt", upToLine(files.results, nLines));
            folder.put("other.txt", upToLine(files.results, nLines));
            const Reading reading = folder.read();
            QCOMPARE(reading.runs.size(), 1);
            const QString note(": note: not all of the trials of " + record + ", left out");
            QVERIFY(reading.told.contains(files.name + ".txt" + note));
            QCOMPARE(reading.told.contains("other.txt" + note), nLines >= 3);
        }
    }

    void resultsFile_isRefused_whenItHasOtherTrialsThanItsRecord()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put(files.name + ".jsonl", files.record);
        folder.put(files.name + ".txt", resultsBytes(simulatedRun(modulationDepthParameter, 1)));
        const Reading reading = folder.read();
        QCOMPARE(reading.runs.size(), 1);
        QVERIFY(!reading.isGood);
        QCOMPARE(reading.told,
            QStringList(files.name + ".txt: the trials are not those of its record " + files.name
                + ".jsonl"));
    }

    void unfinishedRecord_isCountedOnce_atEachLine()
    {
        const RunFiles files = recordedRun("cwcwcwc");
        for (int nLines = 1; nLines <= files.record.count('\n'); ++nLines) {
            const QByteArray part = upToLine(files.record, nLines);
            const bool isAll = part == files.record;
            for (const bool isFirst : {true, false}) {
                const QString partName = isFirst ? "1.jsonl" : "2.jsonl";
                const QString wholeName = isFirst ? "2.jsonl" : "1.jsonl";
                const Folder folder;
                folder.put(partName, part);
                folder.put(wholeName, files.record);
                const Reading reading = folder.read();
                QVERIFY(reading.isGood);
                QCOMPARE(reading.runs.size(), 1);
                QCOMPARE(reading.runs[0].fileName, isAll ? QString("1.jsonl") : wholeName);
                QCOMPARE(reading.told,
                    QStringList(isAll ? "2.jsonl: note: the same content as 1.jsonl, counted once"
                                      : partName + ": note: an unfinished copy of " + wholeName
                                + ", left out"));
            }
        }
    }

    void twoRecords_areToldApart_whenOneWasChanged()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put("1.jsonl", files.record);
        folder.put("2.jsonl", withAnswer(files.record, 3, "worst_lateness_ms", 3));
        const Reading reading = folder.read();
        QCOMPARE(reading.runs.size(), 1);
        QVERIFY(!reading.isGood);
        QVERIFY(reading.told[0].endsWith(
            "1.jsonl does and goes on otherwise: one of them was changed"));
    }

    void abandonedRun_isNoted_andTakenUnchecked()
    {
        const RunFiles files = abandonedRun();
        const Folder folder;
        folder.put("a.jsonl", files.record);
        const Reading reading = folder.read();
        QVERIFY(reading.isGood);
        QCOMPARE(reading.runs.size(), 0);
        QCOMPARE(reading.told,
            QStringList("a.jsonl: note: abandoned after trial 2: the listener's window was closed, "
                        "left out"));
        const Reading unchecked = folder.read({"a.jsonl"}, true);
        QVERIFY(unchecked.isGood);
        QCOMPARE(unchecked.runs.size(), 1);
        QCOMPARE(flagNames(unchecked.runs[0]).section(';', 0, 0), QString("unchecked"));
        QCOMPARE(unchecked.told,
            QStringList(QString("a.jsonl:%1: note: unchecked: abandoned after trial 2: the "
                                "listener's window was closed")
                            .arg(files.record.count('\n'))));
    }

    void runThatWasKilled_isNoted_atEachLine()
    {
        const RunFiles& files = recordedRun();
        const int nLines = files.record.count('\n');
        for (int n = 1; n < nLines - 1; ++n) {
            const Folder folder;
            const QByteArray part = upToLine(files.record, n);
            folder.put("a.jsonl", part + "{\"at_");
            const int nAnswers = part.count(R"("event":"answer")");
            const Reading reading = folder.read();
            QVERIFY(reading.isGood);
            QCOMPARE(reading.told,
                QStringList(nAnswers == 0
                        ? QString("a.jsonl: note: cut short before the first answer, left out")
                        : QString("a.jsonl: note: cut short after trial %1, left out")
                              .arg(nAnswers)));
            QCOMPARE(folder.read({"a.jsonl"}, true).runs.size(), nAnswers == 0 ? 0 : 1);
        }
    }

    void runWithAllItsReversals_isWhole_withoutItsLastLine()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put("a.jsonl", upToLine(files.record, files.record.count('\n') - 1));
        const Reading reading = folder.read();
        QCOMPARE(reading.told, QStringList());
        QCOMPARE(reading.runs.size(), 1);
    }

    void resultsFile_isReadInstead_whenTheRecordWasCut()
    {
        const RunFiles& files = recordedRun();
        const QByteArray part = upToLine(files.record, files.record.count('\n') - 20);
        for (const bool isUnchecked : {false, true}) {
            const Folder folder;
            folder.put("a.jsonl", part);
            folder.put("b.txt", files.results);
            const Reading reading = folder.read({"."}, isUnchecked);
            QCOMPARE(reading.runs.size(), 1);
            QCOMPARE(reading.runs[0].fileName, QString("b.txt"));
            QVERIFY(
                reading.told.contains("a.jsonl: note: goes on in b.txt, which is read instead"));
        }
    }

    void contradiction_isRefusedWithItsLine_andReadUnchecked()
    {
        const RunFiles& files = recordedRun();
        const QByteArray changed = withAnswer(files.record, 3, "reversals", 5);
        const int line = 1 + 3 * 11;
        const QString what("the count of reversals is 5, and 1 follows from the lines before");
        const Folder folder;
        folder.put("a.jsonl", changed);
        folder.put("b.txt", files.results);
        const Reading reading = folder.read();
        QVERIFY(!reading.isGood);
        QCOMPARE(reading.runs.size(), 0);
        QCOMPARE(reading.told,
            QStringList({QString("a.jsonl:%1: ").arg(line) + what,
                "b.txt: note: the same trials as a.jsonl, left out too"}));
        const Reading unchecked = folder.read({"a.jsonl"}, true);
        QVERIFY(unchecked.isGood);
        QCOMPARE(
            unchecked.told, QStringList(QString("a.jsonl:%1: note: unchecked: ").arg(line) + what));
        QCOMPARE(unchecked.runs.value(0).data.nTrials, 10);
        QVERIFY(runCsv(unchecked.runs).endsWith(",0,0,0,10,,,\n"));
    }

    void damage_isRefusedWithItsLine_evenUnchecked()
    {
        const RunFiles& files = recordedRun();
        const Folder folder;
        folder.put("a.jsonl", upToLine(files.record, 5) + "x\n");
        folder.put("b.jsonl", withAnswer(recordedRun("cwcwcwc").record, 2, "response", 9));
        folder.put("c.jsonl", {});
        QCOMPARE(folder.read({"."}, true).told,
            QStringList({"a.jsonl:6: is no JSON: illegal value",
                "b.jsonl:23: \"9\" is not a position from 1 to 4", "c.jsonl: the file is empty"}));
    }

    void soundWithoutAnEnd_countsAsLost()
    {
        QByteArray record = recordedRun().record;
        for (int trial = 1; trial <= 10; ++trial)
            record = withAnswer(record, trial, "output_failed", false);
        const Folder folder;
        folder.put("a.jsonl", record);
        QVERIFY(!flagNames(folder.read().runs.value(0)).contains("output failed"));
        QByteArrayList lines = record.split('\n');
        const auto isEnd = [](const QByteArray& line) {
            return line.contains(R"("event":"ended")") && line.contains(R"("trial":3)");
        };
        lines.erase(std::find_if(lines.begin(), lines.end(), isEnd));
        folder.put("a.jsonl", lines.join('\n'));
        const Run run = folder.read().runs.value(0);
        QCOMPARE(run.flags[0].name, QString("output failed"));
        QCOMPARE(run.flags[0].seen,
            QString("a failed sound output in 1 of 10 trials, the first is trial 3"));
    }

    void disturbedTrials_areFlagged()
    {
        QByteArray record = recordedRun().record;
        for (int trial = 1; trial <= 10; ++trial) // the silent driver's output fails
            record = withAnswer(record, trial, "output_failed", trial == 7);
        record = withAnswer(record, 2, "interrupted_sounds", 1);
        record = withAnswer(record, 4, "late_sounds", 2);
        record = withAnswer(record, 4, "worst_lateness_ms", 31);
        record = withAnswer(record, 9, "late_sounds", 1);
        record = withAnswer(record, 9, "worst_lateness_ms", 12);
        const Folder folder;
        folder.put("a.jsonl", record);
        const Reading reading = folder.read();
        const Run run = reading.runs.value(0);
        QVERIFY(flagNames(run).startsWith("interrupted; late; output failed"));
        QCOMPARE(run.flags[0].seen,
            QString("interrupted sounds in 1 of 10 trials, the first is trial 2"));
        QCOMPARE(run.flags[1].seen,
            QString("sounds up to 31 ms late in 2 of 10 trials, the first is trial 4"));
        QCOMPARE(run.flags[2].seen,
            QString("a failed sound output in 1 of 10 trials, the first is trial 7"));
        QVERIFY(runCsv({run}).endsWith(",1,1,2,1,,,\n"));
        const QStringList trials = trialsCsv({run}, {}).split('\n');
        QVERIFY(trials[1].endsWith(",1,0,0,0,0"));
        QVERIFY(trials[2].endsWith(",1,1,0,0,0"));
        QVERIFY(trials[4].endsWith(",1,0,2,31,0"));
        QVERIFY(trials[7].endsWith(",1,0,0,0,1"));
        QVERIFY(htmlPage(reading.runs, {}).contains("sounds up to 31 ms late in 2 of 10 trials"));
    }
};

QUORIN_TEST(TestRecordedReports);
#include "tst_recorded_reports.moc"
