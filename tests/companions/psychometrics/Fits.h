// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "psychometrics/PsychometricFit.h"
#include "psychometrics/PsychometricFunction.h"

#include <QMetaType>

Q_DECLARE_METATYPE(FitShape)
Q_DECLARE_METATYPE(LapseLimits)
Q_DECLARE_METATYPE(PsychometricFunction)

constexpr LapseLimits fittedLapses {0.0, 0.06};
