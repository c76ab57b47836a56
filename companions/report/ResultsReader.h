// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Record.h"

#include <QByteArray>
#include <QString>
#include <QVector>

/// What is wrong with a file, and where.
struct Complaint {
    int line = 0; ///< from 1 on; 0 concerns the whole file
    QString text; ///< empty: nothing is wrong
};

/// The trials of a results file, or what keeps them from being read.
struct ResultsReading {
    int mainParameter = -1;
    QVector<Record> records; ///< values in the unit of the file: Hz or percent
    QVector<int> lines; ///< of each record
    Complaint complaint;
    Complaint
        secondHeader; ///< the first further header of the same main parameter, if there is one
};

/// Reads what writeResults wrote: a header and one line per record, all ended by CR LF, or all by
/// LF after a transfer that converts line ends. Everything else is damage: a field that the writer
/// would have written differently, positions beyond 1 to 4, a last line without its end, a line of
/// more than 4096 bytes, more than 100,000 trials, no trials. A further header of the same main
/// parameter is told apart, and the lines below it are read too. For what editors and spreadsheets
/// do to a file the text names the cause. Whether the lines follow from each other is not looked
/// at.
/// @param bytes of the whole file; read as far as its first damage
ResultsReading readResults(const QByteArray& bytes);
