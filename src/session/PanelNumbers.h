// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// How the panel shows the record's quantities, independent of the locale, and how it reads them
// back. Text that is no number reads as 0.

/// Frequencies in Hz, fixed notation with two decimals.
QString shownFrequency(double hertz);
double readFrequency(const QString& text);

/// Percent from a fraction, fixed notation with four decimals.
QString shownDepth(double depth);
double readDepth(const QString& text);

/// Hertz from a fraction of the standard's carrier, fixed notation with four decimals.
/// @param standardCarrier Hz; reading with 0 gives an infinite or undefined fraction
QString shownDifference(double difference, double standardCarrier);
double readDifference(const QString& text, double standardCarrier);

/// Milliseconds from seconds, fixed notation with two decimals.
QString shownDuration(double seconds);
double readDuration(const QString& text);

/// The sampling rate in Hz, up to six significant digits; it is read like a frequency.
QString shownRate(double hertz);

/// Whole numbers in base 10.
QString shownInteger(int number);
int readInteger(const QString& text);
