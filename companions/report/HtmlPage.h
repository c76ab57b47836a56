// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/LearningPicture.h"
#include "report/Run.h"
#include "report/SubjectFits.h"

#include <QByteArray>
#include <QVector>

#include <functional>

/// What a page shows beside the runs and their subjects.
struct PageParts {
    CurveAxis curves = CurveAxis::session;
    QVector<SubjectFit> fits;
    FitOptions fitOptions;
    std::function<void(int done, int total)> progress = [](int, int) {};
};

/// A self-contained page in UTF-8: what was read and by which program, the conditions of each
/// subject, flags with their meaning, the table of all runs, learning curves, fits and a picture of
/// each run. It needs nothing from elsewhere. Needs a QGuiApplication.
/// @param runs at least one
QByteArray htmlPage(const QVector<Run>& runs, const PageParts& parts);
