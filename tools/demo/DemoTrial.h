// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// One trial of the demonstration, from the listener's side.
struct DemoTrial {
    QString value; ///< of the deviant, as the panel shows it
    int heard; ///< interval in which the listener heard the deviant, 2 or 3
    int answer; ///< interval that the listener chose, 2 or 3

    bool isRight() const { return heard == answer; }
};

/// Trials whose answer is right after a wrong one, or wrong after a right one.
int reversals(const QVector<DemoTrial>& trials);

/// The line that reports the last of these trials.
/// @param unit of the value, such as "%"; with at least one trial
QString progressLine(const QVector<DemoTrial>& trials, const QString& unit);

/// Compares a results file with what the listener heard and answered.
/// @param file the whole file, with its header line
/// @return what disagrees first; empty if nothing does
QString disagreement(const QByteArray& file, const QVector<DemoTrial>& trials);
