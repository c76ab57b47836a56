// SPDX-License-Identifier: GPL-3.0-or-later
// A trial on a real sound server, what disturbs it, and where its sounds lie in the recording.
#include "system/DisturbedTrial.h"

#include "support/MainWindowProbe.h"
#include "support/TrialRecording.h"
#include "support/WindowWidgets.h"
#include "system/SoundLab.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

DisturbedTrial::DisturbedTrial(int silenceMs)
{
    typeDurations(window, QString::number(soundMs));
    type(window, "lineEditSilentInterval", QString::number(silenceMs));
    QObject::connect(&window, &MainWindow::soundPlaying, &window, [this](int state) {
        m_states.append(state);
        disturb(state);
    });
}

void DisturbedTrial::setUnmodulatedTones() const
{
    comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(0);
    checkBoxOf(window, "checkBoxResetMdFd")->setChecked(false);
    type(window, "lineEditDevModDepth", "0");
}

bool DisturbedTrial::play()
{
    m_listener.stopAfter(1);
    m_listener.startRun();
    const auto hasEnded = [this] {
        const QByteArray* const bytes = Probe::audioBytes(window);
        return m_states.contains(-1) && Probe::soundsAside(window).isEmpty()
            && (bytes == nullptr || bytes->isEmpty());
    };
    return QTest::qWaitFor(hasEnded, timeoutMs) && !m_listener.trials().isEmpty();
}

QVector<float> DisturbedTrial::sound(int interval) const
{
    const ScriptedListener::Trial& trial = m_listener.trials().constFirst();
    const bool isDeviant = interval == trial.deviantPosition;
    return singlePrecision(isDeviant ? trial.deviantSound : trial.standardSound);
}

QVector<SoundPlace> DisturbedTrial::placesIn(const QVector<float>& recording)
{
    QVector<SoundPlace> places;
    int at = 0;
    for (int interval = 1; interval <= nSounds; ++interval) {
        const QVector<float> samples = sound(interval);
        SoundPlace place = {-1, -1};
        for (int k = 0; k < samples.size(); ++k) {
            while (at < recording.size() && recording[at] == 0.0F) {
                ++at;
            }
            if (at == recording.size() || recording[at] != samples[k]) {
                m_whatIsWrong = QString("sample %1 of sound %2 is not next").arg(k).arg(interval);
                return {};
            }
            place.begin = k == 0 ? at : place.begin;
            place.end = ++at;
        }
        places.append(place);
    }
    if (!std::all_of(recording.begin() + at, recording.end(), [](float x) { return x == 0.0F; })) {
        m_whatIsWrong = "more is heard than the four sounds";
        return {};
    }
    return places;
}

QStringList interruptionLines(const QVector<SoundPlace>& places, int samplesPerSound)
{
    QStringList lines;
    for (int i = 0; i < places.size(); ++i) {
        if (places[i].length() > samplesPerSound) {
            lines.append(QString("Sound interrupted: interval %1 of trial 1").arg(i + 1));
        }
    }
    return lines;
}
