// SPDX-License-Identifier: GPL-3.0-or-later
// A device that takes no floats.

#include "support/AudioWarnings.h"
#include "support/DrivenRun.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "support/WindowWidgets.h"
#include "system/AlsaAlone.h"
#include "system/RepeatedRuns.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>

namespace {

// A device of whole numbers that converts between sizes of them, and takes no floats.
constexpr auto wholeNumbersOnly
    = "pcm.default { type linear slave { pcm { type null } format S16_LE }"
      " hint { show on description \"takes no floats\" } }\n";

} // namespace

class TestRefusedFormat : public QuietTest {
    Q_OBJECT

protected slots:
    void init() override
    {
        QuietTest::init();
        announceWarning(notSupported); // by the one window of each test
        tolerateWarning(QRegularExpression("snd_pcm_hw_params_set_format: err = "));
    }

private slots:
    void initTestCase() { QVERIFY(m_alsa.isMade()); }

    void refusal_isLogged_forEverySound()
    {
        DrivenRun run;
        const QAudioDeviceInfo device = QAudioDeviceInfo::defaultOutputDevice();
        QCOMPARE(device.realm(), QString("alsa"));
        QVERIFY(!device.isFormatSupported(Probe::audioFormat(run.window)));
        const SubjectWindow& subject = run.driver.begin();
        QSignalSpy told(&run.window, SIGNAL(soundPlaying(int)));
        for (int sound = 1; sound <= 4; ++sound) {
            announceWarning(stopped);
            run.driver.startSound();
            QCOMPARE(messages().count(stopped), sound);
        }
        QCOMPARE(Probe::audioOutput(run.window)->error(), QAudio::OpenError);
        QCOMPARE(told, (QList<QVariantList> {{1}, {2}, {3}, {4}}));
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QVERIFY(!subject.isEnabled());
    }

    void refusal_isLogged_forEveryOtherRate()
    {
        DrivenRun run;
        ModalBoxes boxes;
        QVERIFY(run.driver.open().close());
        QCOMPARE(messages().count(notSupported), 1);
        type(run.window, "lineEditSamplingRate", "22050");
        announceWarning(notSupported);
        run.driver.open();
        QCOMPARE(messages().count(notSupported), 2);
    }

    void nothingPilesUp()
    {
        constexpr int nRuns = 50;
        tolerateWarning(anyStopped);
        MainWindow window;
        ModalBoxes boxes;
        QCOMPARE(pileAfterRuns(window, boxes, nRuns), QString());
        QCOMPARE(messages().count(stopped), nRuns * ticksPerRepeatedRun);
        QVERIFY(window.isEnabled());
        buttonOf(window, "pushButtonView")->click();
        QVERIFY(buttonOf(window, "pushButtonGo")->isEnabled());
    }

private:
    AlsaAlone m_alsa {wholeNumbersOnly};
};

QUORIN_TEST(TestRefusedFormat);
#include "tst_refused_format.moc"
