// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// Which intervals of a trial hold the deviant: all false but the entry at deviantPosition - 1.
/// @param nSounds         sounds of the trial, at least deviantPosition
/// @param deviantPosition interval of the deviant, counted from 1
QVector<bool> trialSequence(int nSounds, int deviantPosition);

/// The time from one sound's onset to the next: silentInterval * 1000 + the longer duration * 1000,
/// truncated to whole ms and limited to 1 to INT_MAX.
/// @param silentInterval s; NaN gives 1
/// @param durations      of standard and deviant, s; NaN for the standard gives 1, for the deviant
///                       leaves the standard's as the longer
int trialPeriodMs(double silentInterval, const QVector<double>& durations);

/// The silent interval in whole ms, truncated, from 1 to INT_MAX.
/// @param silentInterval s; NaN gives 1
int silentIntervalMs(double silentInterval);

/// How long the pacing timer may wait for the report that the fourth sound has ended: a period and
/// 5 s, at most INT_MAX ms. Sound servers report an end 10 to 30 ms late and more, and a tick
/// before the report would start a fifth sound.
int endReportTimeoutMs(int periodMs);
