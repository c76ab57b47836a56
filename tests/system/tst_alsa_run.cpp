// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MainWindowProbe.h"
#include "support/ScriptedListener.h"
#include "support/WindowTest.h"

#include <QAudioDeviceInfo>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

using Probe = MainWindowProbe;

namespace {

constexpr int runTimeoutMs = 30000; // for valgrind

// ALSA's null device takes every sample at once: a sound's end comes from inside the backend.
// Without a hint that describes it, Qt does not list it.
constexpr auto discardingDevice
    = "pcm.!default { type null hint { show on description \"discards all sound\" } }\n";

} // namespace

/// Runs where no PulseAudio server can be reached, so that Qt plays through ALSA.
class TestAlsaRun : public WindowTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QFile file(m_home.filePath(".asoundrc"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.write(discardingDevice) > 0);
        file.close();
        qputenv("HOME", QFile::encodeName(m_home.path()));
        qputenv("PULSE_SERVER", QFile::encodeName("unix:" + m_home.filePath("none")));
    }

    void run_ends_whenAlsaPlaysTheSounds()
    {
        MainWindow window;
        window.show();
        qDebug() << QAudioDeviceInfo::defaultOutputDevice().deviceName()
                 << QAudioDeviceInfo::defaultOutputDevice().isNull()
                 << QAudioDeviceInfo::defaultOutputDevice().supportedSampleSizes()
                 << QAudioDeviceInfo::defaultOutputDevice().supportedSampleTypes()
                 << QAudioDeviceInfo::defaultOutputDevice().supportedSampleRates();
        QCOMPARE(QAudioDeviceInfo::defaultOutputDevice().realm(), QString("default"));
        Probe::lineEditStdDuration(window)->setText("20");
        Probe::lineEditDevDuration(window)->setText("20");
        Probe::lineEditSilentInterval(window)->setText("20");
        Probe::lineEditNReversals(window)->setText("2");
        Probe::lineEditNReversalsToCalc(window)->setText("2");
        ScriptedListener listener(window, "cw");
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), runTimeoutMs);
        QCOMPARE(listener.trials().size(), 3);
        QCOMPARE(Probe::data(window).records.size(), 3);
        QVERIFY(Probe::labelThreshold(*Probe::subjectWindow(window))->isVisible());
    }

private:
    QTemporaryDir m_home;
};

QTEST_MAIN(TestAlsaRun)
#include "tst_alsa_run.moc"
