// SPDX-License-Identifier: GPL-3.0-or-later
// Measuring sounds from QAudioOutput through the running server into a null sink, and recorded.
#include "sound/PathMeasurement.h"

#include "session/Counts.h"
#include "session/Units.h"
#include "sound/MeasuringSounds.h"
#include "sound/MonitorRecorder.h"
#include "sound/NullSink.h"
#include "sound/SoundPlayer.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>
#include <QBuffer>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace {

constexpr int patienceMs = 20000;

/// Lets events come until something is so.
/// @return false after a long time, or when the application is to end
bool await(const std::function<bool()>& isSo)
{
    constexpr int lookEveryMs = 10;
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (isSo() || clock.elapsed() >= patienceMs) {
            loop.exit(0);
        }
    });
    timer.start(lookEveryMs);
    return loop.exec() == 0 && isSo();
}

QAudioDeviceInfo deviceOf(const QString& sink)
{
    const QList<QAudioDeviceInfo> devices = QAudioDeviceInfo::availableDevices(QAudio::AudioOutput);
    const auto found = std::find_if(devices.cbegin(), devices.cend(),
        [&sink](const QAudioDeviceInfo& device) { return device.deviceName() == sink; });
    return found == devices.cend() ? QAudioDeviceInfo() : *found;
}

/// Plays sounds to one output and records it.
class Measurement {
public:
    Measurement(const QString& sink, const MeasuredPath& path)
        : m_sink(sink)
        , m_path(path)
        , m_recorder(sink, path.outputRate)
    {
    }

    bool isReady() const
    {
        return await([this] { return !deviceOf(m_sink).isNull() && m_recorder.sampleCount() > 0; });
    }

    /// @return the recording of a sound and the silence around it; empty if it did not end
    QVector<float> recordingOf(const QVector<float>& sound)
    {
        const auto nBytes = sound.size() * static_cast<int>(sizeof(float));
        QByteArray bytes(reinterpret_cast<const char*>(sound.constData()), nBytes);
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::ReadOnly);
        QAudioOutput output(deviceOf(m_sink), formatOf(1, m_path.playedRate));
        m_recorder.take();
        output.start(&buffer);
        const auto hasEnded = [&output] { return output.state() != QAudio::ActiveState; };
        if (!await(hasEnded) || output.state() == QAudio::StoppedState) {
            return {};
        }
        // The end is told before the last samples are played, and recordings come in blocks.
        constexpr double afterwardsSeconds = 0.6;
        const int enough = m_recorder.sampleCount() + qRound(afterwardsSeconds * m_path.outputRate);
        const bool isComplete
            = await([this, enough] { return m_recorder.sampleCount() >= enough; });
        output.stop();
        return isComplete ? m_recorder.take() : QVector<float>();
    }

private:
    QString m_sink;
    MeasuredPath m_path;
    MonitorRecorder m_recorder;
};

} // namespace

PathMeasurement measurePath(const MeasuredPath& path)
{
    PathMeasurement result;
    const NullSink sink(path.outputRate);
    result.obstacle = sink.obstacle();
    if (!result.obstacle.isEmpty()) {
        return result;
    }
    Measurement measurement(sink.name(), path);
    if (!measurement.isReady()) {
        result.obstacle = "the null sink cannot be played to and recorded";
        return result;
    }
    const QVector<float> tones = toneSequence(path.playedRate);
    const QVector<float> recordedTones = measurement.recordingOf(tones);
    result.tones = toneFigures(recordedTones, path.playedRate, path.outputRate);
    result.isExact = holdsExactly(recordedTones, tones);
    const QVector<float> steps
        = steppedSound(soundLength(path.playedRate, fromMs(path.durationMs)));
    result.lost = lostSamples(
        measurement.recordingOf(steps), steps.size(), path.playedRate, path.outputRate);
    if (result.tones.isEmpty() || result.lost.isSilent) {
        result.obstacle = "the measuring sounds did not arrive whole";
    }
    return result;
}
