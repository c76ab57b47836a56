// SPDX-License-Identifier: GPL-3.0-or-later
// Recorded runs with one line changed: what then cannot be true is found in its line.
#include "SampleNote.h"
#include "companions/session/RecordedRun.h"
#include "procedure/ResultsFormat.h"
#include "record/JsonFields.h"
#include "record/RecordCheck.h"
#include "record/RecordReader.h"
#include "record/RecordWriter.h"
#include "support/WindowTest.h"

using namespace quorin;

namespace {

// A line's event and which of its kind it is, from 1 on.
struct Place {
    const char* event;
    int number;
};

} // namespace

Q_DECLARE_METATYPE(Place)
Q_DECLARE_METATYPE(SoundInterrupted)

namespace {

QString textOf(const Contradiction& contradiction)
{
    return QString::number(contradiction.line) + ": " + contradiction.text;
}

QString contradictionIn(const QVector<QJsonObject>& lines)
{
    QByteArray bytes;
    for (const QJsonObject& line : lines)
        bytes += lineBytes(line);
    const ReadRecord read = readRecord(bytes);
    return read.error.isEmpty() ? textOf(contradictionOf(read.run)) : "unread: " + read.error;
}

// Of a run of three trials, the second of which is answered wrongly.
const QVector<QJsonObject>& recordedLines()
{
    static const QVector<QJsonObject> lines = [] {
        RecordedRun run;
        run.play("cwc");
        return run.lines();
    }();
    return lines;
}

int indexOf(const QVector<QJsonObject>& lines, const Place& place)
{
    int found = 0;
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i]["event"] == QLatin1String(place.event) && ++found == place.number)
            return i;
    }
    qFatal("there is no such line");
}

QJsonObject wrongCalibration()
{
    CalibrationNote note = sampleNote();
    note.readingDb = 0.0;
    return {{"file", "note.json"}, {"note", asJson(note)}, {"differences", QJsonArray()}};
}

void addChangeColumns()
{
    addColumns<Place, QString, QJsonValue, Place, QString>(
        "place", "key", "value", "found", "text");
}

// A change of one field, what is found then, and in which line if not in the changed one.
void row(const Place& place, const char* key, const QJsonValue& value, const QString& text,
    const Place& found = {nullptr, 0})
{
    QTest::addRow(
        "%s %d: %s %s", place.event, place.number, key, qPrintable(value.toVariant().toString()))
        << place << key << value << (found.event == nullptr ? place : found) << text;
}

void checkChange()
{
    QFETCH(Place, place);
    QFETCH(QString, key);
    QFETCH(QJsonValue, value);
    QFETCH(Place, found);
    QFETCH(QString, text);
    QVector<QJsonObject> lines = recordedLines();
    QCOMPARE(contradictionIn(lines), QString("0: "));
    lines[indexOf(lines, place)].insert(key, value);
    QCOMPARE(contradictionIn(lines), QString("%1: %2").arg(indexOf(lines, found) + 1).arg(text));
}

} // namespace

class TestRecordCheck : public WindowTest {
    Q_OBJECT

private slots:
    void recordedRun_hasNone_whateverIsAdaptedAndWhereverItEnds()
    {
        for (const int soundType : {sinusoidCarrier, noiseCarrier}) {
            RecordedRun run;
            comboBoxOf(*run.window, "comboBoxSoundType")->setCurrentIndex(soundType);
            comboBoxOf(*run.window, "comboBoxMainParameter")
                ->setCurrentIndex(soundType == noiseCarrier ? modulationDepthParameter
                                                            : carrierFrequencyParameter);
            type(*run.window, "lineEditNReversals", "6");
            run.play("wwwwcwccwcw");
            const QByteArray bytes = run.content();
            QVERIFY(std::holds_alternative<RunSaved>(readRecord(bytes).run.end));
            for (int end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', end + 1)) {
                QCOMPARE(
                    textOf(contradictionOf(readRecord(bytes.left(end + 1)).run)), QString("0: "));
            }
            QCOMPARE(resultsBytes(answeredRun(readRecord(bytes).run)),
                resultsBytes(run.window->sessionRecord()));
        }
    }

    void changedField_isFoundInItsLine_data()
    {
        addChangeColumns();
        row({"run", 1}, "session_type", "practice",
            "the type of session has another name than number");
        row({"run", 1}, "sound_type", "noise ", "the type of sound has another name than number");
        row({"run", 1}, "main_parameter", "carrier frequency",
            "the main parameter has another name than number");
        row({"run", 1}, "listener_screen", "HDMI-7",
            "the listener's screen is not one of the screens");
        row({"run", 1}, "calibration", wrongCalibration(),
            "the calibration: \"reading_db_spl\" cannot be true of a calibration");
        row({"trial", 1}, "value", 0.25,
            "the value is 0.25, and 0.5 follows from the lines before");
        row({"trial", 2}, "value", 0.5,
            "the value is 0.5, and 0.39716411736214075 follows from the lines before");
        row({"trial", 2}, "position", 4, "the position is 4, not 2 or 3");
        row({"trial", 2}, "at_ms", 0.0, "the time is before that of an earlier line");
        row({"sound", 6}, "interval", 3, "the interval is 3, and 2 follows from the lines before");
        row({"sound", 6}, "at_ms", 0.0, "the time is before that of an earlier line");
        row({"answer", 2}, "at_ms", 0.0, "the time is before that of an earlier line");
        row({"answer", 2}, "response", 1, "the response is 1, not 2 or 3");
        row({"answer", 2}, "value", 0.4,
            "the value is 0.4, and 0.39716411736214075 follows from the lines before");
        row({"answer", 2}, "value_after", 0.5,
            "the value after the answer is 0.5, and 0.6294627058970836 follows from the lines "
            "before");
        row({"answer", 2}, "value_after", QJsonValue::Null,
            "the value after the answer is none, and 0.6294627058970836 follows from the lines "
            "before");
        row({"answer", 3}, "value_after", 0.5,
            "the value after the answer is 0.5, and none follows from the lines before");
        row({"answer", 2}, "late_sounds", 1, "1 sounds are late, the latest by 0 ms");
        row({"answer", 2}, "worst_lateness_ms", 12, "0 sounds are late, the latest by 12 ms");
        row({"answer", 1}, "reversal", true, "is called a reversal and is none");
        row({"answer", 2}, "reversal", false, "is a reversal and is not called so");
        row({"answer", 2}, "reversals", 0,
            "the count of reversals is 0, and 1 follows from the lines before");
        row({"result", 1}, "trials", 4,
            "the number of trials is 4, and 3 follows from the lines before");
        row({"result", 1}, "threshold", 0.5,
            "the threshold is 0.5, and 0.6294627058970836 follows from the lines before");
        row({"result", 1}, "at_ms", 0.0, "the time is before that of an earlier line");
    }

    void changedField_isFoundInItsLine() { checkChange(); }

    void changedEnd_isFound_whenItCannotBeTrue_data()
    {
        addChangeColumns();
        row({"ended", 2}, "interval", 0, "there is no sound of interval 0 before in trial 1");
        row({"ended", 2}, "interval", 3, "there is no sound of interval 3 before in trial 1");
        row({"ended", 4}, "interval", 5, "there is no sound of interval 5 before in trial 1");
        row({"ended", 5}, "interval", -2147483647 - 1,
            "there is no sound of interval -2147483648 before in trial 2");
        row({"ended", 2}, "interval", 1, "the sound of interval 1 has ended before");
        row({"ended", 5}, "trial", 1, "the sound of interval 1 has ended before");
        row({"ended", 2}, "at_ms", 0.0, "the time is before that of the sound's start");
        row({"ended", 2}, "interrupted", true,
            "0 interrupted sounds are counted, and 1 lines of an end tell one", {"answer", 1});
        row({"ended", 6}, "late", true, "0 late sounds are counted, and 1 lines of an end tell one",
            {"answer", 2});
    }

    void changedEnd_isFound_whenItCannotBeTrue() { checkChange(); }

    void meanReactionTime_isFound_whenItIsAnother()
    {
        for (const char* name :
            {"mean_reaction_ms", "mean_reaction_correct_ms", "mean_reaction_wrong_ms"}) {
            QVector<QJsonObject> lines = recordedLines();
            lines.last().insert(name, lines.constLast()[name].toDouble() + 1);
            QVERIFY(contradictionIn(lines).startsWith(
                QString::number(lines.size()) + ": the mean reaction time"));
        }
    }

    void judgement_isFound_whenItIsTurned()
    {
        QVector<QJsonObject> lines = recordedLines();
        const int answer = indexOf(lines, {"answer", 2});
        const int position = lines[indexOf(lines, {"trial", 2})]["position"].toInt();
        lines[answer].insert("correct", true);
        QCOMPARE(contradictionIn(lines),
            QString("%1: the answer %2 is judged as correct, and the deviant is in %3")
                .arg(answer + 1)
                .arg(5 - position)
                .arg(position));
    }

    void position_isFound_whenTheSoundsAreThoseOfTheOther()
    {
        QVector<QJsonObject> lines = recordedLines();
        const int trial = indexOf(lines, {"trial", 2});
        const int position = lines[trial]["position"].toInt();
        lines[trial].insert("position", 5 - position);
        QCOMPARE(contradictionIn(lines),
            QString("%1: the samples are not those of the first interval, and the deviant is in %2")
                .arg(indexOf(lines, {"sound", 4 + position}) + 1)
                .arg(5 - position));
    }

    void line_isMissed_whenItIsLeftOut_data()
    {
        addColumns<Place, QString>("place", "text");
        const auto row = [](const Place& place, const QString& text) {
            QTest::addRow("%s %d", place.event, place.number) << place << text;
        };
        row({"trial", 2}, "unread: \"sound\": trial 2 is not under way");
        row({"sound", 7}, "18: there is no sound of interval 3 before in trial 2");
        row({"sound", 8}, "20: there is no sound of interval 4 before in trial 2");
        row({"answer allowed", 2}, "22: the answer comes before it is allowed");
        row({"answer", 2}, "unread: trial 3 begins out of order");
    }

    void line_isMissed_whenItIsLeftOut()
    {
        QFETCH(Place, place);
        QVector<QJsonObject> lines = recordedLines();
        lines.remove(indexOf(lines, place));
        QTEST(contradictionIn(lines), "text");
    }

    void sound_isMissed_whenItIsLeftOutWithItsEnd()
    {
        QVector<QJsonObject> lines = recordedLines();
        lines.remove(indexOf(lines, {"sound", 7}), 2);
        QCOMPARE(contradictionIn(lines),
            QString("18: the interval is 4, and 3 follows from the lines before"));
        lines = recordedLines();
        lines.remove(indexOf(lines, {"sound", 8}), 2);
        QCOMPARE(contradictionIn(lines), QString("20: the answer is allowed before four sounds"));
    }

    void interruption_isFound_whenItCannotBeTrue_data()
    {
        addColumns<SoundInterrupted, QString>("line", "text");
        QTest::newRow("interval 0") << SoundInterrupted {2, 0, 1e9}
                                    << "18: there is no sound of interval 0 before in trial 2";
        QTest::newRow("interval 5") << SoundInterrupted {2, 5, 1e9}
                                    << "18: there is no sound of interval 5 before in trial 2";
        QTest::newRow("before its sound") << SoundInterrupted {
            2, 3, 1e9} << "18: there is no sound of interval 3 before in trial 2";
        QTest::newRow("too early")
            << SoundInterrupted {2, 2, 0.0} << "18: the time is before that of the sound's start";
        QTest::newRow("not counted") << SoundInterrupted {2, 2, 1e9}
                                     << "24: 0 interrupted sounds are counted, and 1 have their "
                                        "line";
    }

    void interruption_isFound_whenItCannotBeTrue()
    {
        QFETCH(SoundInterrupted, line);
        QVector<QJsonObject> lines = recordedLines();
        lines.insert(indexOf(lines, {"sound", 7}), lineObject(line));
        QTEST(contradictionIn(lines), "text");
    }

    // Of two lines that are wrong the first is told, also where it belongs to the trial before.
    void firstContradiction_isFound_inTheOrderOfTheFile()
    {
        QVector<QJsonObject> lines = recordedLines();
        const int second = indexOf(lines, {"trial", 2});
        lines.insert(second + 1, lineObject(SoundEnded {1, 1, false, false, 1e9}));
        QCOMPARE(contradictionIn(lines),
            QString("%1: the sound of interval 1 has ended before").arg(second + 2));
        lines[second].insert("value", 0.25);
        QVERIFY(contradictionIn(lines).startsWith(
            QString("%1: the value is 0.25, and ").arg(second + 1)));
    }

    void soundsThatOverlapTheNext_areNoContradiction()
    {
        QVector<QJsonObject> lines = recordedLines();
        const double startMs = lines[indexOf(lines, {"sound", 4})]["at_ms"].toDouble();
        const QJsonObject third = lines.takeAt(indexOf(lines, {"ended", 3}));
        const int fourthEnd = indexOf(lines, {"ended", 3});
        const SoundStarted empty {1, 5, 0.0, {}, startMs};
        lines.insert(fourthEnd, lineObject(empty));
        lines.insert(fourthEnd + 2, lineObject(SoundEnded {1, 5, false, false, startMs}));
        QCOMPARE(contradictionIn(lines), QString("0: "));

        QJsonObject interrupted = lineObject(SoundInterrupted {1, 3, 1e9});
        QJsonObject ended = third;
        ended.insert("interrupted", true);
        ended.insert("late", true);
        const int second = indexOf(lines, {"trial", 2});
        lines.insert(second + 1, interrupted);
        lines.insert(second + 2, ended);
        QJsonObject& answer = lines[indexOf(lines, {"answer", 2})];
        answer.insert("interrupted_sounds", 1);
        answer.insert("late_sounds", 1);
        answer.insert("worst_lateness_ms", 30);
        QCOMPARE(contradictionIn(lines), QString("0: "));
    }

    void end_isFound_whenTheRunCannotHaveIt()
    {
        QVector<QJsonObject> lines = recordedLines();
        const QJsonObject result = lines.takeLast();
        const RunAbandoned abandoned {3, "", result["at_ms"].toDouble()};
        QCOMPARE(contradictionIn(lines + QVector<QJsonObject> {lineObject(abandoned)}),
            QString("35: the run is abandoned with all its reversals"));
        const int third = indexOf(lines, {"trial", 3});
        lines.resize(third);
        QCOMPARE(contradictionIn(lines + QVector<QJsonObject> {result}),
            QString("%1: the run is finished without all its reversals").arg(third + 1));
        QCOMPARE(contradictionIn(lines + QVector<QJsonObject> {lineObject(abandoned)}),
            QString("%1: the number of trials is 3, and 2 follows from the lines before")
                .arg(third + 1));
    }

    void trial_isFound_whenTheRunHadAllItsReversals()
    {
        QVector<QJsonObject> lines = recordedLines();
        lines.last() = lineObject(TrialBegun {4, 2, 0.5, 1e9});
        QCOMPARE(contradictionIn(lines),
            QString("35: a trial begins after the run had all its reversals"));
    }

    void settings_areRefused_whenTheRulesCannotUseThem()
    {
        const QVector<QJsonObject>& lines = recordedLines();
        const QVector<QPair<QString, QJsonValue>> changes {{"md", QJsonArray {0.5}},
            {"nSamples", QJsonArray {1, 2, 3}}, {"wavNames", QJsonArray()},
            {"stepSizes", QJsonArray()}, {"stepSizes", QJsonArray {2, 2147483647}},
            {"stepFactorCorrect", -2147483647}, {"mainParameter", 2}};
        for (const auto& change : changes) {
            QVector<QJsonObject> changed = lines;
            QJsonObject go = lines[0]["go"].toObject();
            go.insert(change.first, change.second);
            changed[0].insert("go", go);
            QCOMPARE(contradictionIn(changed),
                QString("unread: \"run\": \"go\" is missing or of a wrong kind"));
        }
    }
};

QUORIN_TEST(TestRecordCheck);
#include "tst_record_check.moc"
