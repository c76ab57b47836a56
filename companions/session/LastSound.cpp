// SPDX-License-Identifier: GPL-3.0-or-later
// A trial's fourth sound and its loss.
#include "session/LastSound.h"

#include "app/MainWindow.h"
#include "app/PlaybackBuffer.h"
#include "record/RecordLines.h"

#include <QAudioOutput>
#include <QEvent>
#include <QTimer>

using namespace quorin;

// The timer that paces the sounds is the window's only precise one.
LastSound::LastSound(MainWindow& window)
    : m_window(window)
{
    const QList<QTimer*> timers = window.findChildren<QTimer*>();
    for (QTimer* timer : timers) {
        if (timer->timerType() == Qt::PreciseTimer) {
            timer->installEventFilter(this);
        }
    }
}

bool LastSound::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Timer || !isAwaited()) {
        return QObject::eventFilter(watched, event);
    }
    m_isLost = m_isLost || hasGone();
    if (m_isLost) {
        emit lost();
    }
    return true;
}

void LastSound::forget()
{
    m_trial = 0;
    m_trialGivenUp = 0;
}

void LastSound::noteStart(int interval, QAudioOutput* output)
{
    m_output = output;
    m_isLost = false;
    m_trial = interval == soundsPerTrial ? m_window.sessionRecord().nTrials : 0;
}

bool LastSound::isAwaited() const
{
    return m_trial > 0 && m_trial == m_window.sessionRecord().nTrials
        && m_window.soundNowPlaying() != nullptr;
}

QString LastSound::loss() const
{
    const int trial = m_window.sessionRecord().nTrials;
    const bool isLost = isAwaited() && (m_isLost || hasGone());
    const bool wasLost = trial > 0 && wasGivenUpIn(trial);
    return isLost || wasLost ? QString(" after the sound of trial %1 was lost").arg(trial)
                             : QString();
}

// It ends no more when its output has stopped with an error, or its stream is gone.
bool LastSound::hasGone() const
{
    const QAudioOutput* const output = m_output.data();
    return isGone(output) || (hasFailed(output) && output->state() == QAudio::StoppedState);
}

// Called by nobody's signal, the window's slot takes this for the end of the sound.
void LastSound::giveUp()
{
    if (isAwaited() && m_isLost) {
        m_trialGivenUp = m_trial;
        m_window.handleStateChanged(QAudio::IdleState);
    }
}
