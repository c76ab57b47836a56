// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// The text that tells the listener the result of a run; numbers with up to 6 significant digits.
/// @param threshold        a fraction: of full modulation, or of the standard's carrier frequency
/// @param reactionTime     mean over all trials, ms
/// @param mainParameter    any value but the two parameters' gives an empty text
/// @param carrierFrequency of the standard, Hz
QString resultText(
    double threshold, double reactionTime, int mainParameter, double carrierFrequency);
