// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;
class SubjectWindow;

/// Drives the runs of a main window by hand, without sound and without waiting: a sound starts and
/// ends by direct calls of the window's slots, and the answers come from the buttons.
class RunDriver {
public:
    /// Sets a silent interval of an hour, so that the pacing timer never ticks by itself.
    explicit RunDriver(MainWindow& window);

    /// Presses View and Go.
    /// @return the subject window of the new run
    SubjectWindow& open();
    /// Presses "I am ready": the first trial begins.
    void beReady();
    /// Presses View, Go and "I am ready".
    /// @return the subject window of the new run
    SubjectWindow& begin();
    /// What a tick of the pacing timer does.
    void startSound();
    /// What the sound's output does when all of it was played.
    void endSound();
    /// Starts and ends so many sounds.
    void playSounds(int count);
    /// Starts and ends the four sounds of a trial.
    void playTrial();
    /// Begins a run and plays its first trial, which then waits for the answer.
    void playToTheAnswer();
    /// Presses "2" or "3".
    void answer(int position);
    /// Presses the button of the deviant's position when right, the other one when not.
    void answerRightly(bool isRight);
    /// The same by the slot that the listener's window calls: the sounds need not have been played,
    /// nor the listener's window be open.
    void answerUnheard(bool isRight);

private:
    int positionOf(bool isRight) const;

    MainWindow& m_window;
};
