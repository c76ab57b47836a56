// SPDX-License-Identifier: GPL-3.0-or-later
// A run through Qt's ALSA backend.
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/ScriptedListener.h"
#include "support/WindowWidgets.h"
#include "system/AlsaAlone.h"

#include <QAudioDeviceInfo>

namespace {

// ALSA's null device takes every sample at once: a sound's end comes from inside the backend.
constexpr auto discardedSound
    = "pcm.default { type null hint { show on description \"discards all sound\" } }\n";

} // namespace

class TestAlsaRun : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_alsa.isMade()); }

    void run_ends_whenAlsaPlaysTheSounds()
    {
        constexpr int runTimeoutMs = 30000; // for valgrind
        MainWindow window;
        window.show();
        QCOMPARE(QAudioDeviceInfo::defaultOutputDevice().realm(), QString("alsa"));
        QCOMPARE(QAudioDeviceInfo::defaultOutputDevice().deviceName(), QString("default"));
        typeDurations(window, "20");
        type(window, "lineEditSilentInterval", "20");
        type(window, "lineEditNReversals", "2");
        type(window, "lineEditNReversalsToCalc", "2");
        ScriptedListener listener(window, "cw");
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), runTimeoutMs);
        QCOMPARE(listener.trials().size(), 3);
        QCOMPARE(Probe::data(window).records.size(), 3);
        QVERIFY(labelOf(*Probe::subjectWindow(window), "labelThreshold")->isVisible());
    }

private:
    AlsaAlone m_alsa {discardedSound};
};

QUORIN_TEST(TestAlsaRun);
#include "tst_alsa_run.moc"
