// SPDX-License-Identifier: GPL-3.0-or-later
// A sound on the default output, from its start to its end.
#include "sound/SoundPlayer.h"

#include <QAudioOutput>
#include <QBuffer>
#include <QEventLoop>
#include <QTimer>

QAudioFormat formatOf(int nChannels, int rate)
{
    QAudioFormat format;
    format.setSampleRate(rate);
    format.setChannelCount(nChannels);
    format.setSampleSize(32);
    format.setCodec("audio/pcm");
    format.setByteOrder(QAudioFormat::LittleEndian);
    format.setSampleType(QAudioFormat::Float);
    return format;
}

// An idle output with something left in the buffer ran dry: it goes on by itself.
QString playFrames(QByteArray frames, int nChannels, int rate)
{
    constexpr int patienceMs = 5000; // beyond the sound's own time
    const QAudioFormat format = formatOf(nChannels, rate);
    QBuffer buffer(&frames);
    buffer.open(QIODevice::ReadOnly);
    QAudioOutput output(format);
    QEventLoop loop;
    bool hasEnded = false;
    QObject::connect(&output, &QAudioOutput::stateChanged, &loop, [&](QAudio::State state) {
        hasEnded = hasEnded || (state == QAudio::IdleState && buffer.atEnd());
        if (hasEnded || state == QAudio::StoppedState) {
            loop.quit();
        }
    });
    const qint64 soundMs = format.durationForBytes(frames.size()) / 1000;
    QTimer patience;
    patience.setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &loop, &QEventLoop::quit);
    patience.start(static_cast<int>(soundMs) + patienceMs);
    output.start(&buffer);
    if (output.state() != QAudio::StoppedState && !hasEnded) {
        loop.exec();
    }
    const bool hasFailed = output.state() == QAudio::StoppedState;
    output.disconnect(&loop);
    output.stop();
    if (hasEnded) {
        return {};
    }
    return hasFailed ? "the sound cannot be played" : "the sound did not come to its end";
}
