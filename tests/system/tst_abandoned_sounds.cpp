// SPDX-License-Identifier: GPL-3.0-or-later
// Runs that are left while sounds really play: the next ones are as those of a new window.
#include "support/AudioWarnings.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"
#include "system/PhasedRun.h"
#include "system/RepeatedRuns.h"
#include "system/SoundLab.h"

#include <QAudioOutput>

#include <memory>

namespace {

enum class Way { destruction, quit, goAtOnce, goAfterTheSound };

struct NamedWay {
    const char* name;
    Way way;
};

constexpr NamedWay ways[] = {
    {"destroyed", Way::destruction},
    {"quit", Way::quit},
    {"Go at once", Way::goAtOnce},
    {"Go, and the old sound ends before the new one", Way::goAfterTheSound},
};

} // namespace

Q_DECLARE_METATYPE(Way)

// The sounds that are left here really sound.
class TestAbandonedSounds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_lab.start());
        ModalBoxes boxes;
        m_window = std::make_unique<MainWindow>();
        PhasedRun run(*m_window, boxes, PhasedRun::sinusoidAndDifference);
        run.open();
        run.playOn();
        m_expected = run.outcome();
    }

    void nextRun_isUntouched_data()
    {
        addColumns<int, Way>("phase", "way");
        for (int phase = 0; phase < phasesOfARun().size(); ++phase) {
            for (const NamedWay& way : ways) {
                if (phasesOfARun()[phase].isSounding) {
                    QTest::addRow("%s: %s", phasesOfARun()[phase].name, way.name)
                        << phase << way.way;
                }
            }
        }
    }

    void nextRun_isUntouched()
    {
        QFETCH(int, phase);
        QFETCH(Way, way);
        ModalBoxes boxes;
        m_window = std::make_unique<MainWindow>();
        PhasedRun run(*m_window, boxes, PhasedRun::noiseAndDepth);
        typeDurations(*m_window, "1000");
        run.playTo(phasesOfARun()[phase]);
        const QPointer<QAudioOutput> sound(Probe::audioOutput(*m_window));
        QCOMPARE(sound->state(), QAudio::ActiveState);

        leave(way, boxes);
        QCOMPARE(sound.isNull(), way == Way::destruction || way == Way::quit);
        PhasedRun next(*m_window, boxes, PhasedRun::sinusoidAndDifference);
        next.open();
        if (way == Way::goAfterTheSound) {
            QTRY_VERIFY_WITH_TIMEOUT(sound.isNull(), timeoutMs);
        }
        next.playOn();
        QCOMPARE(next.outcome(), m_expected);
        QTRY_VERIFY_WITH_TIMEOUT(m_window->findChildren<QAudioOutput*>().isEmpty(), timeoutMs);
        QVERIFY(Probe::soundsAside(*m_window).isEmpty());
        QCOMPARE(next.outcome(), m_expected);
    }

    // The server takes rates up to 768 kHz.
    void refusedRate_isLogged_andNothingPilesUp()
    {
        constexpr int nRuns = 10;
        announceWarning(notSupported);
        tolerateWarning(anyStopped);
        ModalBoxes boxes;
        MainWindow window;
        typeDurations(window, "10");
        type(window, "lineEditSamplingRate", "1000000");
        QCOMPARE(pileAfterRuns(window, boxes, nRuns), QString());
        QCOMPARE(messages().count(notSupported), 1); // for this rate, not for the next one
        QCOMPARE(messages().count(stopped), nRuns * ticksPerRepeatedRun);

        PhasedRun next(window, boxes, PhasedRun::sinusoidAndDifference);
        next.open();
        next.playOn();
        QCOMPARE(next.outcome(), m_expected);
        QCOMPARE(messages().count(stopped), nRuns * ticksPerRepeatedRun);
    }

private:
    void leave(Way way, ModalBoxes& boxes)
    {
        boxes.answerNext(QMessageBox::Yes);
        if (way == Way::goAtOnce || way == Way::goAfterTheSound) {
            QVERIFY(Probe::subjectWindow(*m_window)->close());
            return;
        }
        if (way == Way::quit) {
            runToTheQuit(*m_window);
        }
        m_window.reset();
        m_window = std::make_unique<MainWindow>();
    }

    SoundLab m_lab;
    std::unique_ptr<MainWindow> m_window;
    QStringList m_expected;
};

QUORIN_TEST(TestAbandonedSounds);
#include "tst_abandoned_sounds.moc"
