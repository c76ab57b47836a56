// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/SubjectFits.h"

#include <QString>
#include <QStringList>

/// What the report is told on its command line.
struct ReportOptions {
    int nReversals = 14; ///< reversals after which the runs ended
    int nLast = 8; ///< how many of the last ones the threshold averages, at most nReversals
    QString csvPath; ///< empty: no such file; "-": standard output
    QString plotFolder; ///< empty: no pictures
    QString format = "png"; ///< of the pictures: png, svg or pdf
    bool isForced = false; ///< whether older tables and pictures may be replaced
    bool hasSummary = false;
    FitOptions fits;
    QStringList inputs; ///< files and folders

    enum Request { report, help, version, nothing };
    Request request = report; ///< nothing: the command line cannot be followed
    QString text; ///< the help, the version, or what is wrong
};

/// Reads the command line. Needs a QCoreApplication.
/// @param arguments the program's name first
ReportOptions reportOptions(const QStringList& arguments);
