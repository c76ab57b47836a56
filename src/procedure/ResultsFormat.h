// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class Data;
class QByteArray;
class QTextStream;

/// The header line of a results file without its line end: five names parted by tabs. Empty for a
/// main parameter other than the two.
QString resultsHeader(int mainParameter);

/// A number of the first column: fixed notation with 6 decimals; nan, inf or -inf if it is none.
/// @param shown frequency difference in Hz or modulation depth in percent
QString resultsNumber(double shown);

/// Writes the header and one line per record, each ended by CR LF. Nothing is written without
/// records, or for a main parameter other than the two. Reaction times are in ms in the stream's
/// own format for doubles, up to 6 significant digits.
void writeResults(QTextStream& stream, const Data& data);

/// The bytes of the results file that writeResults makes of a run: empty where it writes nothing.
QByteArray resultsBytes(const Data& data);
