// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/RunDriver.h"

#include "support/MainWindowProbe.h"

#include <QLineEdit>
#include <QPushButton>

using Probe = MainWindowProbe;

RunDriver::RunDriver(MainWindow& window)
    : m_window(window)
{
    Probe::lineEditSilentInterval(window)->setText("3600000.00");
}

SubjectWindow& RunDriver::open()
{
    Probe::pushButtonView(m_window)->click();
    Probe::pushButtonGo(m_window)->click();
    return *Probe::subjectWindow(m_window);
}

void RunDriver::beReady()
{
    Probe::pushButtonIAmReady(*Probe::subjectWindow(m_window))->click();
}

void RunDriver::startSound()
{
    m_window.playOneSound();
}

void RunDriver::endSound()
{
    m_window.handleStateChanged(QAudio::IdleState);
}

void RunDriver::playTrial()
{
    for (int i = 0; i < Probe::nSoundsPerTrial(m_window); ++i) {
        startSound();
        endSound();
    }
}

void RunDriver::answer(int position)
{
    SubjectWindow& subject = *Probe::subjectWindow(m_window);
    QPushButton* const button
        = position == 2 ? Probe::pushButtonChoice2(subject) : Probe::pushButtonChoice3(subject);
    button->click();
}

void RunDriver::answerRightly(bool isRight)
{
    const int position = Probe::data(m_window).deviantPosition;
    const int other = position == 2 ? 3 : 2;
    answer(isRight ? position : other);
}
