// SPDX-License-Identifier: GPL-3.0-or-later
// Where one is in a session, as a table of text.
#include "protocol/RunSheet.h"

#include "protocol/ProtocolColumns.h"

#include <QSet>

#include <algorithm>

using namespace quorin;

namespace {

bool isTheSameInAll(const QVector<ProtocolRow>& rows, int column)
{
    return std::all_of(rows.cbegin(), rows.cend(), [&rows, column](const ProtocolRow& row) {
        return row.texts[column] == rows[0].texts[column];
    });
}

QVector<int> differingSettings(const QVector<ProtocolRow>& rows)
{
    QVector<int> columns;
    for (int column = 0; column < nProtocolColumns; ++column) {
        const bool isShown
            = protocolColumn(column).widget != nullptr && column != sessionTypeColumn;
        if (isShown && !isTheSameInAll(rows, column)) {
            columns.append(column);
        }
    }
    return columns;
}

QString settingsText(const ProtocolRow& row, const QVector<int>& columns)
{
    QStringList settings;
    if (row.isPractice) {
        settings.append("practice");
    }
    for (const int column : columns) {
        const bool isChoice = protocolColumn(column).kind == CellKind::choice;
        const QString name = isChoice ? QString() : QString(protocolColumn(column).name) + ' ';
        if (row.isWritten[column]) {
            settings.append(name + row.texts[column]);
        }
    }
    return settings.join(", ");
}

QString stateOf(const ProtocolRun& run, const QSet<QString>& done, bool isNextKnown)
{
    if (done.contains(run.id)) {
        return "done";
    }
    return isNextKnown ? "open" : "next";
}

QString sheetLine(const QString& run, const QString& row, const QString& repeat,
    const QString& state, const QString& settings)
{
    constexpr int numberWidth = 5;
    constexpr int repeatWidth = 8;
    constexpr int stateWidth = 7; // as wide as its heading, with a gap
    const QString numbers = run.rightJustified(numberWidth) + row.rightJustified(numberWidth)
        + repeat.rightJustified(repeatWidth) + "  ";
    return numbers + (state.leftJustified(stateWidth) + settings).trimmed() + '\n';
}

} // namespace

QString runSheet(
    const Protocol& protocol, const QVector<ProtocolRun>& runs, const QStringList& completed)
{
    const QVector<int> columns = differingSettings(protocol.rows);
    QString sheet = sheetLine("run", "row", "repeat", "state", "settings");
    const QSet<QString> done(completed.cbegin(), completed.cend());
    bool isNextKnown = false;
    for (int i = 0; i < runs.size(); ++i) {
        const ProtocolRun& run = runs[i];
        const QString state = stateOf(run, done, isNextKnown);
        isNextKnown = isNextKnown || state == "next";
        if (!run.breakText.isEmpty()) {
            sheet += "      (break)\n";
        }
        sheet += sheetLine(QString::number(i + 1), QString::number(run.row + 1),
            QString::number(run.repeat), state, settingsText(protocol.rows[run.row], columns));
    }
    return sheet;
}
