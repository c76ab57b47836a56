// SPDX-License-Identifier: GPL-3.0-or-later
// The audio format, and a sound from its start to its release. A sound that still plays when the
// next one starts is put aside; one whose output ran dry is watched until it has ended.
#include "app/MainWindow.h"
#include "app/PlaybackBuffer.h"
#include "app/PlayedSound.h"
#include "session/Counts.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>
#include <QTimer>

#include <algorithm>

namespace {

void silence(const PlayedSound& sound)
{
    if (sound.output != nullptr) {
        sound.output->stop();
    }
    if (sound.buffer != nullptr) {
        sound.buffer->close();
    }
    delete sound.bytes;
    delete sound.buffer;
}

} // namespace

void MainWindow::makeAudioFormat()
{
    audioFormat.setSampleRate(truncatedCount(data.fs));
    audioFormat.setChannelCount(1);
    audioFormat.setSampleSize(32);
    audioFormat.setCodec("audio/pcm");
    audioFormat.setByteOrder(QAudioFormat::LittleEndian);
    audioFormat.setSampleType(QAudioFormat::Float);
    checkPlaybackFormat();
}

// Sounds are played at the session's rate, so that a 1000 Hz tone is one; all else of the format is
// set once.
void MainWindow::setPlaybackRate()
{
    const int rate = truncatedCount(data.fs);
    if (data.fs >= 1.0 && rate != audioFormat.sampleRate()) {
        audioFormat.setSampleRate(rate);
        checkPlaybackFormat();
    }
}

void MainWindow::checkPlaybackFormat() const
{
    if (!QAudioDeviceInfo::defaultOutputDevice().isFormatSupported(audioFormat)) {
        qWarning("Raw audio format not supported by backend, cannot play audio.");
    }
}

void MainWindow::startSound(const QByteArray& bytes)
{
    constexpr double msPerSecond = 1000.0;
    const double bytesPerMs = audioFormat.bytesPerFrame() / msPerSecond * audioFormat.sampleRate();
    audioBytes = new QByteArray(bytes);
    auto* const playback = new PlaybackBuffer(audioBytes, bytesPerMs);
    audioBuffer = playback;
    audioBuffer->open(QIODevice::ReadOnly);
    audioOutput = new QAudioOutput(audioFormat, this);
    connect(audioOutput, SIGNAL(stateChanged(QAudio::State)), this,
        SLOT(handleStateChanged(QAudio::State)));
    const double beforeStartMs = playback->ageMs();
    audioOutput->start(audioBuffer);
    const double startMs = playback->ageMs() - beforeStartMs;
    // A server begins to play when its queue is full but for the least that it asks for.
    playback->setBytesToBegin(audioOutput->bufferSize() - audioOutput->periodSize());
    connect(playback, &PlaybackBuffer::firstTaken, this, [this, playback, startMs] {
        if (playback == audioBuffer) {
            judgeOnset(playback->ageMs() - startMs);
        }
    });
    connect(playback, &PlaybackBuffer::ranDry, this, [this, playback] { noteGap(playback); });
    // Without a device the output has stopped by now, and reports nothing.
    if (audioOutput->state() == QAudio::StoppedState && hasFailed(audioOutput)) {
        noteFailure(currentSound());
    }
}

void MainWindow::handleStateChanged(QAudio::State state)
{
    auto* const output = qobject_cast<QAudioOutput*>(sender());
    if (output != nullptr && output != audioOutput) {
        handleSoundAside(output, state);
        return;
    }
    if (state == QAudio::StoppedState) {
        warnOfError(currentSound());
    } else if (state == QAudio::IdleState) {
        if (output != nullptr && isInterrupted(currentSound())) {
            noteInterruption(currentProgress);
        } else {
            endCurrentSound();
        }
    }
}

void MainWindow::endCurrentSound()
{
    const bool wasLastSound = soundIndex == nSoundsPerTrial;
    const PlayedSound sound = takeCurrentSound();
    release(sound);
    if (wasLastSound) {
        endTrial();
    } else {
        resumePacing(sound.progress);
    }
}

void MainWindow::warnOfError(const PlayedSound& sound)
{
    if (hasFailed(sound.output) || isGone(sound.output)) {
        qWarning("Audio stopped unexpectedly");
        noteFailure(sound);
    }
}

void MainWindow::noteFailure(const PlayedSound& sound)
{
    disturbances.hasOutputFailed = disturbances.hasOutputFailed || sound.progress.interval > 0;
}

void MainWindow::noteGap(const QBuffer* buffer)
{
    if (buffer == audioBuffer) {
        noteInterruption(currentProgress);
        return;
    }
    for (PlayedSound& sound : soundsAside) {
        if (sound.buffer == buffer) {
            noteInterruption(sound.progress);
        }
    }
}

void MainWindow::noteInterruption(SoundProgress& progress)
{
    if (progress.isInterrupted) {
        return;
    }
    progress.isInterrupted = true;
    if (progress.interval > 0) {
        ++disturbances.interruptedSounds;
        qWarning("Sound interrupted: interval %d of trial %d", progress.interval, data.nTrials);
    }
    constexpr int lookEveryMs = 20;
    timerInterruption->start(lookEveryMs);
}

// The end of a sound that ran dry is not always reported: an output that was idle already reports
// nothing more, and a server does not begin to play a queue that is shorter than its minimum.
void MainWindow::lookAfterInterruptedSounds()
{
    PlayedSound sound = currentSound();
    if (isWatched(sound)) {
        const bool hasEnded = looksEnded(sound);
        currentProgress = sound.progress;
        if (hasEnded) {
            endCurrentSound();
        }
    }
    for (int i = soundsAside.size() - 1; i >= 0; --i) {
        if (isWatched(soundsAside[i]) && looksEnded(soundsAside[i])) {
            endSoundAside(i);
        }
    }
    if (!isWatched(currentSound())
        && std::none_of(soundsAside.cbegin(), soundsAside.cend(), isWatched)) {
        timerInterruption->stop();
    }
}

PlayedSound MainWindow::currentSound() const
{
    return {audioBytes, audioBuffer, audioOutput, currentProgress};
}

PlayedSound MainWindow::takeCurrentSound()
{
    const PlayedSound sound = currentSound();
    audioBytes = nullptr;
    audioBuffer = nullptr;
    audioOutput = nullptr;
    currentProgress = {};
    return sound;
}

bool MainWindow::plays(const PlayedSound& sound)
{
    return sound.output != nullptr && sound.output->state() != QAudio::StoppedState
        && !isGone(sound.output) && !sound.bytes->isEmpty();
}

// Sounds of an abandoned trial do not count: no trial waits for them.
bool MainWindow::isUnfinished(const PlayedSound& sound)
{
    return sound.progress.interval > 0 && plays(sound);
}

// A sound that has not ended yet when the next one starts plays on by itself and is released at its
// own end. One that has stopped, or has nothing to play, would never report an end.
void MainWindow::putCurrentSoundAside()
{
    constexpr int mostSoundsAside = 8; // streams must not pile up when no end is reported
    for (int i = soundsAside.size() - 1; i >= 0; --i) {
        if (isGone(soundsAside[i].output)) {
            release(soundsAside.takeAt(i));
        }
    }
    const PlayedSound sound = takeCurrentSound();
    if (!plays(sound)) {
        release(sound);
        return;
    }
    if (soundsAside.size() >= mostSoundsAside) {
        release(soundsAside.takeFirst());
    }
    soundsAside.append(sound);
}

void MainWindow::handleSoundAside(QAudioOutput* output, QAudio::State state)
{
    const auto found = std::find_if(soundsAside.begin(), soundsAside.end(),
        [output](const PlayedSound& sound) { return sound.output == output; });
    const bool hasEnded = state == QAudio::IdleState || state == QAudio::StoppedState;
    if (found == soundsAside.end() || !hasEnded) {
        return;
    }
    const int index = static_cast<int>(found - soundsAside.begin());
    if (state == QAudio::StoppedState) {
        const PlayedSound sound = soundsAside.takeAt(index);
        warnOfError(sound);
        release(sound);
        resumePacing(sound.progress);
    } else if (isInterrupted(*found)) {
        noteInterruption(found->progress);
    } else {
        endSoundAside(index);
    }
}

// The trial ends with its fourth sound, also when a later tick has put that aside.
void MainWindow::endSoundAside(int index)
{
    const PlayedSound sound = soundsAside.takeAt(index);
    release(sound);
    if (sound.progress.interval == nSoundsPerTrial) {
        endTrial();
    } else {
        resumePacing(sound.progress);
    }
}

// The sounds of an abandoned trial play on, but no trial waits for them or ends with them.
void MainWindow::forgetTrialOfSounds()
{
    currentProgress.interval = 0;
    for (PlayedSound& sound : soundsAside) {
        sound.progress.interval = 0;
    }
}

// The output may be the one whose signal is being handled, so it is deleted later. It must have no
// parent then: a parent that is deleted before would delete it, its backend's destructor would run
// the event loop, and the pending deletion would delete it a second time.
void MainWindow::release(const PlayedSound& sound)
{
    if (isGone(sound.output)) {
        warnOfError(sound);
    }
    silence(sound);
    if (sound.output != nullptr) {
        sound.output->disconnect(this);
        sound.output->setParent(nullptr);
        sound.output->deleteLater();
    }
}

void MainWindow::deleteAllSounds()
{
    soundsAside.append(takeCurrentSound());
    for (const PlayedSound& sound : qAsConst(soundsAside)) {
        silence(sound);
        delete sound.output;
    }
    soundsAside.clear();
}
