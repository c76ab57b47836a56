// SPDX-License-Identifier: GPL-3.0-or-later
// Runs that are left in any phase and in any way: the next runs are as those of a new window.
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"
#include "system/PhasedRun.h"

#include <QAudioOutput>
#include <QCloseEvent>
#include <QWindow>

#include <memory>

namespace {

// The main window, on the screen only where that matters, and whoever answers its boxes.
struct Scene {
    std::unique_ptr<MainWindow> window = std::make_unique<MainWindow>();
    ModalBoxes boxes;
};

SubjectWindow& subjectOf(const Scene& scene)
{
    return *Probe::subjectWindow(*scene.window);
}

// The pacing timer goes on after the window was closed.
void letTheTrialEnd(MainWindow& window)
{
    while (Probe::timerPlay(window)->isActive()) {
        if (Probe::audioOutput(window) == nullptr) {
            window.playOneSound();
        }
        window.handleStateChanged(QAudio::IdleState);
    }
}

// When the main window closes, Qt closes the listener's, which asks.
void quit(Scene& scene)
{
    scene.boxes.answerNext(QMessageBox::Yes);
    runToTheQuit(*scene.window);
    scene.window.reset();
}

enum Effect { goesOn, abandoned };

struct Action {
    const char* name;
    int nBoxes;
    Effect effect;
    void (*carryOut)(Scene&);
};

const Action actions[] = {
    {"closed, Yes", 1, abandoned,
        [](Scene& scene) {
            scene.boxes.answerNext(QMessageBox::Yes);
            QVERIFY(subjectOf(scene).close());
        }},
    {"closed, Yes, the trial plays on", 1, abandoned,
        [](Scene& scene) {
            scene.boxes.answerNext(QMessageBox::Yes);
            QVERIFY(subjectOf(scene).close());
            letTheTrialEnd(*scene.window);
        }},
    {"closed by the title bar, Yes", 1, abandoned,
        [](Scene& scene) {
            scene.boxes.answerNext(QMessageBox::Yes);
            closeByTitleBar(subjectOf(scene));
            QVERIFY(!subjectOf(scene).isVisible());
        }},
    {"closed, No", 1, goesOn,
        [](Scene& scene) {
            scene.boxes.answerNext(QMessageBox::No);
            QVERIFY(!subjectOf(scene).close());
        }},
    {"closed, Cancel", 1, goesOn,
        [](Scene& scene) {
            scene.boxes.answerNext(QMessageBox::Cancel);
            QVERIFY(!subjectOf(scene).close());
        }},
    {"closed, Escape", 1, goesOn,
        [](Scene& scene) {
            scene.boxes.escapeNext();
            QVERIFY(!subjectOf(scene).close());
        }},
    {"main window closed by the title bar", 0, goesOn,
        [](Scene& scene) {
            scene.window->show();
            closeByTitleBar(*scene.window);
            QVERIFY(scene.window->isVisible());
        }},
    {"View, Go and Quit pressed", 0, goesOn,
        [](Scene& scene) {
            buttonOf(*scene.window, "pushButtonView")->click();
            buttonOf(*scene.window, "pushButtonGo")->click();
            buttonOf(*scene.window, "pushButtonQuit")->click();
        }},
    {"quit", 1, abandoned, quit},
    {"destroyed", 0, abandoned, [](Scene& scene) { scene.window.reset(); }},
};

} // namespace

class TestAbandonedRuns : public WindowTest {
    Q_OBJECT

private slots:
    // The first windows of the process: what they leave is what a new program would leave.
    void initTestCase()
    {
        const int nPhases = phasesOfARun().size();
        const int nActions = static_cast<int>(std::size(actions));
        qInfo("%d phases x %d actions = %d cases", nPhases, nActions, nPhases * nActions);
        for (const PhasedRun::Kind kind :
            {PhasedRun::noiseAndDepth, PhasedRun::sinusoidAndDifference}) {
            Scene scene;
            PhasedRun run(*scene.window, scene.boxes, kind);
            run.open();
            run.playOn();
            m_expected[kind] = run.outcome();
        }
        QVERIFY(
            m_expected[PhasedRun::noiseAndDepth] != m_expected[PhasedRun::sinusoidAndDifference]);
    }

    void nextRuns_areUntouched_data()
    {
        addColumns<int, int>("phase", "action");
        for (int phase = 0; phase < phasesOfARun().size(); ++phase) {
            for (int action = 0; action < static_cast<int>(std::size(actions)); ++action) {
                QTest::addRow("%s: %s", phasesOfARun()[phase].name, actions[action].name)
                    << phase << action;
            }
        }
    }

    void nextRuns_areUntouched()
    {
        QFETCH(int, phase);
        QFETCH(int, action);
        const bool isEven = (phase + action) % 2 == 0;
        const auto kind = isEven ? PhasedRun::noiseAndDepth : PhasedRun::sinusoidAndDifference;
        const auto other = isEven ? PhasedRun::sinusoidAndDifference : PhasedRun::noiseAndDepth;
        Scene scene;
        PhasedRun run(*scene.window, scene.boxes, kind);
        run.playTo(phasesOfARun()[phase]);
        const QPointer<QAudioOutput> oldOutput(Probe::audioOutput(*scene.window));

        actions[action].carryOut(scene);
        QCOMPARE(scene.boxes.messages().size(), actions[action].nBoxes);
        if (actions[action].effect == goesOn) {
            QVERIFY(subjectOf(scene).isVisible());
            run.playOn();
            QCOMPARE(run.outcome(), m_expected[kind]);
            leaveTheResult(scene);
            playNext(scene, other, nullptr);
            return;
        }
        if (scene.window == nullptr) {
            scene.window = std::make_unique<MainWindow>();
        }
        playNext(scene, other, isEven ? oldOutput.data() : nullptr);
        playNext(scene, kind, oldOutput.data());
    }

    // Only the listener's window is left then; the program ends with it.
    void program_endsWithTheListener_whenQuitIsRefused()
    {
        Scene scene;
        PhasedRun run(*scene.window, scene.boxes, PhasedRun::noiseAndDepth);
        run.playTo(phasesOfARun().last());
        scene.boxes.answerNext(QMessageBox::No);
        scene.boxes.answerNext(QMessageBox::Yes);
        bool wasLeftOpen = false;
        QTimer endedByTheListener;
        connect(&endedByTheListener, &QTimer::timeout, this, [&] {
            if (scene.boxes.messages().size() == 1
                && QApplication::activeModalWidget() == nullptr) {
                wasLeftOpen = subjectOf(scene).isVisible() && !scene.window->isVisible();
                buttonOf(subjectOf(scene), "pushButtonDone")->click();
            }
        });
        endedByTheListener.start(1);
        runToTheQuit(*scene.window);
        QVERIFY(wasLeftOpen);
        QCOMPARE(run.outcome(), m_expected[PhasedRun::noiseAndDepth]);
        QVERIFY(!subjectOf(scene).isVisible());
    }

    void nextRun_isUntouched_byASaveThatFailed_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("full disk") << QString("/dev/full");
        QTest::newRow("missing folder") << m_folder.filePath("missing/run.txt");
    }

    void nextRun_isUntouched_byASaveThatFailed()
    {
        QFETCH(QString, path);
        tolerateWarning(QRegularExpression("^QFSFileEngine::open: No file name specified$"));
        Scene scene;
        PhasedRun run(*scene.window, scene.boxes, PhasedRun::noiseAndDepth);
        run.saveTo(path);
        run.open();
        run.playOn();
        QCOMPARE(scene.boxes.messages().size(), 1);
        QVERIFY(scene.boxes.messages().constFirst().text.startsWith("could not open file"));
        leaveTheResult(scene);
        playNext(scene, PhasedRun::noiseAndDepth, nullptr);
        QCOMPARE(scene.boxes.fileChoices().at(1).fileName,
            QString("SUB001_test001_noise_modulation depth.txt"));
    }

private:
    static void leaveTheResult(Scene& scene)
    {
        scene.boxes.answerNext(QMessageBox::Yes);
        buttonOf(subjectOf(scene), "pushButtonDone")->click();
        QVERIFY(!subjectOf(scene).isVisible());
    }

    // The end of a sound of an earlier run may be reported when the next run is open, or never.
    void playNext(Scene& scene, PhasedRun::Kind kind, QAudioOutput* oldOutput)
    {
        PhasedRun next(*scene.window, scene.boxes, kind);
        next.open();
        QVERIFY(!Probe::timerPlay(*scene.window)->isActive());
        if (oldOutput != nullptr) {
            emit oldOutput->stateChanged(QAudio::IdleState);
        }
        next.playOn();
        QCOMPARE(next.outcome(), m_expected[kind]);
        QCOMPARE(scene.boxes.unusedAnswers(), 0);
        QVERIFY(scene.window->findChildren<QAudioOutput*>().isEmpty());
        leaveTheResult(scene);
        for (const SubjectWindow* earlier : scene.window->findChildren<SubjectWindow*>()) {
            QVERIFY(!earlier->isVisible());
        }
    }

    const QTemporaryDir m_folder;
    QMap<PhasedRun::Kind, QStringList> m_expected;
};

QUORIN_TEST(TestAbandonedRuns);
#include "tst_abandoned_runs.moc"
