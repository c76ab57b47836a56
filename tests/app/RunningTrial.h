// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/DrivenRun.h"

#include <QAudioOutput>
#include <QBuffer>
#include <QCoreApplication>

/// Whether the window has no current sound.
inline bool holdsNoSound(MainWindow& window)
{
    return Probe::audioBytes(window) == nullptr && Probe::audioBuffer(window) == nullptr
        && Probe::audioOutput(window) == nullptr;
}

/// What deleteLater() has asked for.
inline void runDeferredDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// An output that still plays when the next sound starts, as the window keeps it.
/// @param interval of the trial under way; 0: of no trial
inline QAudioOutput* addSoundAside(MainWindow& window, int interval = 0)
{
    auto* const bytes = new QByteArray(4, '\0');
    auto* const buffer = new QBuffer(bytes);
    buffer->open(QIODevice::ReadOnly);
    auto* const output = new QAudioOutput(Probe::audioFormat(window), &window);
    QObject::connect(output, SIGNAL(stateChanged(QAudio::State)), &window,
        SLOT(handleStateChanged(QAudio::State)));
    Probe::soundsAside(window).append({bytes, buffer, output, {interval}});
    return output;
}

/// A window in a run whose trial has come to the given sound, which still plays.
struct RunningTrial : DrivenRun {
    explicit RunningTrial(int nSounds)
    {
        driver.begin();
        driver.playSounds(nSounds - 1);
        driver.startSound();
    }
};
