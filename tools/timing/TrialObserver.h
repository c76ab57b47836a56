// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QVector>

class MainWindow;
class QPushButton;
class QTimer;

/// When things happened to one sound of a trial, ms of the monotonic clock; NaN for what has not.
struct SoundMoments {
    int interval; ///< 1 to 4
    double due; ///< when the pacing timer should have ticked
    double tick; ///< when it did
    double light; ///< when the interval's button began to be painted anew
    double endReport; ///< when the program had dealt with the report of the sound's end
    double answerable; ///< of the fourth sound: when the answer could be given
};

/// A listener who answers at once and takes down when the sounds of a run are started, ended and
/// lit. It sees the main window from outside: by its signals and its children.
class TrialObserver : public QObject {
    Q_OBJECT

public:
    explicit TrialObserver(MainWindow& window);

    /// Presses View, Go and "I am ready"; no answer is given after nTrials trials.
    void startRun(int nTrials);
    /// The moments of every sound so far, in the order played.
    const QVector<SoundMoments>& sounds() const { return m_sounds; }
    /// From one tick to the next, ms.
    int periodMs() const { return m_periodMs; }

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The last of the trials has been heard.
    void finished();

private slots:
    void answer();

private:
    QPushButton& button(const QString& name) const;
    void press(const QString& name);
    void pressAndBegin(const QString& name);
    void onSoundPlaying(int state);
    void watchSound(int interval);

    MainWindow& m_window;
    QTimer* m_timer;
    QVector<SoundMoments> m_sounds;
    int m_nTrials = 0;
    int m_trial = 0;
    int m_periodMs = 0;
    double m_begin = 0.0; ///< of the trial's timer
    double m_tick = 0.0;
};
