// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/ProgressBar.h"

#include <QElapsedTimer>

class QString;
class QTextStream;

/// What is said on standard error: a line for each thing, and on a terminal how far long work is.
class Messages {
public:
    /// @param isTerminal whether progress is shown
    Messages(QTextStream& errors, bool isTerminal);

    /// Something is wrong: the program's status will say so.
    void complain(const QString& what);
    /// Something that a user should know but that is not wrong.
    void note(const QString& what);
    /// Begins work whose progress may be shown.
    void begin();
    /// @param done of total parts
    void progress(int done, int total);
    /// Erases the progress.
    void end();

    /// Whether there was no complaint.
    bool isGood() const { return m_isGood; }

private:
    void say(const QString& what);

    QTextStream& m_errors;
    ProgressBar m_bar;
    QElapsedTimer m_timer;
    bool m_isGood = true;
};
