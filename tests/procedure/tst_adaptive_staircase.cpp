// SPDX-License-Identifier: GPL-3.0-or-later
// What the window does with a step of the staircase, and in which order after an answer.
#include "procedure/Records.h"
#include "procedure/SilentRun.h"
#include "session/DeviantInThePanel.h"
#include "support/WindowTest.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

using Values = QVector<double>;

class TestAdaptiveStaircase : public WindowTest {
    Q_OBJECT

private slots:
    void fields_showTheDeviant_afterAStep_data()
    {
        addColumns<int, double, QString, QStringList>("mainParameter", "value", "answer", "fields");
        const auto depth
            = [](const char* name, double value, const char* answer, const char* shown) {
                  addRow(name, modulationDepthParameter, value, answer,
                      QStringList({shown, "0.0000", "1000.00"}));
              };
        depth("depth, correct: -2 dB", 0.5, "c", "39.7164");
        depth("depth, wrong: +4 dB", 0.5, "w", "79.2447");
        depth("clipped to full modulation", 0.9, "w", "100.0000");
        depth("no lower bound", 1e-9, "c", "0.0000");
        const auto difference = [](const char* name, double value, const char* answer,
                                    const char* shown, const char* carrier) {
            addRow(name, carrierFrequencyParameter, value, answer,
                QStringList({"0.0000", shown, carrier}));
        };
        difference("difference, correct: -2 dB", 0.05, "c", "39.7164", "960.28");
        difference("difference, wrong: +4 dB", 0.05, "w", "79.2447", "920.76");
        difference("held above 0 Hz", 0.9, "w", "999.9000", "0.10");
    }

    void fields_showTheDeviant_afterAStep()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, value);
        QFETCH(QString, answer);
        SilentRun run(mainParameter);
        (mainParameter == modulationDepthParameter ? run.data.md : run.data.fd)[deviant] = value;
        run.play(answer);
        QTEST(deviantFields(run.window), "fields");
        QCOMPARE(textOf(run.window, "lineEditStdCarrierFreq"), QString("1000.00"));
    }

    void step_changesNothing_forAnyOtherParameter()
    {
        SilentRun run(modulationDepthParameter);
        run.data.mainParameter = otherParameter;
        run.data.md[deviant] = 0.25;
        run.data.fd[deviant] = 0.125;
        run.data.cf[deviant] = 800.0;
        run.window.updateMD();
        QCOMPARE(deviantValues(run.window), Values({0.25, 0.125, 800.0}));
        QCOMPARE(deviantFields(run.window), QStringList({"50.0000", "0.0000", "1000.00"}));
    }

    void reset_showsTheStartingValues_data()
    {
        addColumns<int, QStringList>("mainParameter", "fields");
        const QStringList present({"25.0000", "250.0000", "1500.25"});
        addRow(
            "frequency", carrierFrequencyParameter, QStringList({"0.0000", "100.0000", "1900.00"}));
        addRow("depth", modulationDepthParameter, QStringList({"50.0000", "0.0000", "2000.00"}));
        addRow("other: the present values", otherParameter, present);
    }

    void reset_showsTheStartingValues()
    {
        QFETCH(int, mainParameter);
        SilentRun run(modulationDepthParameter);
        run.data.mainParameter = mainParameter;
        run.data.md[deviant] = 0.25;
        run.data.fd[deviant] = 0.125;
        run.data.cf = {2000.0, 1500.25};
        run.window.resetMdFdCf();
        QTEST(deviantFields(run.window), "fields");
    }

    // At each change that is noted, four digits say whether the step, the sound, the spectrum and
    // the next trial have been made by then.
    void answer_isFollowedByTrendStepSoundsSpectraAndTrial()
    {
        SilentRun run(modulationDepthParameter);
        MainWindow& window = run.window;
        run.begin();
        const Values sound = Probe::stimuli(window)[deviant].samples;
        const Values spectrum = Probe::stimuli(window)[deviant].spectrum.amplitude;
        QStringList stations;
        const auto note = [&](const char* station) {
            stations.append(QString("%1: %2%3%4%5")
                                .arg(station)
                                .arg(run.data.md[deviant] != 0.5)
                                .arg(Probe::stimuli(window)[deviant].samples != sound)
                                .arg(Probe::stimuli(window)[deviant].spectrum.amplitude != spectrum)
                                .arg(run.data.nTrials == 2));
        };
        using QtCharts::QValueAxis;
        connect(
            Probe::trendSeries(window), &QtCharts::QLineSeries::pointAdded, [&] { note("trend"); });
        connect(lineEditOf(window, "lineEditDevModDepth"), &QLineEdit::textChanged,
            [&] { note("field"); });
        connect(Probe::waveCharts(window)[deviant].line.axisY, &QValueAxis::rangeChanged,
            [&] { note("waveform"); });
        connect(Probe::spectrumCharts(window)[deviant].line.axisY, &QValueAxis::rangeChanged,
            [&] { note("spectrum"); });
        run.answer(true);
        QCOMPARE(stations,
            (QStringList {"trend: 0000", "field: 1000", "waveform: 1100", "spectrum: 1110"}));
        QCOMPARE(run.data.nTrials, 2);
        QVERIFY(Probe::timerPlay(window)->isActive());
    }

    void nothingHappens_withoutTheRecordOfTheTrial_data()
    {
        QTest::addColumn<int>("nTrials");
        addRow("negative", -1);
        addRow("before the first trial", 0);
        addRow("beyond the records", 2);
    }

    void nothingHappens_withoutTheRecordOfTheTrial()
    {
        QFETCH(int, nTrials);
        SilentRun run(modulationDepthParameter);
        run.data.records = {answered(false)};
        run.data.nTrials = nTrials;
        run.window.updateTrend();
        run.window.updateReversal();
        QVERIFY(Probe::trendX(run.window).isEmpty());
        QVERIFY(Probe::trendY(run.window).isEmpty());
        QCOMPARE(Probe::trendAxisX(run.window)->tickCount(), 2);
        QCOMPARE(run.data.stepFactor, -1);
        QCOMPARE(run.data.nTrials, nTrials);
        QCOMPARE(textOf(run.window, "lineEditDevModDepth"), QString("50.0000"));
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
    }

    void resetTrend_clearsTheRun()
    {
        SilentRun run(modulationDepthParameter);
        run.play("cwcw");
        run.data.threshold = run.data.meanReactionTime = 1.0;
        run.data.meanReactionTimeCorrect = run.data.meanReactionTimeIncorrect = 1.0;
        run.window.resetTrend();
        QVERIFY(Probe::trendX(run.window).isEmpty());
        QVERIFY(Probe::trendY(run.window).isEmpty());
        QCOMPARE(Probe::trendSeries(run.window)->count(), 0);
        QCOMPARE(Probe::trendYMin(run.window), 0.0);
        QCOMPARE(Probe::trendYMax(run.window), 100.0);
        QCOMPARE(Probe::trendAxisY(run.window)->min(), 0.0);
        QCOMPARE(Probe::trendAxisY(run.window)->max(), 100.0);
        verifyNothingOfARun(run.data, 14);
    }

    void view_startsANewRun()
    {
        SilentRun run(modulationDepthParameter);
        run.play("cwc");
        QCOMPARE(run.data.records.size(), 3);
        buttonOf(run.window, "pushButtonView")->click();
        QVERIFY(run.data.records.isEmpty());
        QCOMPARE(run.data.reversalCount, 0);
        QCOMPARE(Probe::trendSeries(run.window)->count(), 0);
        QCOMPARE(textOf(run.window, "lineEditDevModDepth"), QString("50.0000"));
    }

    void reversals_keepTheirNumber_whenThePanelAsksForFewer()
    {
        SilentRun run(modulationDepthParameter);
        type(run.window, "lineEditNReversals", "3");
        buttonOf(run.window, "pushButtonView")->click();
        QCOMPARE(run.data.nReversals, 3);
        QCOMPARE(run.data.reversals, Values(14, 0.0));
    }
};

QUORIN_TEST(TestAdaptiveStaircase);
#include "tst_adaptive_staircase.moc"
