// SPDX-License-Identifier: GPL-3.0-or-later
// From one run of a study to the next.
#include "session/StudyCourse.h"

#include "app/MainWindow.h"
#include "protocol/ProtocolRow.h"
#include "session/PanelFields.h"
#include "session/TextWindow.h"
#include "subject/SubjectWindow.h"

#include <QLineEdit>
#include <QPushButton>

#include <utility>

StudyCourse::StudyCourse(MainWindow& window, Study study, bool pressesGo)
    : m_window(window)
    , m_study(std::move(study))
    , m_pressesGo(pressesGo)
{
    connect(window.findChild<QPushButton*>("pushButtonView"), &QPushButton::clicked, this,
        [this] { m_viewed = panelTexts(m_window); });
    connect(window.findChild<QPushButton*>("pushButtonGo"), &QPushButton::clicked, this,
        &StudyCourse::begin);
    connect(&window, &MainWindow::doneDataCollection, this, [this] { m_hasResults = true; });
}

void StudyCourse::start()
{
    emit told(progressOf(m_study));
    offer();
}

std::optional<ProtocolPlace> StudyCourse::place() const
{
    const bool isOurs = panelTexts(m_window) == m_panel && m_viewed == m_panel;
    return isOurs ? std::optional(placeIn(m_study, m_run)) : std::nullopt;
}

void StudyCourse::offer()
{
    const ProtocolRun next = runsLeft(m_study.runs, m_study.completed).constFirst();
    m_isAgain = next.id == m_run.id;
    m_run = next;
    const ProtocolRow& row = m_study.file.protocol.rows[m_run.row];
    m_window.findChild<QLineEdit*>("lineEditSubCode")->setText(m_study.subject);
    fillPanel(m_window, panelSettings(row));
    m_window.findChild<QPushButton*>("pushButtonView")->click();
    m_panel = panelTexts(m_window);
    m_texts = QStringList {m_isAgain ? QString() : m_run.breakText, row.instruction};
    m_texts.removeAll(QString());
    showTexts();
}

void StudyCourse::showTexts()
{
    if (!m_texts.isEmpty()) {
        auto* const text = new TextWindow(m_texts.takeFirst(), &m_window);
        connect(text, &TextWindow::closed, this, &StudyCourse::showTexts, Qt::QueuedConnection);
        text->show();
    } else if (m_pressesGo && !m_isAgain) {
        m_window.findChild<QPushButton*>("pushButtonGo")->click();
    }
}

void StudyCourse::begin()
{
    m_isOurs = place().has_value();
    m_hasResults = false;
    if (!m_isOurs) {
        emit told("The settings at View or at Go are not those of " + m_run.id
            + ": this run is recorded, but it does not count.\n");
    }
    // Queued: the listener's window is still there when it tells.
    connect(m_window.findChildren<SubjectWindow*>().constLast(),
        &SubjectWindow::subjectWindowClosed, this, &StudyCourse::goOn, Qt::QueuedConnection);
}

void StudyCourse::goOn()
{
    if (!countRun()) {
        emit told(m_run.id + " was not completed: it is offered again.\n");
        offer();
        return;
    }
    emit told(progressOf(m_study));
    if (runsLeft(m_study.runs, m_study.completed).isEmpty()) {
        emit finished();
    } else {
        offer();
    }
}

bool StudyCourse::countRun()
{
    const bool counts = m_isOurs && m_hasResults;
    m_isOurs = false;
    if (counts) {
        m_study.completed.append(m_run.id);
    }
    return counts;
}
