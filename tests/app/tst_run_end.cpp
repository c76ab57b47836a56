// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a run: results, save dialog, and closing the subject window.
#include "support/DrivenRun.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <QAudioOutput>

#include <cmath>

using namespace quorin;

namespace {

// A run whose second answer, if it is wrong, will be the last.
struct ShortRun : DrivenRun {
    ShortRun()
    {
        type(window, "lineEditNReversals", "1");
        type(window, "lineEditNReversalsToCalc", "1");
        driver.playToTheAnswer();
        driver.answerRightly(true);
        driver.playTrial();
    }
};

} // namespace

class TestRunEnd : public WindowTest {
    Q_OBJECT

private slots:
    void results_areComputedBeforeTheyAreTold()
    {
        ShortRun run;
        run.data.cf[standard] = 900.0;
        QSignalSpy told(&run.window, SIGNAL(doneDataCollection(qreal, qreal, qint32, qreal)));
        run.driver.answerRightly(false);

        const Data& data = run.data;
        QCOMPARE(told.count(), 1);
        const QVariantList& results = told.constFirst();
        // The value of the wrong second answer, one step of 2 dB below the start.
        QCOMPARE(results[0].toDouble(), 0.5 * std::pow(10.0, -0.1));
        QCOMPARE(results[1].toDouble(),
            (data.records[0].reactionTime + data.records[1].reactionTime) / 2);
        QCOMPARE(results[2].toInt(), 1);
        QCOMPARE(results[3].toDouble(), 900.0);
    }

    void lastAnswer_startsNoTrial()
    {
        ShortRun run;
        run.driver.answerRightly(false);
        QCOMPARE(run.data.nTrials, 2);
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        SubjectWindow& subject = run.subject();
        QVERIFY(subject.isEnabled());
        QVERIFY(buttonOf(subject, "pushButtonDone")->isVisible());
        QVERIFY(!run.window.isEnabled());
    }

    void closing_givesTheMainWindowBack_data()
    {
        QTest::addColumn<int>("nSounds");
        QTest::newRow("before the first sound") << 0;
        QTest::newRow("during the second sound") << 2;
        QTest::newRow("during the fourth sound") << 4;
    }

    void closing_givesTheMainWindowBack()
    {
        QFETCH(int, nSounds);
        DrivenRun run;
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        run.driver.begin();
        for (int i = 0; i < nSounds; ++i) {
            run.driver.startSound();
        }
        const QAudioOutput* const output = Probe::audioOutput(run.window);
        QVERIFY(run.subject().close());

        QVERIFY(run.window.isEnabled());
        QVERIFY(buttonOf(run.window, "pushButtonView")->isEnabled());
        QVERIFY(!buttonOf(run.window, "pushButtonGo")->isEnabled());
        // The trial goes on although its window is closed.
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QCOMPARE(Probe::soundIndex(run.window), nSounds);
        QCOMPARE(Probe::audioOutput(run.window), output);
        QVERIFY(Probe::subjectWindow(run.window) != nullptr);
    }

    void destruction_asksNothing_whileARunIsOpen()
    {
        ModalBoxes boxes;
        QPointer<SubjectWindow> earlier;
        QPointer<SubjectWindow> current;
        {
            MainWindow window;
            window.show();
            RunDriver driver(window);
            earlier = &driver.open();
            emit earlier->subjectWindowClosed();
            current = &driver.begin();
            driver.startSound();
        }
        QVERIFY(earlier.isNull());
        QVERIFY(current.isNull());
        QCoreApplication::processEvents();
        QVERIFY(boxes.messages().isEmpty());
    }
};

QUORIN_TEST(TestRunEnd);
#include "tst_run_end.moc"
