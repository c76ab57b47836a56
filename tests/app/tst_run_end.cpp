// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a run: results, save dialog, and closing the subject window.
#include "drivers/RunDriver.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <QAudioOutput>

#include <cmath>

using namespace quorin;

namespace {

// A run that ends with its second answer: the first right, the second wrong.
void openShortRun(MainWindow& window, RunDriver& driver)
{
    type(window, "lineEditNReversals", "1");
    type(window, "lineEditNReversalsToCalc", "1");
    driver.open();
    driver.beReady();
    driver.playTrial();
    driver.answerRightly(true);
    driver.playTrial();
}

} // namespace

class TestRunEnd : public WindowTest {
    Q_OBJECT

private slots:
    void results_areComputedBeforeTheyAreTold()
    {
        MainWindow window;
        RunDriver driver(window);
        openShortRun(window, driver);
        Probe::data(window).cf[standard] = 900.0;
        QSignalSpy told(&window, SIGNAL(doneDataCollection(qreal, qreal, qint32, qreal)));
        driver.answerRightly(false);

        const Data& data = Probe::data(window);
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
        MainWindow window;
        RunDriver driver(window);
        openShortRun(window, driver);
        driver.answerRightly(false);
        QCOMPARE(Probe::data(window).nTrials, 2);
        QVERIFY(!Probe::timerPlay(window)->isActive());
        SubjectWindow& subject = *Probe::subjectWindow(window);
        QVERIFY(subject.isEnabled());
        QVERIFY(buttonOf(subject, "pushButtonDone")->isVisible());
        QVERIFY(!window.isEnabled());
    }

    void nothingIsSaved_whenTheBoxIsNotChecked()
    {
        MainWindow window;
        ModalBoxes boxes;
        RunDriver driver(window);
        openShortRun(window, driver);
        driver.answerRightly(false);
        QVERIFY(boxes.fileChoices().isEmpty());
        QVERIFY(boxes.messages().isEmpty());
    }

    void listenerSeesTheResult_beforeTheSaveDialogOpens()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("results.txt");
        MainWindow window;
        ModalBoxes boxes;
        boxes.chooseFile(path);
        checkBoxOf(window, "checkBoxSaveData")->setChecked(true);
        RunDriver driver(window);
        openShortRun(window, driver);
        SubjectWindow& subject = *Probe::subjectWindow(window);
        QString shown;
        boxes.onOpen([&](QWidget*) {
            QVERIFY(labelOf(subject, "labelThreshold")->isVisible());
            QVERIFY(buttonOf(subject, "pushButtonDone")->isVisible());
            shown = labelOf(subject, "labelThreshold")->text();
        });
        driver.answerRightly(false);
        QCOMPARE(boxes.fileChoices().size(), 1);
        QVERIFY(shown.startsWith("Modulation Threshold = 39.7164 %,   Reaction Time = "));
        QVERIFY(QFile::exists(path));
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
        MainWindow window;
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Yes);
        RunDriver driver(window);
        driver.open();
        driver.beReady();
        for (int i = 0; i < nSounds; ++i) {
            driver.startSound();
        }
        const QAudioOutput* const output = Probe::audioOutput(window);
        QVERIFY(Probe::subjectWindow(window)->close());

        QVERIFY(window.isEnabled());
        QVERIFY(buttonOf(window, "pushButtonView")->isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonGo")->isEnabled());
        // The trial goes on although its window is closed.
        QVERIFY(Probe::timerPlay(window)->isActive());
        QCOMPARE(Probe::soundIndex(window), nSounds);
        QCOMPARE(Probe::audioOutput(window), output);
        QVERIFY(Probe::subjectWindow(window) != nullptr);
    }

    void mainWindow_staysDisabled_whenClosingIsRefused()
    {
        MainWindow window;
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::No);
        RunDriver driver(window);
        driver.open();
        QVERIFY(!Probe::subjectWindow(window)->close());
        QVERIFY(!window.isEnabled());
        QVERIFY(Probe::subjectWindow(window)->isVisible());
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
            current = &driver.open();
            driver.beReady();
            driver.startSound();
        }
        QVERIFY(earlier.isNull());
        QVERIFY(current.isNull());
        QVERIFY(boxes.messages().isEmpty());
    }
};

QUORIN_TEST(TestRunEnd);
#include "tst_run_end.moc"
