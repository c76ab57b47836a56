// SPDX-License-Identifier: GPL-3.0-or-later
// Whole runs on a real sound server, recorded and compared sample by sample.
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/Files.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "support/TrialRecording.h"
#include "support/WindowWidgets.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

constexpr int runTimeoutMs = 100000;

// A run of the usual length takes twice as long: the slow tests play it.
const bool isUsualLength = qEnvironmentVariableIsSet("QUORIN_USUAL_RUNS");
const int nReversals = isUsualLength ? 14 : 6;
const int nReversalsToCalc = isUsualLength ? 8 : 4;

// The rule played by hand: what a run of these answers starts from and ends with.
struct PlayedByHand {
    QVector<double> values; // of the deviant, trial by trial
    double threshold;
};

PlayedByHand playedByHand(const QVector<ScriptedListener::Trial>& trials, double start)
{
    PlayedByHand run = {{}, 0.0};
    QVector<double> reversals;
    double value = start;
    for (int i = 0; i < trials.size(); ++i) {
        run.values.append(value);
        if (i > 0 && trials[i].correct != trials[i - 1].correct) {
            reversals.append(value);
        }
        const int stepDb = (reversals.size() < 2 ? 2 : 1) * (trials[i].correct ? -1 : 2);
        value = std::min(value * std::pow(10.0, stepDb / 20.0), 0.9999);
    }
    for (int i = reversals.size() - nReversalsToCalc; i < reversals.size(); ++i) {
        run.threshold += reversals[i] / nReversalsToCalc;
    }
    return run;
}

} // namespace

class TestRealSound : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void everySound_isTheOneComputed_data()
    {
        addColumns<int, int, double, double>("soundType", "mainParameter", "start", "unit");
        addColumns<QString, QString>("text", "column");
        addRow("noise and depth", noiseCarrier, modulationDepthParameter, 0.5, 100.0,
            "Modulation Threshold = %1 %,   Reaction Time = %2 ms", "modulation depth (%)");
        addRow("sinusoid and frequency", sinusoidCarrier, carrierFrequencyParameter, 0.05, 1000.0,
            "Frequency Difference = %1 Hz,   Reaction Time = %2 ms", "frequency difference (Hz)");
    }

    void everySound_isTheOneComputed()
    {
        QFETCH(int, soundType);
        QFETCH(int, mainParameter);
        QFETCH(double, start);
        QFETCH(double, unit);
        QFETCH(QString, text);
        QFETCH(QString, column);
        MainWindow window;
        window.show();
        choose(window, soundType, mainParameter);
        play(window);
        const PlayedByHand expected = playedByHand(m_trials, start);
        compareRecords(window, expected);
        const Data& data = Probe::data(window);
        QCOMPARE(labelOf(*Probe::subjectWindow(window), "labelThreshold")->text(),
            text.arg(QString::number(expected.threshold * unit, 'g', 6),
                QString::number(data.meanReactionTime, 'g', 6)));
        compareFile(column, data.records, unit);
    }

private:
    void play(MainWindow& window)
    {
        type(window, "lineEditStdDuration", "100");
        type(window, "lineEditDevDuration", "80");
        type(window, "lineEditSilentInterval", "60");
        if (!isUsualLength) {
            type(window, "lineEditNReversals", QString::number(nReversals));
            type(window, "lineEditNReversalsToCalc", QString::number(nReversalsToCalc));
        }
        checkBoxOf(window, "checkBoxSaveData")->setChecked(true);
        m_path = m_folder.filePath("run.txt");
        ModalBoxes boxes;
        boxes.chooseFile(m_path);
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        ScriptedListener listener(window, "ccw");
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), runTimeoutMs);
        QTRY_COMPARE(boxes.fileChoices().size(), 1);
        QCOMPARE(boxes.messages().size(), 0);
        m_trials = listener.trials();
        for (const ScriptedListener::Trial& trial : qAsConst(m_trials)) {
            QCOMPARE(trial.standardSound.size(), 4000);
            QCOMPARE(trial.deviantSound.size(), 3200);
        }
        QCOMPARE(differenceFromRecording(m_trials, recorder.stop()), QString());
    }

    void compareRecords(MainWindow& window, const PlayedByHand& expected)
    {
        const QVector<Record>& records = Probe::data(window).records;
        QCOMPARE(records.size(), m_trials.size());
        QCOMPARE(Probe::data(window).reversalCount, nReversals);
        QCOMPARE(Probe::data(window).threshold, expected.threshold);
        for (int i = 0; i < records.size(); ++i) {
            QCOMPARE(records[i].value, expected.values[i]);
            QCOMPARE(records[i].stimulusPosition, m_trials[i].deviantPosition);
            QCOMPARE(records[i].correctness, m_trials[i].correct);
            QCOMPARE(
                records[i].responsePosition == records[i].stimulusPosition, m_trials[i].correct);
        }
    }

    void compareFile(const QString& firstColumn, const QVector<Record>& records, double unit)
    {
        QString expected = firstColumn
            + "\tstimulus position\tresponse position\tcorrectness\treaction time (ms)\r\n";
        for (const Record& record : records) {
            expected += QString("%1\t%2\t%3\t%4\t%5\r\n")
                            .arg(QString::number(record.value * unit, 'f', 6))
                            .arg(record.stimulusPosition)
                            .arg(record.responsePosition)
                            .arg(record.correctness ? 1 : 0)
                            .arg(QString::number(record.reactionTime, 'g', 6));
        }
        QCOMPARE(contentOf(m_path), expected.toLatin1());
    }

    SoundServer m_server;
    QTemporaryDir m_folder;
    QString m_path;
    QVector<ScriptedListener::Trial> m_trials;
};

QUORIN_TEST(TestRealSound);
#include "tst_real_sound.moc"
