// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/CommandLine.h"
#include "report/LearningPicture.h"
#include "report/RunCollection.h"
#include "report/SubjectFits.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the report is told on its command line.
struct ReportOptions {
    RunDemand runs;
    std::optional<double> carrier; ///< of the standard, Hz: what differences are a share of
    QString csvPath; ///< empty: no such file; "-": standard output
    QString trialsPath; ///< the same of the table of all trials
    QString plotFolder; ///< empty: no pictures
    QString format = "png"; ///< of the pictures: png, svg or pdf
    bool isForced = false; ///< whether older tables and pictures may be replaced
    bool hasSummary = false;
    QStringList groupKeys; ///< by which runs are grouped; empty: no groups
    CurveAxis curves = CurveAxis::session;
    FitOptions fits;
    QString htmlPath; ///< empty: no page
    bool isRescue = false; ///< whether the inputs are records to rescue, and nothing else is asked
    std::optional<Answer> answer; ///< in place of the report
};

/// Reads the command line. Needs a QCoreApplication.
/// @param arguments the program's name first
ReportOptions reportOptions(const QStringList& arguments);
