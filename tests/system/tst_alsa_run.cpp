// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/ScriptedListener.h"

#include <QAudioDeviceInfo>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

using Probe = MainWindowProbe;

namespace {

constexpr int runTimeoutMs = 30000; // for valgrind

// ALSA's null device takes every sample at once: a sound's end comes from inside the backend. It is
// all of ALSA's configuration, since Qt takes the first device that has a description.
constexpr auto configuration
    = "pcm.default { type null hint { show on description \"discards all sound\" } }\n";

} // namespace

// Where Qt's PulseAudio backend is installed, it is the default one even if there is no server. So
// Qt gets a folder of plugins with ALSA's backend alone.
class TestAlsaRun : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QFile settings(m_folder.filePath("alsa.conf"));
        QVERIFY(settings.open(QIODevice::WriteOnly));
        QVERIFY(settings.write(configuration) > 0);
        settings.close();
        qputenv("ALSA_CONFIG_PATH", QFile::encodeName(settings.fileName()));

        const QString backend("/audio/libqtaudio_alsa.so");
        QVERIFY(QDir(m_folder.path()).mkdir("audio"));
        QVERIFY(QFile::link(QLibraryInfo::location(QLibraryInfo::PluginsPath) + backend,
            m_folder.path() + backend));
        QCoreApplication::setLibraryPaths({m_folder.path()});
    }

    void run_ends_whenAlsaPlaysTheSounds()
    {
        MainWindow window;
        window.show();
        QCOMPARE(QAudioDeviceInfo::defaultOutputDevice().realm(), QString("alsa"));
        QCOMPARE(QAudioDeviceInfo::defaultOutputDevice().deviceName(), QString("default"));
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
    QTemporaryDir m_folder;
};

QTEST_MAIN(TestAlsaRun)
#include "tst_alsa_run.moc"
