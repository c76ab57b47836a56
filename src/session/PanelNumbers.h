// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// How the panel shows the record's quantities, always in fixed notation and independent of the
// locale, and how it reads them back. Text that is no number reads as 0.

/// Two decimals: frequencies in Hz.
QString shownFrequency(double hertz);
double readFrequency(const QString& text);

/// Percent with four decimals from a fraction.
QString shownDepth(double depth);
double readDepth(const QString& text);

/// Hertz with four decimals from a fraction of the standard's carrier.
/// @param standardCarrier Hz; reading with 0 gives an infinite or undefined fraction
QString shownDifference(double difference, double standardCarrier);
double readDifference(const QString& text, double standardCarrier);

/// Milliseconds with two decimals from seconds.
QString shownDuration(double seconds);
double readDuration(const QString& text);

/// Up to six significant digits: the sampling rate in Hz.
QString shownRate(double hertz);
double readRate(const QString& text);

/// Whole numbers in base 10.
QString shownInteger(int number);
int readInteger(const QString& text);
