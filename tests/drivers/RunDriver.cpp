// SPDX-License-Identifier: GPL-3.0-or-later
// Runs driven by hand, without sound and without waiting.
#include "drivers/RunDriver.h"

#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QLineEdit>
#include <QPushButton>

RunDriver::RunDriver(MainWindow& window)
    : m_window(window)
{
    type(window, "lineEditSilentInterval", "3600000.00");
}

SubjectWindow& RunDriver::open()
{
    buttonOf(m_window, "pushButtonView")->click();
    buttonOf(m_window, "pushButtonGo")->click();
    return *Probe::subjectWindow(m_window);
}

void RunDriver::beReady()
{
    buttonOf(*Probe::subjectWindow(m_window), "pushButtonIAmReady")->click();
}

SubjectWindow& RunDriver::begin()
{
    SubjectWindow& subject = open();
    beReady();
    return subject;
}

void RunDriver::startSound()
{
    m_window.playOneSound();
}

void RunDriver::endSound()
{
    m_window.handleStateChanged(QAudio::IdleState);
}

void RunDriver::playSounds(int count)
{
    for (int i = 0; i < count; ++i) {
        startSound();
        endSound();
    }
}

void RunDriver::playTrial()
{
    playSounds(Probe::nSoundsPerTrial(m_window));
}

void RunDriver::playToTheAnswer()
{
    begin();
    playTrial();
}

void RunDriver::answer(int position)
{
    SubjectWindow& subject = *Probe::subjectWindow(m_window);
    QPushButton* const button = position == 2 ? buttonOf(subject, "pushButtonChoice2")
                                              : buttonOf(subject, "pushButtonChoice3");
    button->click();
}

void RunDriver::answerRightly(bool isRight)
{
    answer(positionOf(isRight));
}

void RunDriver::answerUnheard(bool isRight)
{
    m_window.updateMainwindow(positionOf(isRight));
}

int RunDriver::positionOf(bool isRight) const
{
    const int position = Probe::data(m_window).deviantPosition;
    return isRight ? position : 5 - position;
}
