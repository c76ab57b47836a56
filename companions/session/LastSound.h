// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>

class MainWindow;
class QAudioOutput;

/// The fourth sound of each trial, with whose end the trial ends. Where it is lost with the sound
/// server or the device, the trial would never end: that is told, and the trial can be ended.
///
/// Until its end no tick comes to the window's pacing timer: the window would only count it, and
/// could not end the trial any more.
class LastSound : public QObject {
    Q_OBJECT

public:
    /// @param window must live longer
    explicit LastSound(MainWindow& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

    /// No sound is awaited: a run begins or was abandoned.
    void forget();
    /// A sound of the window has been started.
    /// @param output that plays it
    void noteStart(int interval, QAudioOutput* output);
    /// Ends the trial if its fourth sound was told to be lost, else does nothing. The window allows
    /// the answer. Must not be called within the window's own slots and signals.
    void giveUp();
    /// Whether giveUp() has ended this trial of the run.
    bool wasGivenUpIn(int trial) const { return m_trialGivenUp == trial; }
    /// " after the sound of trial 3 was lost", if the trial under way has lost its fourth sound,
    /// ended by giveUp() or not; else empty.
    QString loss() const;

signals:
    /// The fourth sound is lost. Comes a period and 5 s after its start, and again as long as it is
    /// so.
    void lost();

private:
    bool isAwaited() const;
    bool hasGone() const;

    MainWindow& m_window;
    QPointer<QAudioOutput> m_output; ///< of the sound that was started last
    int m_trial = 0; ///< whose fourth sound that is; 0 for none of this run
    bool m_isLost = false; ///< and was told
    int m_trialGivenUp = 0;
};
