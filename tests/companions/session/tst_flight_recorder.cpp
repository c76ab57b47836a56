// SPDX-License-Identifier: GPL-3.0-or-later
// What the recorder writes of a run, and when.
#include "RecordedLines.h"
#include "RecordedRun.h"
#include "app/PlayedSound.h"
#include "companions/record/SampleNote.h"
#include "procedure/StaircaseRule.h"
#include "record/RecordReader.h"
#include "record/RecordWriter.h"
#include "session/RunSettings.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

#include <QCryptographicHash>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>

using namespace quorin;

namespace {

QString digestOf(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

ProtocolPlace placeInAProtocol()
{
    return {"study.csv", digestOf("session\n1\n"), "S07", "latin", 1, 2, 3, 4, 12};
}

} // namespace

class TestFlightRecorder : public WindowTest {
    Q_OBJECT

private slots:
    void run_isRecordedEventByEvent()
    {
        RecordedRun run;
        run.play("cwc");
        const QVector<QJsonObject> lines = run.lines();
        QCOMPARE(eventsOf(lines),
            QStringList("run") + trialEvents + trialEvents + trialEvents + QStringList("result"));

        const double second = steppedValue(0.5, -2, 1.0);
        const double third = steppedValue(second, 4, 1.0);
        const QVector<QJsonObject> answers = linesOf(lines, "answer");
        const Data& data = run.window->sessionRecord();
        for (int i = 0; i < 3; ++i) {
            const QJsonObject trial = linesOf(lines, "trial")[i];
            QCOMPARE(trial["trial"].toInt(), i + 1);
            QCOMPARE(trial["position"].toInt(), data.records[i].stimulusPosition);
            QCOMPARE(trial["value"].toDouble(), QVector<double>({0.5, second, third})[i]);
            QCOMPARE(answers[i]["value"], trial["value"]);
            QCOMPARE(answers[i]["correct"].toBool(), i != 1);
            QCOMPARE(answers[i]["response"].toInt(), data.records[i].responsePosition);
            QCOMPARE(answers[i]["reaction_ms"].toDouble(), data.records[i].reactionTime);
            QCOMPARE(answers[i]["reversal"].toBool(), i > 0);
            QCOMPARE(answers[i]["reversals"].toInt(), i);
        }
        QCOMPARE(answers[0]["value_after"].toDouble(), second);
        QCOMPARE(answers[1]["value_after"].toDouble(), third);
        QVERIFY(answers[2]["value_after"].isNull());
        QCOMPARE(lines.last()["threshold"].toDouble(), third);
        QCOMPARE(lines.last()["trials"].toInt(), 3);
        QCOMPARE(lines.last()["mean_reaction_ms"].toDouble(), data.meanReactionTime);
    }

    void everyLine_satisfiesTheSchema()
    {
        RecordedRun run;
        run.play("cwc");
        const QByteArray finished = run.content();
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        run.dismiss();
        run.play("c");
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        const QByteArray abandoned = run.content();
        run.recorder.askForPlace([] { return placeInAProtocol(); });
        run.recorder.askForCalibration([] {
            return RunCalibration {"note.json", sampleNote(), {"the volume is low"}};
        });
        run.play({});
        QFile all(run.path("all"));
        QVERIFY(all.open(QIODevice::WriteOnly));
        all.write(finished + abandoned + run.content());
        all.write(R"({"event":"save failed","trials":0,"threshold":"nan","mean_reaction_ms":"nan",)"
                  R"("mean_reaction_correct_ms":"nan","mean_reaction_wrong_ms":"nan","at_ms":1,)"
                  R"("reason":"full"})");
        all.write("\n" + lineBytes(SoundInterrupted {1, 3, 2500.25}));
        all.close();
        const char* const check = "import json, jsonschema, os, sys\n"
                                  "schema = json.load(open(sys.argv[1]))\n"
                                  "calibration = schema['$defs']['calibration']['properties']\n"
                                  "note = calibration['note']['$ref']\n"
                                  "note = os.path.join(os.path.dirname(sys.argv[1]), note)\n"
                                  "calibration['note'] = json.load(open(note))\n"
                                  "jsonschema.Draft202012Validator.check_schema(schema)\n"
                                  "validator = jsonschema.Draft202012Validator(schema)\n"
                                  "seen = set()\n"
                                  "for line in map(json.loads, open(sys.argv[2])):\n"
                                  "    validator.validate(line)\n"
                                  "    seen.add(line['event'])\n"
                                  "    free = {'protocol', 'listener_screen', 'calibration'}\n"
                                  "    for key in line.keys() - free:\n"
                                  "        less = dict(line)\n"
                                  "        del less[key]\n"
                                  "        assert not validator.is_valid(less), key\n"
                                  "print(len(seen))\n";
        QProcess python;
        python.setProcessChannelMode(QProcess::MergedChannels);
        python.start("/usr/bin/python3", {"-c", check, RECORD_SCHEMA, all.fileName()});
        QVERIFY(python.waitForFinished());
        QCOMPARE(QString(python.readAll()), QString("10\n"));
    }

    void firstLine_hasAllThatTheRunDependsOn()
    {
        RecordedRun run(42);
        run.play({});
        const QJsonObject line = run.lines().first();
        QCOMPARE(line["version"].toInt(), 1);
        QCOMPARE(line["seed"].toInt(), 42);
        QCOMPARE(line["draws_before"].toInt(), 48000); // two sounds of 24000 samples of noise
        QCOMPARE(line["session_type"].toString(), QString("test"));
        QCOMPARE(line["sound_type"].toString(), QString("noise"));
        QCOMPARE(line["main_parameter"].toString(), QString("modulation depth"));
        QCOMPARE(line["go"].toObject()["subCode"].toString(), QString("S/07"));
        QCOMPARE(line["go"].toObject()["nSamples"].toArray(), QJsonArray({400, 400}));
        QCOMPARE(line["go"].toObject()["dur"].toArray(), QJsonArray({0.01, 0.01}));
        QCOMPARE(line["screens"].toArray().first().toObject()["width"].toInt(), 800);
        QCOMPARE(line["listener_screen"].toString(), QGuiApplication::primaryScreen()->name());
        QVERIFY(line.contains("listener_screen"));
        QCOMPARE(line["locale"].toString(), QLocale().name());
        QCOMPARE(line["qt_version"].toString(), QString(qVersion()));
        QVERIFY(line["audio"].toObject().contains("device"));
    }

    void firstLine_hasTheCalibration_andItsDifferencesAreTold()
    {
        RecordedRun run;
        QStringList differences;
        run.recorder.askForCalibration([&differences] {
            return RunCalibration {"note.json", sampleNote(), differences};
        });
        const QSignalSpy told(&run.recorder, &FlightRecorder::calibrationDiffers);
        run.play("cwc");
        QCOMPARE(told.size(), 0);
        const ReadRecord read = readRecord(run.content());
        QCOMPARE(read.error, QString());
        QVERIFY(read.run.begun.calibration.has_value());
        QCOMPARE(read.run.begun.calibration->file, QString("note.json"));
        QCOMPARE(
            calibrationBytes(read.run.begun.calibration->note), calibrationBytes(sampleNote()));
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        run.dismiss();
        differences = QStringList("the volume is low");
        run.play({});
        QCOMPARE(told.size(), 1);
        QCOMPARE(told[0][0].toStringList(), differences);
        QCOMPARE(readRecord(run.content()).run.begun.calibration->differences, differences);
    }

    void firstLine_hasThePlaceInTheProtocol_ifThereIsOne()
    {
        RecordedRun run;
        std::optional<ProtocolPlace> place;
        run.recorder.askForPlace([&place] { return place; });
        run.driver.open();
        QVERIFY(!run.lines().first().contains("protocol"));
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        place = placeInAProtocol();
        run.driver.open();
        const QJsonObject protocol = run.lines().first()["protocol"].toObject();
        QCOMPARE(protocol["file"].toString(), QString("study.csv"));
        QCOMPARE(protocol["place"].toInt(), 4);
    }

    void soundServer_isWhatItTellsOfItself()
    {
        QCOMPARE(soundServer("Server String: /run/pulse\n"
                             "Server Name: PulseAudio (on PipeWire 0.3.65)\n"
                             "Server Version: 15.0.0\n"
                             "Default Sample Specification: float32le 2ch 48000Hz\n"
                             "Default Sink: lab\nCookie: 1\n",
                     "0\tcard\tmodule-alsa-card.c\ts16le 2ch 44100Hz\tSUSPENDED\n"
                     "1\tlab\tmodule-null-sink.c\tfloat32le 1ch 40000Hz\tRUNNING\n"),
            QJsonObject({{"name", "PulseAudio (on PipeWire 0.3.65)"}, {"version", "15.0.0"},
                {"format", "float32le 2ch 48000Hz"}, {"sink", "lab"},
                {"sink_format", "float32le 1ch 40000Hz"}}));
        QCOMPARE(soundServer({}, {}), QJsonObject());
    }

    void digest_isThatOfTheBytesPlayed()
    {
        RecordedRun run;
        run.driver.begin();
        QStringList played;
        for (int i = 0; i < 4; ++i) {
            run.driver.startSound();
            played.append(digestOf(*Probe::audioBytes(*run.window)));
            run.driver.endSound();
        }
        run.driver.answerRightly(true);
        QCoreApplication::processEvents();
        const QVector<QJsonObject> sounds = linesOf(run.lines(), "sound");
        QCOMPARE(sounds.size(), 4);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(sounds[i]["sha256"].toString(), played[i]);
        QVERIFY(played[0] == played[3] && played[1] != played[2]);
    }

    void lines_areWrittenAtOnce_exceptWhileAnAnswerIsAwaited()
    {
        RecordedRun run;
        run.driver.open();
        QCOMPARE(eventsOf(run.lines()), QStringList("run"));
        run.driver.beReady();
        QStringList expected = QStringList({"run", "trial"});
        for (int i = 1; i <= 3; ++i) {
            run.driver.startSound();
            run.driver.endSound();
            QCoreApplication::processEvents();
            expected << QString("sound %1").arg(i) << QString("ended %1").arg(i);
            QCOMPARE(eventsOf(run.lines()), expected);
        }
        run.driver.startSound();
        QCoreApplication::processEvents();
        expected << "sound 4";
        QCOMPARE(eventsOf(run.lines()), expected);
        run.driver.endSound();
        QCoreApplication::processEvents();
        QCOMPARE(eventsOf(run.lines()), expected);
        run.driver.answerRightly(true);
        QCoreApplication::processEvents();
        expected << "ended 4"
                 << "answer allowed"
                 << "answer"
                 << "trial";
        QCOMPARE(eventsOf(run.lines()), expected);
    }

    // Where the pacing timer is due before the event loop has come to the lines.
    void lines_areOnTheDisk_whenATimerStartsTheNextSound()
    {
        RecordedRun run;
        run.driver.begin();
        run.driver.startSound();
        run.driver.endSound();
        QStringList onDisk;
        connect(run.window.get(), &MainWindow::soundPlaying, this,
            [&] { onDisk = eventsOf(run.lines()); });
        QTimer* const timer = Probe::timerPlay(*run.window);
        QTimerEvent tick(timer->timerId());
        QCoreApplication::sendEvent(timer, &tick);
        QCOMPARE(onDisk, QStringList({"run", "trial", "sound 1", "ended 1"}));
    }

    void resultsFile_hasTheBytesThatTheApplicationWrites_andADialogCancelledLosesNothing()
    {
        RecordedRun run;
        checkBoxOf(*run.window, "checkBoxSaveData")->setChecked(true);
        ModalBoxes boxes;
        boxes.chooseFile(run.path("saved.txt"));
        run.play("cwc");
        const QByteArray saved = contentOf(run.path("saved.txt"));
        QCOMPARE(saved.count('\n'), 4);
        const QString name = run.lines().last()["results_file"].toString();
        QCOMPARE(name, QString(run.recorder.recordName()).replace(".jsonl", ".txt"));
        QCOMPARE(contentOf(run.path(name)), saved);

        boxes.answerNext(QMessageBox::Yes);
        run.dismiss();
        boxes.cancelFile();
        announceWarning("QFSFileEngine::open: No file name specified");
        const QString first = run.recordPath();
        run.play("cwc");
        QVERIFY(run.recordPath() != first);
        QCOMPARE(boxes.fileChoices().size(), 2);
        QCOMPARE(run.lines().last()["event"].toString(), QString("result"));
    }

    void closedWindow_abandonsTheRun()
    {
        RecordedRun run;
        run.play("c");
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        const QJsonObject last = run.lines().last();
        QCOMPARE(last["event"].toString(), QString("abandoned"));
        QCOMPARE(last["reason"].toString(), QString("the listener's window was closed"));
        QCOMPARE(last["trials"].toInt(), 1);
        run.driver.playTrial(); // the loop goes on unheard
        QCoreApplication::processEvents();
        QCOMPARE(run.lines().last(), last);
        const QString first = run.recordPath();
        run.play("cwc");
        QVERIFY(run.recordPath() != first);
        QCOMPARE(run.lines().last()["event"].toString(), QString("result"));
    }

    void endOfTheProgram_abandonsTheRun()
    {
        const QTemporaryDir folder;
        MainWindow window;
        RunDriver driver(window);
        QString name;
        {
            const FlightRecorder recorder(window, folder.path(), 1);
            driver.begin();
            name = recorder.recordName();
        }
        const QByteArrayList lines = contentOf(folder.filePath(name)).trimmed().split('\n');
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines.last().contains(R"("reason":"the program was ended")"));
    }

    void soundOfAnAbandonedRun_isNotRecordedInTheNext()
    {
        RecordedRun run;
        run.play("c");
        run.driver.startSound();
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        run.driver.begin();
        run.driver.endSound();
        run.driver.startSound();
        run.recorder.flush();
        QCOMPARE(eventsOf(run.lines()), QStringList({"run", "trial", "sound 1"}));
    }
};

QUORIN_TEST(TestFlightRecorder);
#include "tst_flight_recorder.moc"
