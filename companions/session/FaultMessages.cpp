// SPDX-License-Identifier: GPL-3.0-or-later
// Messages about what cannot be recorded or heard.
#include "session/FaultMessages.h"

#include "app/MainWindow.h"
#include "output/CommandLine.h"
#include "session/FlightRecorder.h"
#include "subject/SubjectWindow.h"

#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>

namespace {

const char* const whatCanBeDone
    = "Go on: the listener may answer this trial, with a guess where it was not heard. The answer "
      "counts, and the record flags it. If the next trial is silent too, end the run and start the "
      "program again.\n\n"
      "End the run: closes the listener's window. What was answered is recorded.";

SubjectWindow& listenerOf(const MainWindow& window)
{
    return *window.findChildren<SubjectWindow*>().constLast();
}

const QScreen& screenForBoxes(const MainWindow& window)
{
    const QList<SubjectWindow*> listeners = window.findChildren<SubjectWindow*>();
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        if (!listeners.isEmpty() && screen != listeners.constLast()->screen()) {
            return *screen;
        }
    }
    return *QGuiApplication::primaryScreen();
}

// A line does not end between a number and its sign.
QString withNumbersKeptTogether(QString text)
{
    return text.replace(" %", QString(QChar(QChar::Nbsp)) + '%');
}

} // namespace

FaultMessages::FaultMessages(FlightRecorder& recorder, MainWindow& window, StandardStreams& streams)
    : m_recorder(recorder)
    , m_window(window)
    , m_streams(streams)
{
    connect(&recorder, &FlightRecorder::failed, this, [this](const QString& fault) {
        tell(fault, "The run goes on. What is not written is kept and tried again.");
    });
    connect(&recorder, &FlightRecorder::resultsFailed, this, [this](const QString& fault) {
        tell(fault,
            "The record has all trials: where no file is kept, quorin-report --rescue makes it.");
    });
    connect(&recorder, &FlightRecorder::soundFailed, this, [this](int trial) {
        tell(QString("The sound output failed in trial %1.").arg(trial),
            "The run goes on. The record tells which trials are concerned.");
    });
    connect(&recorder, &FlightRecorder::calibrationDiffers, this, [this](const QStringList& what) {
        tell("The calibration does not hold: " + what.join("; ") + '.',
            "The run goes on, and its record tells it.");
    });
    connect(&recorder, &FlightRecorder::trialLost, this, &FaultMessages::askAboutTrial);
    connect(&recorder, &FlightRecorder::recovered, this,
        [this] { m_streams.complain("recording again"); });
}

// Away from the listener's window, and without taking the keyboard from it.
QMessageBox* FaultMessages::makeBox(const QString& fault, const QString& consequence)
{
    m_streams.complain(fault);
    auto* const box = new QMessageBox(
        QMessageBox::Warning, "Recording", withNumbersKeptTogether(fault) + "\n\n" + consequence);
    connect(this, &QObject::destroyed, box, [box] { delete box; });
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setAttribute(Qt::WA_ShowWithoutActivating);
    box->setAttribute(Qt::WA_QuitOnClose, false); // what is in memory is saved at the end
    box->setModal(false);
    box->move(screenForBoxes(m_window).availableGeometry().topLeft());
    return box;
}

void FaultMessages::tell(const QString& fault, const QString& consequence)
{
    makeBox(fault, consequence)->show();
}

// The buttons act once the box is gone: closing the listener's window opens a box of its own.
void FaultMessages::askAboutTrial(int trial)
{
    if (m_question != nullptr) {
        uncoverQuestion();
        return;
    }
    m_question = makeBox(
        QString("The sound output failed in trial %1, which does not end by itself.").arg(trial),
        whatCanBeDone);
    const auto* const goesOn = m_question->addButton("Go on", QMessageBox::AcceptRole);
    const auto* const end = m_question->addButton("End the run", QMessageBox::DestructiveRole);
    SubjectWindow& listener = listenerOf(m_window);
    connect(goesOn, &QPushButton::clicked, this, &FaultMessages::goOn, Qt::QueuedConnection);
    connect(end, &QPushButton::clicked, &listener, &QWidget::close, Qt::QueuedConnection);
    connect(&listener, &SubjectWindow::subjectWindowClosed, m_question, &QObject::deleteLater);
    m_question->show();
    uncoverQuestion();
}

// A window that fills the screen lies in front of all others.
void FaultMessages::uncoverQuestion()
{
    SubjectWindow& listener = listenerOf(m_window);
    if (listener.isFullScreen() && m_question->screen() == listener.screen()) {
        m_wasFullScreen = true;
        listener.setWindowState(listener.windowState() & ~Qt::WindowFullScreen);
    }
    m_question->raise();
}

void FaultMessages::goOn()
{
    SubjectWindow& listener = listenerOf(m_window);
    if (m_wasFullScreen) {
        m_wasFullScreen = false;
        listener.setWindowState(listener.windowState() | Qt::WindowFullScreen);
    }
    bringListenerForward();
    m_recorder.endLostTrial();
}

// A click on a box has taken the keyboard.
void FaultMessages::bringListenerForward()
{
    SubjectWindow& listener = listenerOf(m_window);
    listener.raise();
    listener.activateWindow();
}
