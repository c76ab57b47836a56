// SPDX-License-Identifier: GPL-3.0-or-later
// What Go does, in its order, and how subject windows are connected.
#include "support/AudioWarnings.h"
#include "support/DrivenRun.h"
#include "support/WindowTest.h"

#include <QAudioFormat>

namespace {

// Writes down what happens to the window and its subject windows, in order.
class StepRecorder : public QObject {
public:
    explicit StepRecorder(MainWindow& window)
        : m_window(window)
    {
        QCoreApplication::instance()->installEventFilter(this);
        connect(
            lineEditOf(window, "lineEditNReversalsToCalc"), &QLineEdit::textChanged, this, [this] {
                const bool isPlaying = Probe::timerPlay(m_window)->isActive();
                steps.append(isPlaying ? "panel read during the old trial" : "panel read");
            });
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange) {
            noteEnabledChange(object);
        } else if (event->type() == QEvent::ChildAdded && object == &m_window) {
            if (static_cast<QChildEvent*>(event)->child()->isWidgetType()) {
                steps.append("subject window made");
            }
        } else if (event->type() == QEvent::Show && qobject_cast<SubjectWindow*>(object)) {
            steps.append("subject window shown");
        }
        return false;
    }

    QStringList steps;

private:
    void noteEnabledChange(QObject* object)
    {
        if (object == buttonOf(m_window, "pushButtonGo")) {
            steps.append("Go changed");
        } else if (object == buttonOf(m_window, "pushButtonView")
            && buttonOf(m_window, "pushButtonView")->isEnabled()) {
            steps.append("View enabled");
        } else if (object == &m_window) {
            steps.append("window changed");
        }
    }

    MainWindow& m_window;
};

} // namespace

class TestRunStart : public WindowTest {
    Q_OBJECT

private slots:
    void steps_haveTheirOrder()
    {
        MainWindow window;
        buttonOf(window, "pushButtonView")->click();
        buttonOf(window, "pushButtonView")->setEnabled(false);
        Probe::timerPlay(window)->start(3600000);
        type(window, "lineEditNReversalsToCalc", "20");
        StepRecorder recorder(window);
        buttonOf(window, "pushButtonGo")->click();
        QCOMPARE(recorder.steps,
            QStringList({"Go changed", "View enabled", "window changed",
                "panel read during the old trial", "subject window made", "subject window shown"}));
        QCOMPARE(textOf(window, "lineEditNReversalsToCalc"), QString("14"));
        QCOMPARE(Probe::data(window).nReversalsToCalculate, 14);
    }

    void mainWindow_isDisabled_andTheSubjectWindowIsNot()
    {
        MainWindow window;
        window.show();
        SubjectWindow& subject = RunDriver(window).open();
        QVERIFY(!window.isEnabled());
        QVERIFY(buttonOf(window, "pushButtonGo")->testAttribute(Qt::WA_ForceDisabled));
        QVERIFY(!buttonOf(window, "pushButtonView")->testAttribute(Qt::WA_ForceDisabled));
        QCOMPARE(subject.parent(), &window);
        QVERIFY(subject.isWindow());
        QVERIFY(subject.isVisible());
        QVERIFY(subject.isEnabled());
        QVERIFY(buttonOf(subject, "pushButtonIAmReady")->isEnabled());
    }

    void nothingPlays_untilTheListenerIsReady()
    {
        DrivenRun run;
        run.driver.open();
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        QCOMPARE(run.data.nTrials, 0);
        QVERIFY(Probe::audioOutput(run.window) == nullptr);
        run.driver.beReady();
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QCOMPARE(run.data.nTrials, 1);
    }

    void subjectWindow_isConnectedOnce()
    {
        MainWindow window;
        SubjectWindow& subject = RunDriver(window).open();
        emit subject.subjectResponded(0);
        QCOMPARE(Probe::data(window).nTrials, 1);
        emit window.soundPlaying(1);
        QVERIFY(buttonOf(subject, "pushButtonChoice1")->styleSheet().contains("rgb(0, 255, 0)"));
        emit window.doneDataCollection(0.5, 2.0, 1, 1000.0);
        QCOMPARE(labelOf(subject, "labelThreshold")->text(),
            QString("Modulation Threshold = 50 %,   Reaction Time = 2 ms"));
        emit subject.subjectWindowClosed();
        QVERIFY(window.isEnabled());
        QVERIFY(buttonOf(window, "pushButtonView")->isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonGo")->isEnabled());
    }

    void earlierSubjectWindow_staysAndListens_butIsNeverShown()
    {
        DrivenRun run;
        const QPointer<SubjectWindow> earlier(&run.driver.open());
        earlier->hide();
        emit earlier->subjectWindowClosed();
        SubjectWindow& current = run.driver.open();
        QVERIFY(!earlier.isNull());
        QVERIFY(earlier != &current);

        run.driver.beReady();
        run.driver.startSound();
        const QString lit = buttonOf(current, "pushButtonChoice1")->styleSheet();
        QVERIFY(lit.contains("rgb(0, 255, 0)"));
        QCOMPARE(buttonOf(*earlier, "pushButtonChoice1")->styleSheet(), lit);
        QVERIFY(!earlier->isEnabled());
        emit run.window.doneDataCollection(0.5, 2.0, 1, 1000.0);
        QCOMPARE(labelOf(*earlier, "labelThreshold")->text(),
            labelOf(current, "labelThreshold")->text());
        QVERIFY(!earlier->isVisible());
        QVERIFY(current.isVisible());
        QCOMPARE(run.window.findChildren<SubjectWindow*>().size(), 2);
    }

    // A listener whose lights and buttons came after those of all earlier windows would be slower
    // in every run.
    void currentListener_isToldFirst()
    {
        DrivenRun run;
        QVector<SubjectWindow*> listeners;
        for (int i = 0; i < 4; ++i) {
            listeners.append(&run.driver.open());
            emit listeners.last()->subjectWindowClosed();
        }
        emit run.window.soundPlaying(-1);
        QVector<QObject*> told;
        for (SubjectWindow* listener : listeners) {
            listener->installEventFilter(this);
        }
        m_told = &told;
        emit run.window.soundPlaying(1);
        m_told = nullptr;
        QCOMPARE(told.size(), 4);
        QCOMPARE(told.value(0), listeners.last());
    }

    void abandonedTrial_doesNotRunIntoTheNewRun()
    {
        DrivenRun run;
        SubjectWindow& abandoned = run.driver.begin();
        run.driver.startSound();
        run.driver.endSound();
        run.driver.startSound();
        emit abandoned.subjectWindowClosed();
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QCOMPARE(Probe::soundIndex(run.window), 2);

        run.driver.open();
        QVERIFY(!Probe::timerPlay(run.window)->isActive());
        QCOMPARE(Probe::soundIndex(run.window), 0);
        QSignalSpy states(&run.window, SIGNAL(soundPlaying(int)));
        run.driver.endSound();
        QCOMPARE(states.count(), 0);
        run.driver.beReady();
        run.driver.playTrial();
        QCOMPARE(states.count(), 5);
    }

    void playbackRate_followsThePanel_data()
    {
        addColumns<QString, int>("text", "rate");
        QTest::newRow("default") << "40000" << 40000;
        QTest::newRow("lower") << "22050" << 22050;
        QTest::newRow("higher") << "48000" << 48000;
        QTest::newRow("truncated") << "44100.9" << 44100;
        QTest::newRow("same when truncated") << "40000.9" << 40000;
        QTest::newRow("lowest") << "1" << 1;
        QTest::newRow("too low") << "0.99" << 40000;
        QTest::newRow("zero") << "0" << 40000;
        QTest::newRow("negative") << "-48000" << 40000;
        QTest::newRow("not a number") << "nan" << 40000;
        QTest::newRow("no number") << "fast" << 40000;
    }

    void playbackRate_followsThePanel()
    {
        QFETCH(QString, text);
        MainWindow window;
        buttonOf(window, "pushButtonView")->click();
        QAudioFormat expected = Probe::audioFormat(window);
        QCOMPARE(expected.sampleRate(), 40000);
        type(window, "lineEditSamplingRate", text);
        const int complaintsBefore = messages().count(notSupported);
        buttonOf(window, "pushButtonGo")->click();
        QTEST(Probe::audioFormat(window).sampleRate(), "rate");
        const bool isChanged = Probe::audioFormat(window).sampleRate() != 40000;
        // One complaint came from the construction if this machine has no sound device.
        QCOMPARE(messages().count(notSupported), complaintsBefore * (isChanged ? 2 : 1));
        expected.setSampleRate(Probe::audioFormat(window).sampleRate());
        QCOMPARE(Probe::audioFormat(window), expected);
    }

    void playbackRate_isThatOfTheRun_notOfTheView()
    {
        MainWindow window;
        type(window, "lineEditSamplingRate", "22050");
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::audioFormat(window).sampleRate(), 40000);
        buttonOf(window, "pushButtonGo")->click();
        QCOMPARE(Probe::audioFormat(window).sampleRate(), 22050);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (m_told != nullptr && event->type() == QEvent::EnabledChange) {
            m_told->append(watched);
        }
        return WindowTest::eventFilter(watched, event);
    }

private:
    QVector<QObject*>* m_told = nullptr;
};

QUORIN_TEST(TestRunStart);
#include "tst_run_start.moc"
