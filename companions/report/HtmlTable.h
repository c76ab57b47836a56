// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

/// Rows as an element table inside a box that scrolls, in UTF-8.
/// @param rows  the headings first, all of the same length
/// @param nLeft, nLeftAtEnd columns of text at the left and at the right; the others are numbers
QByteArray htmlTable(const QVector<QStringList>& rows, int nLeft, int nLeftAtEnd = 0);
