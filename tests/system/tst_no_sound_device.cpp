// SPDX-License-Identifier: GPL-3.0-or-later
// Runs without a sound device.
#include "support/AudioWarnings.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "support/ScriptedListener.h"
#include "support/WindowWidgets.h"
#include "system/RepeatedRuns.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>

namespace {

const QString nullDevice("using null output device, none available");

} // namespace

// There is no sound server: Qt has no default device.
class TestNoSoundDevice : public QuietTest {
    Q_OBJECT

protected slots:
    void init() override
    {
        QuietTest::init();
        tolerateWarning(QRegularExpression("^PulseAudioService: pa_context_connect\\(\\) failed$"));
        if (!QAudioDeviceInfo::defaultOutputDevice().isNull()) {
            QSKIP("this machine has a sound device without a sound server");
        }
        announceWarning(notSupported); // by the one window of each test
    }

private slots:
    // With nothing between the sounds the fourth comes soon; then the timer waits longer.
    void trial_isSilentAndDoesNotEnd()
    {
        MainWindow window;
        ModalBoxes boxes;
        typeDurations(window, "10");
        type(window, "lineEditSilentInterval", "0");
        for (int sound = 1; sound <= 4; ++sound) {
            announceWarning(nullDevice);
        }
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        ScriptedListener listener(window, "c");
        listener.startRun();
        SubjectWindow& subject = *Probe::subjectWindow(window);
        QTRY_COMPARE(told, (QList<QVariantList> {{1}, {2}, {3}, {4}}));
        QCOMPARE(Probe::timerPlay(window)->interval(), 5010);
        QVERIFY(Probe::timerPlay(window)->isActive());
        QVERIFY(!Probe::timerReaction(window)->isValid());
        QVERIFY(!subject.isEnabled());
        QCOMPARE(Probe::audioOutput(window)->error(), QAudio::OpenError);

        QVERIFY(subject.close());
        QVERIFY(window.isEnabled());
        buttonOf(window, "pushButtonView")->click();
        QVERIFY(buttonOf(window, "pushButtonGo")->isEnabled());
        QVERIFY(!messages().contains(stopped));
    }

    void nothingPilesUp()
    {
        constexpr int nRuns = 50;
        tolerateWarning(QRegularExpression("^using null output device, none available$"));
        MainWindow window;
        ModalBoxes boxes;
        QCOMPARE(pileAfterRuns(window, boxes, nRuns), QString());
        QCOMPARE(messages().count(nullDevice), nRuns * ticksPerRepeatedRun);
        QVERIFY(!messages().contains(stopped));
    }

    void program_endsCleanly()
    {
        tolerateWarning(QRegularExpression("^using null output device, none available$"));
        MainWindow window;
        window.show();
        ModalBoxes boxes;
        QCOMPARE(pileAfterRuns(window, boxes, 1), QString());
        QTimer::singleShot(0, buttonOf(window, "pushButtonQuit"), SLOT(click()));
        QCOMPARE(QApplication::exec(), 0);
        QVERIFY(!window.isVisible());
    }
};

QUORIN_TEST(TestNoSoundDevice);
#include "tst_no_sound_device.moc"
