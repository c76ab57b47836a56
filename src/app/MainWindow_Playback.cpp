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

bool hasFailed(const QAudioOutput* output)
{
    return output != nullptr && output->error() != QAudio::NoError;
}

bool hasRunDry(const QBuffer* buffer)
{
    const auto* const playback = qobject_cast<const PlaybackBuffer*>(buffer);
    return playback != nullptr && playback->hasRunDry();
}

// The server's queue is asked only after a gap: some backends report the end before their queue is
// empty, and play the rest when they are stopped.
bool hasBeenPlayed(const PlayedSound& sound)
{
    const bool hadGap = sound.progress.isInterrupted || hasRunDry(sound.buffer);
    return sound.buffer->atEnd()
        && (!hadGap || sound.output->bytesFree() >= sound.output->bufferSize());
}

// An idle output has nothing to play, which is not always the end of the sound: while this thread,
// the process or the server stood still, the rest of it may have reached the server too late, or
// not yet. Where the output has become active again since its report, the report counts only if the
// output ran dry.
bool isInterrupted(const PlayedSound& sound)
{
    const bool isReport = sound.output->state() == QAudio::IdleState || hasRunDry(sound.buffer);
    return isReport && !hasBeenPlayed(sound);
}

// Suspending and resuming makes a server play what is left of a queue that stands still.
bool looksEnded(PlayedSound& sound)
{
    constexpr int looksUntilStill = 5;
    constexpr int mostResumptions = 3; // after as many without effect the queue is given up
    // At the next look only: if the server was lost meanwhile, the output has been stopped by then.
    if (sound.output->state() == QAudio::SuspendedState) {
        sound.output->resume();
        return false;
    }
    if (hasBeenPlayed(sound)) {
        return true;
    }
    SoundProgress& progress = sound.progress;
    const int bytesFree = sound.output->bytesFree();
    // Below 0 the stream is gone, and suspending it would end the program inside the backend.
    const bool isStill = sound.buffer->atEnd() && bytesFree >= 0 && bytesFree == progress.bytesFree
        && sound.output->state() != QAudio::StoppedState;
    progress.nLooksStill = isStill ? progress.nLooksStill + 1 : 0;
    progress.bytesFree = bytesFree;
    if (progress.nLooksStill < looksUntilStill) {
        return false;
    }
    if (progress.nResumptions == mostResumptions) {
        return true;
    }
    progress.nLooksStill = 0;
    ++progress.nResumptions;
    sound.output->suspend();
    return false;
}

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
    connect(playback, &PlaybackBuffer::firstTaken, this,
        [this, playback, startMs] { judgeOnset(playback->ageMs() - startMs); });
    // Without a device the output has stopped by now, and reports nothing.
    noteFailure(audioOutput->state() == QAudio::StoppedState && hasFailed(audioOutput));
}

void MainWindow::handleStateChanged(QAudio::State state)
{
    auto* const output = qobject_cast<QAudioOutput*>(sender());
    if (output != nullptr && output != audioOutput) {
        handleSoundAside(output, state);
        return;
    }
    if (state == QAudio::StoppedState) {
        warnOfError(audioOutput);
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

void MainWindow::warnOfError(const QAudioOutput* output)
{
    if (hasFailed(output)) {
        qWarning("Audio stopped unexpectedly");
        noteFailure(true);
    }
}

void MainWindow::noteFailure(bool outputHasFailed)
{
    disturbances.hasOutputFailed = disturbances.hasOutputFailed || outputHasFailed;
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
    if (currentProgress.isInterrupted && audioOutput != nullptr) {
        PlayedSound sound = currentSound();
        const bool hasEnded = looksEnded(sound);
        currentProgress = sound.progress;
        if (hasEnded) {
            endCurrentSound();
        }
    }
    for (int i = soundsAside.size() - 1; i >= 0; --i) {
        if (soundsAside[i].progress.isInterrupted && looksEnded(soundsAside[i])) {
            endSoundAside(i);
        }
    }
    const bool isAnyLeft = currentProgress.isInterrupted
        || std::any_of(soundsAside.cbegin(), soundsAside.cend(),
            [](const PlayedSound& sound) { return sound.progress.isInterrupted; });
    if (!isAnyLeft) {
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
        && !sound.bytes->isEmpty();
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
        warnOfError(output);
        const PlayedSound sound = soundsAside.takeAt(index);
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
