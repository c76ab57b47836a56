// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

namespace quorin {

/// The columns that a protocol may have, in the order of the panel's fields.
enum ProtocolColumnIndex {
    sessionTypeColumn,
    soundTypeColumn,
    mainParameterColumn,
    standardCarrierColumn,
    deviantCarrierColumn,
    standardModulationColumn,
    deviantModulationColumn,
    standardDepthColumn,
    deviantDepthColumn,
    standardDifferenceColumn,
    deviantDifferenceColumn,
    standardDurationColumn,
    deviantDurationColumn,
    reversalsColumn,
    reversalsToCalculateColumn,
    silentIntervalColumn,
    samplingRateColumn,
    sessionColumn,
    resetColumn,
    saveDataColumn,
    repeatColumn,
    practiceColumn,
    breakColumn,
    instructionColumn,
    nProtocolColumns
};

} // namespace quorin

/// What a cell of a column holds.
enum class CellKind { choice, number, wholeNumber, yesOrNo, text };

/// A column of a protocol and where its cells go.
struct ProtocolColumn {
    const char* name; ///< heading in the file
    const char* widget; ///< object name of the panel's field; null: it goes into none
    CellKind kind;
    const char* unit; ///< of its numbers; empty without any
};

/// @param column 0 to nProtocolColumns - 1
const ProtocolColumn& protocolColumn(int column);

/// The column with this heading, whatever its case; -1 if there is none.
int protocolColumnIndex(const QString& heading);

/// The texts of a row of empty cells: those of the panel as it opens, where a field of the panel is
/// meant, "1" for the repeats, "no" for practice, no break and no instruction.
QVector<QString> emptyRowTexts();

/// The names that a choice is made from; empty for other columns.
QStringList choicesOf(int column);
