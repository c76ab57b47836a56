// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

class QTextStream;

/// A bar in the last line of a terminal, for work that takes longer than a second.
class ProgressBar {
public:
    /// @param isTerminal nothing is ever written otherwise
    ProgressBar(QTextStream& stream, bool isTerminal);

    /// Draws the bar over its last state, unless the work has taken less than a second.
    /// @param done of total, 0 to total
    void show(qint64 done, qint64 total, qint64 elapsedMs);
    /// Erases the bar, if it was drawn.
    void clear();

private:
    QTextStream& m_stream;
    bool m_isTerminal;
    bool m_isShown = false;
};
