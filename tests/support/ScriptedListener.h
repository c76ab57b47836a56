// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QVector>

class MainWindow;
class QPushButton;
class SubjectWindow;

/// A listener who answers the trials of a run from a list, by clicks on the real buttons of the
/// subject window, and keeps what every trial played. The answers start again at the list's end.
class ScriptedListener : public QObject {
    Q_OBJECT

public:
    /// What one trial played and how it was answered.
    struct Trial {
        QVector<double> standardSound;
        QVector<double> deviantSound;
        int deviantPosition;
        bool correct;
    };

    /// @param answers 'c' for a correct answer, 'w' for a wrong one; not empty
    ScriptedListener(MainWindow& window, QString answers);

    /// The listener gives no more answers after this many trials.
    void stopAfter(int nTrials) { m_lastTrial = nTrials; }

    /// Presses View, Go and "I am ready".
    void startRun();

    const QVector<Trial>& trials() const { return m_trials; }
    /// Whether the run has ended, or the last trial that gets an answer has been heard.
    bool hasFinished() const { return m_hasFinished; }

private slots:
    void hear(int state);
    void answer();
    void finish();

private:
    MainWindow& m_window;
    QString m_answers;
    QVector<Trial> m_trials;
    int m_lastTrial = -1;
    bool m_hasFinished = false;
};
