// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// What the demonstration is told on its command line.
struct DemoOptions {
    QString folder; ///< where everything is left; absolute
    quint64 seed; ///< of the listener's answers
    int mainParameter; ///< carrierFrequencyParameter or modulationDepthParameter
    int reversals; ///< that end the run, 1 to 100
};

/// Reads the command line; --help prints the options and ends the program. Needs a
/// QCoreApplication.
/// @param errorText what is wrong with an argument; empty if the options can be used
DemoOptions demoOptions(const QStringList& arguments, QString& errorText);
