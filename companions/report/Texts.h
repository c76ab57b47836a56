// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// A number with up to 6 significant digits, as the application shows results; "-" for NaN.
QString shown(double number);

/// A time in ms without the decimals that were not measured: whole; "-" for NaN.
QString shownTime(double ms);

/// A text on one line: control characters, which a file's name may have, become question marks.
QString onOneLine(QString text);

/// The rows as lines of aligned columns, two blanks apart, each line with its end.
/// @param rows  the headings first, all of the same length
/// @param nLeft, nLeftAtEnd so many columns at the left and at the right are left-aligned, the
///              others right-aligned
QString alignedTable(const QVector<QStringList>& rows, int nLeft, int nLeftAtEnd = 0);
