// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "app/PcmEncoding.h"
#include "app/TrialSequence.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/Counts.h"
#include "signal/SignalToolkit.h"
#include "subject/SubjectWindow.h"

#include <QAudioDeviceInfo>
#include <QAudioOutput>
#include <QBuffer>
#include <QDebug>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace {

void warnOfError(const QAudioOutput* output)
{
    if (output != nullptr && output->error() != QAudio::NoError) {
        qWarning("Audio stopped unexpectedly");
    }
}

} // namespace

void MainWindow::on_pushButtonGo_clicked()
{
    pushButtonGo->setEnabled(false);
    pushButtonView->setEnabled(true);
    setEnabled(false);
    getParameters();
    // A trial that was abandoned by closing its window must not run into this one.
    timerPlay->stop();
    soundIndex = 0;
    setPlaybackRate();

    if (subjectWindow != nullptr) {
        subjectWindow->giveUpPicture(); // it lives on, hidden, as long as this window
    }
    const QList<SubjectWindow*> earlierWindows = findChildren<SubjectWindow*>();
    subjectWindow = new SubjectWindow(this);
    connect(subjectWindow, SIGNAL(subjectResponded(int)), this, SLOT(updateMainwindow(int)));
    connect(subjectWindow, SIGNAL(subjectWindowClosed()), this, SLOT(refreshMainWindow()));
    connectToListener(subjectWindow);
    // Signals arrive in the order of the connections: the current listener comes first.
    for (SubjectWindow* earlier : earlierWindows) {
        disconnect(this, nullptr, earlier, nullptr);
        connectToListener(earlier);
    }
    subjectWindow->setEnabled(true); // whatever a disabled parent may have made of it
    subjectWindow->show();
}

void MainWindow::connectToListener(SubjectWindow* window)
{
    connect(this, SIGNAL(soundPlaying(int)), window, SLOT(updateSubjectWindow(int)));
    // clang-format off
    connect(this, SIGNAL(doneDataCollection(qreal,qreal,qint32,qreal)), window,
        SLOT(finishExperiment(qreal,qreal,qint32,qreal)));
    // clang-format on
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

void MainWindow::updateMainwindow(int response)
{
    const qint64 elapsed = timerReaction->isValid() ? timerReaction->elapsed() : 0;
    soundIndex = 0;
    if (response == readyResponse) {
        qDebug() << "Test just started";
        playWav();
        return;
    }
    if (response < 1 || response > nSoundsPerTrial) {
        QMessageBox::warning(nullptr, "Warning", "Invalid response", QMessageBox::Ok);
        return;
    }
    qDebug() << "response: " << response;
    data.records.append(answeredTrial(
        adaptedValue(data), data.deviantPosition, response, static_cast<double>(elapsed)));
    updateTrend();
    updateReversal();
}

void MainWindow::playWav()
{
    genRandomSequence();
    if (!enoughReversals(data)) {
        timerPlay->start(trialPeriodMs(data.silentInterval, data.dur));
    }
    ++data.nTrials;
}

void MainWindow::genRandomSequence()
{
    data.deviantPosition = randomInteger(2, 3);
    qDebug() << "stimPosition: " << data.deviantPosition;
    stimSequence = trialSequence(nSoundsPerTrial, data.deviantPosition);
}

// A tick after the fourth sound plays nothing, but counts on: the end of the trial is then never
// seen, and the timer goes on.
void MainWindow::playOneSound()
{
    putCurrentSoundAside();
    if (soundIndex < nSoundsPerTrial) {
        const bool isDeviant = stimSequence[soundIndex];
        audioBytes = new QByteArray(isDeviant ? encodedPcm(deviantSound, data.nSamples[deviant])
                                              : encodedPcm(standardSound, data.nSamples[standard]));
    } else {
        audioBytes = new QByteArray;
    }
    audioBuffer = new QBuffer(audioBytes);
    audioBuffer->open(QIODevice::ReadOnly);
    audioOutput = new QAudioOutput(audioFormat, this);
    connect(audioOutput, SIGNAL(stateChanged(QAudio::State)), this,
        SLOT(handleStateChanged(QAudio::State)));
    audioOutput->start(audioBuffer);

    ++soundIndex;
    if (soundIndex == nSoundsPerTrial && timerPlay->isActive()) {
        timerPlay->setInterval(endReportTimeoutMs(timerPlay->interval()));
    }
    emit soundPlaying(soundIndex);
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
        const bool wasLastSound = soundIndex == nSoundsPerTrial;
        release(takeCurrentSound());
        if (wasLastSound) {
            timerPlay->stop();
            startReactionTimer();
            emit soundPlaying(answerState);
        }
    }
}

void MainWindow::startReactionTimer()
{
    if (nReactionTimerStarts == 0) {
        timerReaction->start();
    } else {
        timerReaction->restart();
    }
    ++nReactionTimerStarts;
}

MainWindow::Sound MainWindow::takeCurrentSound()
{
    const Sound sound = {audioBytes, audioBuffer, audioOutput};
    audioBytes = nullptr;
    audioBuffer = nullptr;
    audioOutput = nullptr;
    return sound;
}

// A sound that has not ended yet when the next one starts plays on by itself and is released at its
// own end. One that has stopped, or has nothing to play, would never report an end.
void MainWindow::putCurrentSoundAside()
{
    constexpr int mostSoundsAside = 8; // should reports stay away, streams must not pile up
    const Sound sound = takeCurrentSound();
    const bool plays = sound.output != nullptr && sound.output->state() != QAudio::StoppedState
        && !sound.bytes->isEmpty();
    if (!plays) {
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
        [output](const Sound& sound) { return sound.output == output; });
    const bool hasEnded = state == QAudio::IdleState || state == QAudio::StoppedState;
    if (found == soundsAside.end() || !hasEnded) {
        return;
    }
    const Sound sound = *found;
    soundsAside.erase(found);
    if (state == QAudio::StoppedState) {
        warnOfError(output);
    }
    release(sound);
}

// The output may be the one whose signal is being handled, so it goes later; without a parent,
// which could go first: the sound backends run the event loop in their destructors, and the
// deletion that waits there would meet the output half deleted.
void MainWindow::release(const Sound& sound)
{
    silence(sound);
    if (sound.output != nullptr) {
        sound.output->disconnect(this);
        sound.output->setParent(nullptr);
        sound.output->deleteLater();
    }
}

void MainWindow::silence(const Sound& sound)
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

void MainWindow::deleteAllSounds()
{
    soundsAside.append(takeCurrentSound());
    for (const Sound& sound : qAsConst(soundsAside)) {
        silence(sound);
        delete sound.output;
    }
    soundsAside.clear();
}

void MainWindow::finishIt()
{
    computeResults();
    emit doneDataCollection(
        data.threshold, data.meanReactionTime, data.mainParameter, data.cf[standard]);
    if (data.saveData) {
        writeDataToTxt();
    }
}

void MainWindow::updateAll()
{
    updateTrend();
    updateReversal();
}
