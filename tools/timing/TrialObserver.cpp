// SPDX-License-Identifier: GPL-3.0-or-later
// Notes when sounds of a run are started, ended and lit, and answers at once.
#include "timing/TrialObserver.h"

#include "app/MainWindow.h"
#include "timing/SampleClock.h"

#include <QAudioOutput>
#include <QEvent>
#include <QPushButton>
#include <QTimer>

#include <cmath>
#include <limits>

namespace {

constexpr double notYet = std::numeric_limits<double>::quiet_NaN();

QString choiceName(int interval)
{
    return QString("pushButtonChoice%1").arg(interval);
}

} // namespace

TrialObserver::TrialObserver(MainWindow& window)
    : m_window(window)
    , m_timer(window.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly))
{
    Q_CHECK_PTR(m_timer);
    m_timer->installEventFilter(this);
    connect(&window, &MainWindow::soundPlaying, this, &TrialObserver::onSoundPlaying);
}

void TrialObserver::startRun(int nTrials)
{
    m_nTrials = nTrials;
    press("pushButtonView");
    press("pushButtonGo");
    for (int interval = 1; interval <= 4; ++interval)
        button(choiceName(interval)).installEventFilter(this);
    pressAndBegin("pushButtonIAmReady");
}

QPushButton& TrialObserver::button(const QString& name) const
{
    auto* const found = m_window.findChild<QPushButton*>(name);
    Q_CHECK_PTR(found);
    return *found;
}

void TrialObserver::press(const QString& name)
{
    button(name).click();
}

// Starting the timer is the last thing that the press leads to.
void TrialObserver::pressAndBegin(const QString& name)
{
    press(name);
    m_begin = monotonicMs();
    m_periodMs = m_timer->interval();
    ++m_trial;
}

bool TrialObserver::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_timer && event->type() == QEvent::Timer)
        m_tick = monotonicMs();
    if (event->type() == QEvent::Paint && !m_sounds.isEmpty()) {
        SoundMoments& sound = m_sounds.last();
        if (std::isnan(sound.light) && watched->objectName() == choiceName(sound.interval))
            sound.light = monotonicMs();
    }
    return QObject::eventFilter(watched, event);
}

void TrialObserver::onSoundPlaying(int state)
{
    if (state > 0) {
        watchSound(state);
        return;
    }
    m_sounds.last().answerable = monotonicMs();
    if (m_trial == m_nTrials) {
        emit finished();
    } else {
        QTimer::singleShot(0, this, SLOT(answer()));
    }
}

void TrialObserver::answer()
{
    pressAndBegin(choiceName(2));
}

void TrialObserver::watchSound(int interval)
{
    const double due = m_begin + double(interval) * m_periodMs;
    const int index = m_sounds.size();
    m_sounds.append({interval, due, m_tick, notYet, notYet, notYet});
    const auto outputs
        = m_window.findChildren<QAudioOutput*>(QString(), Qt::FindDirectChildrenOnly);
    connect(outputs.constLast(), &QAudioOutput::stateChanged, this, [this, index](QAudio::State s) {
        if (s == QAudio::IdleState)
            m_sounds[index].endReport = monotonicMs();
    });
}
