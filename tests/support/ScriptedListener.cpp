// SPDX-License-Identifier: GPL-3.0-or-later
// A listener who answers from a list, by clicks.
#include "support/ScriptedListener.h"

#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <utility>

using namespace quorin;

ScriptedListener::ScriptedListener(MainWindow& window, QString answers)
    : m_window(window)
    , m_answers(std::move(answers))
{
    connect(&window, SIGNAL(soundPlaying(int)), this, SLOT(hear(int)));
    // clang-format off
    connect(&window, SIGNAL(doneDataCollection(qreal,qreal,qint32,qreal)), this, SLOT(finish()));
    // clang-format on
}

void ScriptedListener::startRun()
{
    QTest::mouseClick(buttonOf(m_window, "pushButtonView"), Qt::LeftButton);
    QTest::mouseClick(buttonOf(m_window, "pushButtonGo"), Qt::LeftButton);
    SubjectWindow& listener = *Probe::subjectWindow(m_window);
    QTest::mouseClick(buttonOf(listener, "pushButtonIAmReady"), Qt::LeftButton);
}

void ScriptedListener::hear(int state)
{
    if (state == 1) {
        const bool correct = m_answers[m_trials.size() % m_answers.size()] == 'c';
        m_trials.append(
            {Probe::stimuli(m_window)[standard].samples, Probe::stimuli(m_window)[deviant].samples,
                Probe::data(m_window).deviantPosition, correct});
    } else if (state == -1 && m_trials.size() == m_lastTrial) {
        m_hasFinished = true;
    } else if (state == -1) {
        QTimer::singleShot(0, this, SLOT(answer()));
    }
}

void ScriptedListener::answer()
{
    SubjectWindow& listener = *Probe::subjectWindow(m_window);
    const Trial& trial = m_trials.last();
    const bool answersTwo = (trial.deviantPosition == 2) == trial.correct;
    QTest::mouseClick(answersTwo ? buttonOf(listener, "pushButtonChoice2")
                                 : buttonOf(listener, "pushButtonChoice3"),
        Qt::LeftButton);
}

void ScriptedListener::finish()
{
    m_hasFinished = true;
}
