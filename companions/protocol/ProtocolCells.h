// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

namespace quorin {

/// The longest break text and instruction, in characters.
constexpr int longestText = 2000;

} // namespace quorin

/// What is wrong with a cell by itself, whatever the other cells of its row; empty: nothing.
/// @param column of the cell, ProtocolColumnIndex
/// @param text   that is not empty
QString cellComplaint(int column, const QString& text);

/// What is wrong with the size of a row's number; empty: nothing, or not the column of a number.
/// @param texts of all columns; every number can be read
QString rangeComplaint(int column, const QVector<QString>& texts);

/// A text in quotation marks, cut after 40 characters.
QString quotedStart(const QString& text);
