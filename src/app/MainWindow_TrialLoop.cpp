// SPDX-License-Identifier: GPL-3.0-or-later
// The run of trials: Go, the pacing of the four sounds, the answer, the end of a run.
#include "app/MainWindow.h"
#include "app/PlaybackBuffer.h"
#include "app/PlayedSound.h"
#include "app/ReactionClock.h"
#include "app/TrialSequence.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "signal/SignalToolkit.h"
#include "subject/SubjectWindow.h"

#include <QDebug>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtMath>

#include <algorithm>
#include <memory>

using namespace quorin;

namespace {

// A start that takes longer was blocked by the server: PipeWire takes up to 14 ms, PulseAudio 1 ms.
constexpr double mostStartMs = 25.0;

// After its start an output takes its first samples, unless this thread stands still.
constexpr double usualOnsetMs = 20.0;

} // namespace

void MainWindow::makeTrialLoop()
{
    stimSequence = QVector<bool>(nSoundsPerTrial, false);
    timerReaction = new QElapsedTimer;
    reactionClock = std::make_unique<ElapsedTimerClock>(*timerReaction);
    timerPlay = new QTimer(this);
    timerPlay->setTimerType(Qt::PreciseTimer); // a coarse one is up to 5 % off
    connect(timerPlay, SIGNAL(timeout()), this, SLOT(playOneSound()));
    timerInterruption = new QTimer(this);
    connect(timerInterruption, &QTimer::timeout, this, &MainWindow::lookAfterInterruptedSounds);
    pacingClock.start();
}

void MainWindow::on_pushButtonGo_clicked()
{
    pushButtonGo->setEnabled(false);
    pushButtonView->setEnabled(true);
    setEnabled(false);
    getParameters();
    // A trial that was abandoned by closing its window must not run into this one.
    timerPlay->stop();
    soundIndex = 0;
    forgetTrialOfSounds();
    setPlaybackRate();

    if (subjectWindow != nullptr) {
        subjectWindow->giveUpPicture(); // it stays a hidden child of this window
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
    subjectWindow->setEnabled(true); // its parent is disabled, which may disable it too
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

void MainWindow::updateMainwindow(int response)
{
    const qint64 elapsed = reactionClock->elapsedMs();
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
    recordedDisturbances.append(disturbances);
    updateTrend();
    updateReversal();
}

void MainWindow::playWav()
{
    genRandomSequence();
    forgetTrialOfSounds();
    disturbances = {};
    waitsForSound = false;
    isPeriodMoved = false;
    if (!enoughReversals(data)) {
        const int periodMs = trialPeriodMs(data.silentInterval, data.dur);
        pacing.begin(pacingTimeMs(), periodMs);
        timerPlay->start(periodMs);
    }
    ++data.nTrials;
}

void MainWindow::genRandomSequence()
{
    data.deviantPosition = randomInteger(2, 3);
    qDebug() << "stimPosition: " << data.deviantPosition;
    stimSequence = trialSequence(nSoundsPerTrial, data.deviantPosition);
}

// A tick after the fourth sound is counted and plays an empty sound. The trial ends, and the timer
// stops, when the end of the fourth sound is reported.
void MainWindow::playOneSound()
{
    const bool isSound = soundIndex < nSoundsPerTrial;
    const bool isPaced = sender() == timerPlay && isSound;
    const double tickMs = pacingTimeMs();
    if (isPaced && !isPeriodMoved && timerPlay->interval() != pacing.periodMs()) {
        pacing.begin(tickMs - timerPlay->interval(), timerPlay->interval()); // set from outside
    }
    const SoundPacing pacingBefore = pacing;
    if (isPaced && mustWaitForSound(tickMs)) {
        return;
    }
    if (isPaced) {
        paceNextSound(tickMs);
    }
    putCurrentSoundAside();
    currentProgress.interval = isSound ? soundIndex + 1 : 0;
    startSound(isSound ? nextPcm() : QByteArray());
    const bool wasBlocked = pacingTimeMs() - tickMs > mostStartMs;
    if (isPaced && wasBlocked && waitAnew()) {
        release(takeCurrentSound());
        pacing = pacingBefore;
        return;
    }
    ++soundIndex;
    if (isPaced) {
        const double latenessMs = pacingBefore.latenessMs(tickMs);
        judgeStart(wasBlocked ? latenessMs + pacingTimeMs() - tickMs : latenessMs, wasBlocked);
    }
    if (soundIndex == nSoundsPerTrial && timerPlay->isActive()) {
        timerPlay->setInterval(endReportTimeoutMs(timerPlay->interval()));
    }
    emit soundPlaying(soundIndex);
}

QByteArray MainWindow::nextPcm() const
{
    const int index = stimSequence[soundIndex] ? deviant : standard;
    return encodedPcm(stimuli[index].samples, data.nSamples[index]);
}

// Undisturbed, the timer repeats by itself. After a late tick the next sound comes a whole period
// after this one.
void MainWindow::paceNextSound(double tickMs)
{
    if (pacing.isLate(tickMs) || isPeriodMoved) {
        restartPeriod();
    } else {
        pacing.soundStarted(tickMs);
    }
}

void MainWindow::restartPeriod()
{
    isPeriodMoved = false;
    pacing.dueAfter(pacingTimeMs(), pacing.periodMs());
    timerPlay->start(pacing.periodMs());
}

void MainWindow::judgeStart(double latenessMs, bool wasBlocked)
{
    if (wasBlocked) {
        restartPeriod();
    }
    if (SoundPacing::isTooMuch(latenessMs)) {
        noteLateSound(latenessMs);
    }
}

void MainWindow::judgeOnset(double delayMs)
{
    const double latenessMs = delayMs - usualOnsetMs;
    if (!SoundPacing::isTooMuch(latenessMs) || currentProgress.interval == 0) {
        return;
    }
    noteLateSound(latenessMs);
    if (soundIndex < nSoundsPerTrial && timerPlay->isActive() && !waitsForSound) {
        restartPeriod();
    }
}

void MainWindow::noteLateSound(double ms)
{
    const int latenessMs = qCeil(ms);
    disturbances.worstLatenessMs = std::max(disturbances.worstLatenessMs, latenessMs);
    if (currentProgress.isLate) {
        return;
    }
    currentProgress.isLate = true;
    ++disturbances.lateSounds;
    qWarning("Sound late: interval %d of trial %d, %d ms", soundIndex, data.nTrials, latenessMs);
}

// A sound must not overlap one that was delayed. It waits for a sound that was interrupted; when
// the tick is late, or the current sound has not been handed over in time, for any that has not
// ended. The end of that sound starts the timer again. Without a report of it the trial goes on.
bool MainWindow::mustWaitForSound(double tickMs)
{
    constexpr double patienceMs = 5000.0;
    const auto* const playback = qobject_cast<const PlaybackBuffer*>(audioBuffer);
    const bool isBehind = pacing.isLate(tickMs)
        || (playback != nullptr && playback->isOverdue(usualOnsetMs + mostStartMs));
    const auto holdsUp = [isBehind](const PlayedSound& sound) {
        return isUnfinished(sound) && (isBehind || sound.progress.isInterrupted);
    };
    const bool mustWait
        = holdsUp(currentSound()) || std::any_of(soundsAside.cbegin(), soundsAside.cend(), holdsUp);
    if (mustWait && !waitsForSound) {
        waitForSound();
    }
    waitsForSound = mustWait && tickMs - waitingSinceMs <= patienceMs;
    return waitsForSound;
}

// A server that blocks a start has stood still, and plays the rest of an earlier sound when it goes
// on. One that does so again and again must not keep the trial for ever.
bool MainWindow::waitAnew()
{
    constexpr int mostWaitsAnew = 3;
    bool waits = false;
    for (PlayedSound& sound : soundsAside) {
        if (isUnfinished(sound) && sound.progress.nWaitsAnew < mostWaitsAnew) {
            ++sound.progress.nWaitsAnew;
            waits = true;
        }
    }
    if (waits) {
        waitForSound();
    }
    return waits;
}

void MainWindow::waitForSound()
{
    waitsForSound = true;
    waitingSinceMs = pacingTimeMs();
}

// After a sound that was interrupted or waited for, the silent interval begins at its real end.
void MainWindow::resumePacing(const SoundProgress& ended)
{
    const bool isOfThisTrial = ended.interval > 0 && timerPlay->isActive();
    if (!isOfThisTrial || !(ended.isInterrupted || waitsForSound)) {
        return;
    }
    const int silenceMs = silentIntervalMs(data.silentInterval);
    if (waitsForSound || timerPlay->remainingTime() < silenceMs) {
        isPeriodMoved = true;
        timerPlay->start(silenceMs);
    }
    if (ended.isInterrupted) {
        pacing.dueAfter(pacingTimeMs(), timerPlay->remainingTime());
    }
    waitsForSound = false;
}

double MainWindow::pacingTimeMs() const
{
    constexpr double nsPerMs = 1e6;
    return static_cast<double>(pacingClock.nsecsElapsed()) / nsPerMs;
}

void MainWindow::endTrial()
{
    timerPlay->stop();
    startReactionTimer();
    emit soundPlaying(answerState);
}

void MainWindow::startReactionTimer()
{
    if (nReactionTimerStarts == 0) {
        reactionClock->start();
    } else {
        reactionClock->restart();
    }
    ++nReactionTimerStarts;
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
