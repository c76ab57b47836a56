// SPDX-License-Identifier: GPL-3.0-or-later
// A progress bar in the last line of a terminal.
#include "output/ProgressBar.h"

#include <QString>
#include <QTextStream>

namespace {

constexpr int width = 40;
constexpr qint64 percent = 100;
constexpr qint64 patienceMs = 1000;

} // namespace

ProgressBar::ProgressBar(QTextStream& stream, bool isTerminal)
    : m_stream(stream)
    , m_isTerminal(isTerminal)
{
}

void ProgressBar::show(qint64 done, qint64 total, qint64 elapsedMs)
{
    if (!m_isTerminal || elapsedMs < patienceMs) {
        return;
    }
    const int filled = static_cast<int>(done * width / total);
    m_stream << "\r[" << QString(filled, '#') << QString(width - filled, '.') << "] "
             << QString::number(done * percent / total).rightJustified(3) << " %";
    m_stream.flush();
    m_isShown = true;
}

void ProgressBar::clear()
{
    if (m_isShown) {
        m_stream << "\r\x1b[K";
        m_stream.flush();
        m_isShown = false;
    }
}
