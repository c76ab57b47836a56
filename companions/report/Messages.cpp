// SPDX-License-Identifier: GPL-3.0-or-later
// Errors, notes and progress on standard error.
#include "report/Messages.h"

#include "report/Texts.h"

#include <QTextStream>

Messages::Messages(QTextStream& errors, bool isTerminal)
    : m_errors(errors)
    , m_bar(errors, isTerminal)
{
}

void Messages::complain(const QString& what)
{
    say(what);
    m_isGood = false;
}

void Messages::note(const QString& what)
{
    say(what);
}

void Messages::say(const QString& what)
{
    m_bar.clear();
    m_errors << onOneLine(what) << '\n';
    m_errors.flush();
}

void Messages::begin()
{
    m_timer.start();
}

void Messages::progress(int done, int total)
{
    m_bar.show(done, total, m_timer.elapsed());
}

void Messages::end()
{
    m_bar.clear();
}
