// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "report/Run.h"
#include "statistics/Inference.h"

#include <QVector>

/// The runs of each subject and condition (main parameter, sound, session type), as indices in the
/// order of subjects, conditions and session numbers. A run whose file's name does not tell its
/// subject stands alone; such runs come last, by path.
QVector<QVector<int>> byCondition(const QVector<Run>& runs);

/// The threshold of several runs of one main parameter, with its precision.
struct ThresholdEstimate {
    MeanEstimate inUnit; ///< of the thresholds in % or Hz
    MeanEstimate inDb; ///< of their levels in dB
    double geometricMean = 0.0; ///< in % or Hz, and the limits of its 95 % interval:
    double low = 0.0; ///< t interval of the levels, as values; NaN for a single run
    double high = 0.0;
};
Q_DECLARE_TYPEINFO(ThresholdEstimate, Q_MOVABLE_TYPE);

/// @param chosen indices of at least one run
ThresholdEstimate thresholdEstimate(const QVector<Run>& runs, const QVector<int>& chosen);
