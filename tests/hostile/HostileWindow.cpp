// SPDX-License-Identifier: GPL-3.0-or-later
// A window that gets bad input, step by step, and the time that each step takes.
#include "hostile/HostileWindow.h"

#include "hostile/ProcessUse.h"
#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPushButton>

HostileWindow::HostileWindow(bool isShown, int transformLength)
    : m_driver(m_window)
{
    Probe::fftLength(m_window) = {transformLength, transformLength};
    m_window.setVisible(isShown);
}

void HostileWindow::type(const PanelField& field, const HostileText& text)
{
    checkBoxOf(m_window, "checkBoxResetMdFd")->setChecked(false);
    step(field.name, [&] { ::type(m_window, field.name, text.text); });
    perform('V');
    perform('E');
}

void HostileWindow::undergo(const Combination& combination)
{
    choose(combination);
    for (const auto& entry : combination.texts) {
        step(entry.first.name, [&] { ::type(m_window, entry.first.name, entry.second.text); });
    }
    for (const QChar letter : combination.steps)
        perform(letter);
}

void HostileWindow::choose(const Combination& combination)
{
    comboBoxOf(m_window, "comboBoxSesType")->setCurrentIndex(combination.sesType);
    comboBoxOf(m_window, "comboBoxSoundType")->setCurrentIndex(combination.soundType);
    comboBoxOf(m_window, "comboBoxMainParameter")->setCurrentIndex(combination.mainParameter);
    checkBoxOf(m_window, "checkBoxResetMdFd")->setChecked(combination.resetsDeviant);
    checkBoxOf(m_window, "checkBoxSaveData")->setChecked(combination.saves);
}

void HostileWindow::perform(QChar letter)
{
    step(letter, [&] {
        switch (letter.unicode()) {
        case 'V':
            buttonOf(m_window, "pushButtonView")->click();
            break;
        case 'G':
            buttonOf(m_window, "pushButtonGo")->click();
            break;
        case 'E':
            QCoreApplication::processEvents();
            break;
        default:
            performInRun(letter);
        }
    });
}

void HostileWindow::performInRun(QChar letter)
{
    switch (letter.unicode()) {
    case 'R':
        m_driver.beReady();
        break;
    case 't':
        m_driver.startSound();
        break;
    case 'i':
        m_driver.endSound();
        break;
    case 's':
        m_window.handleStateChanged(QAudio::StoppedState);
        break;
    case 'N':
        closeSubject(QMessageBox::No);
        break;
    case 'C':
        closeSubject(QMessageBox::Yes);
        break;
    default:
        m_driver.answer(letter.digitValue());
    }
}

void HostileWindow::closeSubject(QMessageBox::StandardButton answer)
{
    m_boxes.answerNext(answer);
    Probe::subjectWindow(m_window)->close();
}

WindowState HostileWindow::stateWhenMended()
{
    typeGoodTexts(m_window);
    qsrand(1);
    perform('V');
    return stateOf(m_window);
}

WindowState HostileWindow::stateAfterATrial()
{
    stateWhenMended();
    perform('G');
    perform('R');
    m_driver.playTrial();
    Probe::timerReaction(m_window)->invalidate(); // the answer counts 0 ms
    m_driver.answerRightly(true);
    WindowState state = stateOf(m_window);
    perform('C');
    return state;
}

void HostileWindow::step(const QString& name, const std::function<void()>& action)
{
    const double start = processorSeconds();
    action();
    const double seconds = processorSeconds() - start;
    if (seconds > m_longestStep) {
        m_longestStep = seconds;
        m_longestStepName = name;
    }
}
