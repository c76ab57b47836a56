// SPDX-License-Identifier: GPL-3.0-or-later
// A sink at another rate than the sounds': the server resamples.
#include "soundlab/RecordedSounds.h"
#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"
#include "support/MainWindowProbe.h"
#include "support/QuietTest.h"
#include "system/DisturbedTrial.h"

#include <QLineEdit>

#include <cmath>

namespace {

constexpr int outputRate = 48000;
constexpr int outputPerMs = outputRate / 1000;

double rms(const QVector<float>& samples, int from, int n)
{
    double sum = 0.0;
    for (int i = from; i < from + n; ++i) {
        sum += double(samples[i]) * double(samples[i]);
    }
    return std::sqrt(sum / n);
}

SoundServer::Settings settings()
{
    SoundServer::Settings settings;
    settings.rate = outputRate;
    return settings;
}

} // namespace

class TestResampledSounds : public QuietTest {
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY2(m_server.start(), qPrintable(m_server.errorText())); }

    // A tone has the same level everywhere: what is lost at an end shows there.
    void tone_hasItsLengthAndItsEnds()
    {
        SoundRecorder recorder(m_server);
        QVERIFY2(recorder.start(), qPrintable(recorder.errorText()));
        DisturbedTrial trial;
        trial.setUnmodulatedTones();
        QVERIFY(trial.play());
        const QVector<float> recording = recorder.stop();
        const int silence = outputPerMs * DisturbedTrial::defaultSilenceMs / 2;
        const QVector<RecordedSound> sounds = recordedSounds(recording, silence);
        QCOMPARE(sounds.size(), DisturbedTrial::nSounds);
        for (const RecordedSound& sound : sounds) {
            // The resampler's filter rings for less than a millisecond at both ends.
            QVERIFY2(std::abs(sound.length - outputPerMs * DisturbedTrial::soundMs) < outputPerMs,
                qPrintable(QString::number(sound.length)));
            const double whole = rms(recording, sound.begin, sound.length);
            const int begin = sound.begin + outputPerMs;
            const int end = sound.begin + outputPerMs * (DisturbedTrial::soundMs - 2);
            QVERIFY(std::abs(rms(recording, begin, outputPerMs) / whole - 1.0) < 0.01);
            QVERIFY(std::abs(rms(recording, end, outputPerMs) / whole - 1.0) < 0.01);
        }
    }

private:
    SoundServer m_server {settings()};
};

QUORIN_TEST(TestResampledSounds);
#include "tst_resampled_sounds.moc"
