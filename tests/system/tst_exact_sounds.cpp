// SPDX-License-Identifier: GPL-3.0-or-later
// Every sound of a run is recorded as it was computed, at several rates, in time.
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "support/TrialRecording.h"
#include "support/WindowWidgets.h"
#include "system/SoundLab.h"

#include <algorithm>
#include <cstdlib>

using namespace quorin;

namespace {

constexpr auto silentIntervalMs = "60";

// The rate of sink and session: each has a process of its own, since Qt's connection to the sound
// server lasts as long as that.
const int sinkRate = qEnvironmentVariableIntValue("QUORIN_SINK_RATE");

SoundServer::Settings sinkSettings()
{
    SoundServer::Settings settings;
    settings.rate = sinkRate;
    return settings;
}

// The sink renders in blocks, and a sound begins with one of them.
constexpr int usualBlockMs = 5;
constexpr int fineBlockMs = 1;

int samplesOf(double ms)
{
    return static_cast<int>(sinkRate * (ms / 1000));
}

// Measured on a busy machine: at a period this short, onsets come up to 10 ms early or late.
constexpr int onsetSlipMs = 11;

// A busy machine may delay single sounds by more: the median tells the period nevertheless.
int median(QVector<int> numbers)
{
    const auto middle = numbers.begin() + numbers.size() / 2;
    std::nth_element(numbers.begin(), middle, numbers.end());
    return *middle;
}

void compareWithin(int actual, int expected, int tolerance)
{
    QVERIFY2(std::abs(actual - expected) <= tolerance,
        qPrintable(QString("%1 samples instead of %2").arg(actual).arg(expected)));
}

} // namespace

class TestExactSounds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY2(sinkRate > 0, "QUORIN_SINK_RATE is to be a rate in Hz");
        QVERIFY2(m_server.start(), qPrintable(m_server.errorText()));
    }

    void everySound_isTheOneComputed_data()
    {
        addColumns<int, QString, QString, int>("parameter", "durationMs", "silentMs", "nTrials");
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
        comboBoxOf(window, "comboBoxSoundType")
            ->setCurrentIndex(
                parameter == carrierFrequencyParameter ? sinusoidCarrier : noiseCarrier);
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(parameter);
        typeDurations(window, durationMs);
        type(window, "lineEditSilentInterval", silentMs);
        play(window, nTrials, usualBlockMs);
        QCOMPARE(m_trials.size(), nTrials);
        for (const ScriptedListener::Trial& trial : qAsConst(m_trials)) {
            QCOMPARE(trial.deviantSound.size(), samplesOf(durationMs.toDouble()));
        }
        QCOMPARE(differenceFromRecording(m_trials, m_recording), QString());
    }

    // The next sound waits for the longer one's time. That nothing sounds in the rest of it, 23 ms,
    // is told by the rebuilt recording.
    void shortDeviant_isFollowedBySilence_withoutASilentInterval()
    {
        constexpr int nTrials = 10;
        MainWindow window;
        window.show();
        type(window, "lineEditStdDuration", "43");
        type(window, "lineEditDevDuration", "20");
        type(window, "lineEditSilentInterval", "0");
        play(window, nTrials, fineBlockMs);
        QCOMPARE(differenceFromRecording(m_trials, m_recording), QString());

        const QVector<int> onsets = recordedOnsets(m_trials, m_recording);
        QCOMPARE(onsets.size(), 4 * nTrials);
        QVector<int> distances;
        QVector<int> silences;
        for (int trial = 0; trial < nTrials; ++trial) {
            const int* const begin = &onsets[4 * trial];
            for (int interval = 1; interval < 4; ++interval)
                distances.append(begin[interval] - begin[interval - 1]);
            const int position = m_trials[trial].deviantPosition;
            silences.append(
                begin[position] - begin[position - 1] - m_trials[trial].deviantSound.size());
        }
        compareWithin(median(distances), samplesOf(43), samplesOf(onsetSlipMs + fineBlockMs));
        compareWithin(median(silences), samplesOf(23), samplesOf(onsetSlipMs + fineBlockMs));
    }

private:
    void play(MainWindow& window, int nTrials, int blockMs)
    {
        type(window, "lineEditSamplingRate", QString::number(sinkRate));
        type(window, "lineEditNReversals", "1000");
        SoundRecorder recorder(m_server, blockMs);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        ScriptedListener listener(window, "ccw");
        listener.stopAfter(nTrials);
        listener.startRun();
        QTRY_VERIFY_WITH_TIMEOUT(listener.hasFinished(), timeoutMs);
        QCOMPARE(Probe::audioFormat(window).sampleRate(), sinkRate);
        m_trials = listener.trials();
        m_recording = recorder.stop();
    }

    QVector<ScriptedListener::Trial> m_trials;
    QVector<float> m_recording;
    SoundServer m_server {sinkSettings()};
};

QUORIN_TEST(TestExactSounds);
#include "tst_exact_sounds.moc"
