// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window has when it opens, and what View and Go do.
#include "procedure/Records.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

namespace {

// Which of the window, View and Go can be used.
QVector<bool> usable(MainWindow& window)
{
    return {window.isEnabled(), buttonOf(window, "pushButtonView")->isEnabledTo(&window),
        buttonOf(window, "pushButtonGo")->isEnabledTo(&window)};
}

const QVector<bool> beforeView = {true, true, false};
const QVector<bool> afterView = {true, true, true};
const QVector<bool> duringARun = {false, true, false};

void leaveTracesOfARun(MainWindow& window)
{
    Data& data = Probe::data(window);
    data.nTrials = 1;
    data.records.append(Record());
    data.reversals.fill(0.25);
    data.reversalCount = 3;
    data.deviantPosition = 3;
    data.threshold = 0.1;
    data.meanReactionTime = 1.0;
    data.meanReactionTimeCorrect = 2.0;
    data.meanReactionTimeIncorrect = 3.0;
    window.updateTrend();
    Probe::trendYMax(window) = 17.0;
}

// One right and one wrong answer are the first reversal.
void answerUntilTheFirstReversal(MainWindow& window)
{
    window.updateMainwindow(0);
    window.updateMainwindow(Probe::data(window).deviantPosition);
    window.updateMainwindow(5 - Probe::data(window).deviantPosition);
}

} // namespace

class TestMainWindow : public WindowTest {
    Q_OBJECT

private slots:
    void stimuliSpectraAndCharts_areThere_whenTheWindowOpens()
    {
        MainWindow window;
        QCOMPARE(Probe::stimuli(window)[standard].samples.size(), 24000);
        QCOMPARE(Probe::stimuli(window)[deviant].samples.size(), 24000);
        QCOMPARE(Probe::stimuli(window)[standard].spectrum.amplitude.size(), 16384);
        QCOMPARE(Probe::stimuli(window)[deviant].spectrum.phase.size(), 16384);
        QCOMPARE(Probe::waveCharts(window)[standard].line.series->count(), 2000);
        QCOMPARE(Probe::spectrumCharts(window)[deviant].line.series->count(), 1638);
        QCOMPARE(Probe::trendSeries(window)->count(), 0);
        QCOMPARE(Probe::trendAxisY(window)->min(), 0.0);
        QCOMPARE(Probe::trendAxisY(window)->max(), 100.0);
    }

    void runsState_isEmpty_whenTheWindowOpens()
    {
        MainWindow window;
        QVERIFY(Probe::subjectWindow(window) == nullptr);
        QVERIFY(Probe::audioBytes(window) == nullptr);
        QVERIFY(Probe::audioBuffer(window) == nullptr);
        QVERIFY(Probe::audioOutput(window) == nullptr);
        QVERIFY(Probe::trendX(window).isEmpty());
        QVERIFY(Probe::trendY(window).isEmpty());
        QCOMPARE(Probe::trendYMin(window), 0.0);
        QCOMPARE(Probe::trendYMax(window), 100.0);
    }

    void go_isUsableOnlyAfterView_whenTheWindowOpens()
    {
        MainWindow window;
        QCOMPARE(usable(window), beforeView);
        type(window, "lineEditSubCode", "AB");
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(0);
        QCOMPARE(usable(window), beforeView);
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(usable(window), afterView);
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(usable(window), afterView);
    }

    void view_actsOnce_whenClicked()
    {
        constexpr int drawsOfANoiseView = 24000 + 24000;
        MainWindow window;
        qsrand(1);
        for (int i = 0; i < drawsOfANoiseView; ++i)
            static_cast<void>(qrand());
        const int next = qrand();
        qsrand(1);
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(qrand(), next);
    }

    void view_makesAndShowsTheStimuli_whenThePanelChanged()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "43");
        type(window, "lineEditDevDuration", "100");
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::stimuli(window)[standard].samples.size(), 1719);
        QCOMPARE(Probe::stimuli(window)[deviant].samples.size(), 4000);
        QCOMPARE(Probe::waveCharts(window)[standard].line.series->count(), 1719);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.series->count(), 2000);
        QCOMPARE(Probe::waveCharts(window)[standard].line.axisX->max(), 1719 / 40000.0 * 1000);
        QCOMPARE(Probe::waveCharts(window)[deviant].line.axisX->max(), 50.0);
    }

    void view_clearsTheRun_whenThereWasOne()
    {
        MainWindow window;
        leaveTracesOfARun(window);
        QCOMPARE(Probe::trendSeries(window)->count(), 1);
        buttonOf(window, "pushButtonView")->click();
        verifyNothingOfARun(Probe::data(window), 14);
        QVERIFY(Probe::trendX(window).isEmpty());
        QVERIFY(Probe::trendY(window).isEmpty());
        QCOMPARE(Probe::trendYMax(window), 100.0);
        QCOMPARE(Probe::trendSeries(window)->count(), 0);
    }

    void view_namesTheTrendsAxis_whenTheMainParameterChanged()
    {
        MainWindow window;
        QCOMPARE(Probe::trendAxisY(window)->titleText(), QString("Modulation Depth (%)"));
        choose(window, 0, 0);
        QCOMPARE(Probe::trendAxisY(window)->titleText(), QString("Modulation Depth (%)"));
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::trendAxisY(window)->titleText(), QString("Frequency difference (Hz)"));
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(1);
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::trendAxisY(window)->titleText(), QString("Modulation Depth (%)"));
    }

    void go_needsViewAgain_whenARunWasAbandoned()
    {
        ModalBoxes boxes;
        MainWindow window;
        for (int run = 1; run <= 2; ++run) {
            buttonOf(window, "pushButtonView")->click();
            buttonOf(window, "pushButtonGo")->click();
            QVERIFY(Probe::subjectWindow(window)->close());
            QCOMPARE(usable(window), beforeView);
            QCOMPARE(window.findChildren<SubjectWindow*>().size(), run);
        }
    }

    void go_needsViewAgain_whenARunWasFinished()
    {
        ModalBoxes boxes;
        MainWindow window;
        type(window, "lineEditNReversals", "1");
        buttonOf(window, "pushButtonView")->click();
        buttonOf(window, "pushButtonGo")->click();
        answerUntilTheFirstReversal(window);
        QCOMPARE(usable(window), duringARun);
        buttonOf(*Probe::subjectWindow(window), "pushButtonDone")->click();
        QCOMPARE(usable(window), beforeView);
    }

    void window_staysDisabled_whenTheSubjectWindowStays()
    {
        ModalBoxes boxes;
        MainWindow window;
        buttonOf(window, "pushButtonView")->click();
        buttonOf(window, "pushButtonGo")->click();
        boxes.answerNext(QMessageBox::No);
        QVERIFY(!Probe::subjectWindow(window)->close());
        QCOMPARE(usable(window), duringARun);
        QVERIFY(Probe::subjectWindow(window)->isVisible());
    }

    void refresh_enablesWindowAndView_whenCalled()
    {
        MainWindow window;
        window.setEnabled(false);
        buttonOf(window, "pushButtonView")->setEnabled(false);
        buttonOf(window, "pushButtonGo")->setEnabled(true);
        window.refreshMainWindow();
        QCOMPARE(usable(window), beforeView);
        window.refreshMainWindow();
        QCOMPARE(usable(window), beforeView);
    }

    void disableAllComponents_disablesTheWindow_whenCalled()
    {
        MainWindow window;
        buttonOf(window, "pushButtonView")->click();
        window.disableAllComponents();
        QVERIFY(!window.isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonQuit")->isEnabled());
        window.setEnabled(true);
        QCOMPARE(usable(window), afterView);
    }

    void doNothing_changesNothing_whenCalled()
    {
        MainWindow window;
        leaveTracesOfARun(window);
        buttonOf(window, "pushButtonGo")->setEnabled(true);
        qsrand(1);
        const int next = qrand();
        qsrand(1);
        QVERIFY(QMetaObject::invokeMethod(&window, "doNothing"));
        QCOMPARE(qrand(), next);
        QCOMPARE(usable(window), afterView);
        QCOMPARE(Probe::data(window).records.size(), 1);
        QCOMPARE(Probe::trendSeries(window)->count(), 1);
        QVERIFY(Probe::subjectWindow(window) == nullptr);
    }

    void stateChanged_isNeverEmitted_whenARunIsPlayed()
    {
        MainWindow window;
        const QSignalSpy states(&window, SIGNAL(stateChanged(QAudio::State)));
        const QSignalSpy sounds(&window, SIGNAL(soundPlaying(int)));
        type(window, "lineEditNReversals", "1");
        buttonOf(window, "pushButtonView")->click();
        buttonOf(window, "pushButtonGo")->click();
        QCOMPARE(sounds.count(), 0);
        window.updateMainwindow(0);
        window.playOneSound();
        answerUntilTheFirstReversal(window);
        QCOMPARE(sounds.count(), 1);
        QCOMPARE(states.count(), 0);
    }
};

QUORIN_TEST(TestMainWindow);
#include "tst_main_window.moc"
