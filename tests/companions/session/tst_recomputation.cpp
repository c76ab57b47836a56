// SPDX-License-Identifier: GPL-3.0-or-later
// Recorded runs computed again: the same, unless the record was changed.
#include "RecordedRun.h"
#include "session/Recomputation.h"
#include "support/ModalBoxes.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"

using namespace quorin;

namespace {

RunRecord recordOf(const RecordedRun& run)
{
    const ReadRecord read = readRecordFile(run.recordPath());
    if (!read.error.isEmpty())
        qFatal("the record cannot be read: %s", qUtf8Printable(read.error));
    return read.run;
}

int soundsOf(const RunRecord& run)
{
    int nSounds = 0;
    for (const RecordedTrial& trial : run.trials)
        nSounds += trial.sounds.size();
    return nSounds;
}

QString threshold(const RunRecord& run)
{
    return QString::number(
        std::get<RunSaved>(run.end).threshold, 'g', QLocale::FloatingPointShortest);
}

} // namespace

class TestRecomputation : public WindowTest {
    Q_OBJECT

private slots:
    void run_isTheSame_whateverIsAdapted_data()
    {
        QTest::addColumn<int>("soundType");
        QTest::addColumn<int>("mainParameter");
        QTest::addColumn<int>("seed");
        QTest::newRow("noise") << noiseCarrier << modulationDepthParameter << 1;
        QTest::newRow("noise of another seed")
            << noiseCarrier << modulationDepthParameter << 2147483646;
        QTest::newRow("modulated tone") << sinusoidCarrier << modulationDepthParameter << 7;
        QTest::newRow("tone") << sinusoidCarrier << carrierFrequencyParameter << 7;
    }

    void run_isTheSame_whateverIsAdapted()
    {
        QFETCH(int, soundType);
        QFETCH(int, mainParameter);
        QFETCH(int, seed);
        RecordedRun run(static_cast<uint>(seed));
        comboBoxOf(*run.window, "comboBoxSoundType")->setCurrentIndex(soundType);
        comboBoxOf(*run.window, "comboBoxMainParameter")->setCurrentIndex(mainParameter);
        type(*run.window, "lineEditNReversals", "6");
        run.play("ccwcwccwc");
        const RunRecord record = recordOf(run);
        QVERIFY(std::holds_alternative<RunSaved>(record.end));
        QCOMPARE(soundsOf(record), 36);
        QCOMPARE(differencesOf(record), QStringList());
    }

    void laterRun_isTheSame_afterMoreViewsAndAnAbandonedRun()
    {
        RecordedRun run(5);
        run.play("cc");
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        Probe::subjectWindow(*run.window)->close();
        type(*run.window, "lineEditStdDuration", "7");
        buttonOf(*run.window, "pushButtonView")->click();
        comboBoxOf(*run.window, "comboBoxSoundType")->setCurrentIndex(sinusoidCarrier);
        buttonOf(*run.window, "pushButtonView")->click();
        comboBoxOf(*run.window, "comboBoxSoundType")->setCurrentIndex(noiseCarrier);
        run.play("wcw");
        const RunRecord record = recordOf(run);
        // The window, two Views, two trials' positions, three new deviants' noise, and one View
        // more.
        QCOMPARE(record.begun.drawsBefore, 48000 + 800 + 3 + 2 * 400 + 680);
        QCOMPARE(differencesOf(record), QStringList());
    }

    void run_isTheSame_whenThePanelWasChangedBetweenViewAndGo()
    {
        RecordedRun run(9);
        buttonOf(*run.window, "pushButtonView")->click();
        type(*run.window, "lineEditDevDuration", "12.5");
        type(*run.window, "lineEditDevModFreq", "20");
        checkBoxOf(*run.window, "checkBoxResetMdFd")->setChecked(false);
        type(*run.window, "lineEditDevModDepth", "33.3333");
        buttonOf(*run.window, "pushButtonGo")->click();
        run.driver.beReady();
        for (const bool isRight : {true, false, true}) {
            run.driver.playTrial();
            run.driver.answerRightly(isRight);
        }
        const RunRecord record = recordOf(run);
        QCOMPARE(record.begun.view.md[deviant], 0.5);
        QCOMPARE(record.trials[0].begun.value, 0.333333);
        QCOMPARE(differencesOf(record), QStringList());
    }

    void unfinishedRun_isTheSame_asFarAsItGoes()
    {
        RecordedRun run;
        run.play("cc");
        run.driver.startSound();
        run.recorder.flush();
        const RunRecord record = recordOf(run);
        QCOMPARE(record.trials.size(), 3);
        QCOMPARE(soundsOf(record), 9);
        QCOMPARE(differencesOf(record), QStringList());
    }

    void change_isTold()
    {
        RecordedRun run;
        run.play("cwc");
        const RunRecord record = recordOf(run);

        RunRecord changed = record;
        RecordedTrial trial = record.trials[1];
        trial.begun.position = 5 - trial.begun.position;
        changed.trials.replace(1, trial);
        QCOMPARE(differencesOf(changed),
            QStringList(QString("trial 2: position: recorded %1, computed %2")
                            .arg(trial.begun.position)
                            .arg(5 - trial.begun.position)));
        changed = record;
        trial = record.trials[0];
        trial.answer->valueAfter = 0.25;
        changed.trials.replace(0, trial);
        QCOMPARE(differencesOf(changed),
            QStringList("trial 1: value after: recorded 0.25, computed 0.39716411736214075"));
        changed = record;
        trial = record.trials[2];
        trial.sounds.last().sha256 = "0";
        changed.trials.replace(2, trial);
        QCOMPARE(differencesOf(changed),
            QStringList("trial 3: samples of interval 4: recorded 0, computed "
                + record.trials[2].sounds.last().sha256));
        changed = record;
        RunSaved end = std::get<RunSaved>(record.end);
        end.threshold = 0.5;
        changed.end = end;
        QCOMPARE(differencesOf(changed),
            QStringList("end: threshold: recorded 0.5, computed " + threshold(record)));
        changed = record;
        changed.begun.seed = 2;
        QCOMPARE(differencesOf(changed).filter("samples").size(), 12);
        changed = record;
        changed.trials.removeLast();
        QCOMPARE(differencesOf(changed).first(),
            QString("end: whether the run had all its reversals: recorded yes, computed no"));
    }
};

QUORIN_TEST(TestRecomputation);
#include "tst_recomputation.moc"
