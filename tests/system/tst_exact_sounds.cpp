// SPDX-License-Identifier: GPL-3.0-or-later
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/ScriptedListener.h"
#include "support/TrialRecording.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTimer>
#include <QtTest>

using Probe = MainWindowProbe;

namespace {

constexpr int timeoutMs = 60000;
constexpr auto silentIntervalMs = "60";

// The rate of sink and session: each has a program of its own, since Qt's connection to the sound
// server lasts as long as the process.
constexpr int sinkRate = SINK_RATE;

SoundServer::Settings sinkSettings()
{
    SoundServer::Settings settings;
    settings.rate = sinkRate;
    return settings;
}

} // namespace

class TestExactSounds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    void everySound_isTheOneComputed_data()
    {
        QTest::addColumn<int>("parameter");
        QTest::addColumn<QString>("durationMs");
        QTest::addColumn<QString>("silentMs");
        QTest::addColumn<int>("nTrials");
        for (const int parameter : {carrierFrequencyParameter, modulationDepthParameter}) {
            const char* const name = parameter == carrierFrequencyParameter ? "frequency" : "depth";
            const auto add = [&](const char* duration, const char* silence, int nTrials) {
                QTest::addRow("%s, %s ms, silence %s ms", name, duration, silence)
                    << parameter << duration << silence << nTrials;
            };
            add("5", silentIntervalMs, 12);
            add("20", silentIntervalMs, 12);
            add("43", silentIntervalMs, 10);
            add("200", silentIntervalMs, 6);
            add("600", silentIntervalMs, 4);
            add("43", "0", 10);
        }
    }

    void everySound_isTheOneComputed()
    {
        QFETCH(int, parameter);
        QFETCH(QString, durationMs);
        QFETCH(QString, silentMs);
        QFETCH(int, nTrials);
        MainWindow window;
        window.show();
        Probe::comboBoxSoundType(window)->setCurrentIndex(
            parameter == carrierFrequencyParameter ? sinusoidCarrier : noiseCarrier);
        Probe::comboBoxMainParameter(window)->setCurrentIndex(parameter);
        Probe::lineEditStdDuration(window)->setText(durationMs);
        Probe::lineEditDevDuration(window)->setText(durationMs);
        Probe::lineEditSilentInterval(window)->setText(silentMs);
        Probe::lineEditSamplingRate(window)->setText(QString::number(sinkRate));
        Probe::lineEditNReversals(window)->setText("1000");

        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        ScriptedListener listener(window, "ccw");
        listener.stopAfter(nTrials);
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), timeoutMs);
        QCOMPARE(listener.trials().size(), nTrials);
        QCOMPARE(Probe::audioFormat(window).sampleRate(), sinkRate);
        const int expectedSamples = static_cast<int>(sinkRate * (durationMs.toDouble() / 1000));
        for (const ScriptedListener::Trial& trial : listener.trials()) {
            QCOMPARE(trial.deviantSound.size(), expectedSamples);
        }
        QCOMPARE(differenceFromRecording(listener.trials(), recorder.stop()), QString());
    }

private:
    SoundServer m_server {sinkSettings()};
};

QTEST_MAIN(TestExactSounds)
#include "tst_exact_sounds.moc"
