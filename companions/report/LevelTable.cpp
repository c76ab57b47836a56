// SPDX-License-Identifier: GPL-3.0-or-later
// The sound pressure levels of the runs that have a calibration.
#include "report/LevelTable.h"

#include "report/Texts.h"

using namespace quorin;

namespace {

QString decibels(double level)
{
    return QString::number(level, 'f', 1);
}

QStringList levelRow(const Run& run)
{
    const RunLevels& levels = *run.levels;
    const CalibrationNote& note = levels.calibration.note;
    const bool isNoise = run.data.soundType == noiseCarrier;
    const bool holds = levels.calibration.differences.isEmpty();
    return {onOneLine(run.fileName), decibels(levels.startDb), decibels(levels.lowestDb),
        decibels(levels.highestDb),
        isNoise ? decibels(spectrumLevelDb(levels.startDb, run.data.fs)) : QString("-"),
        decibels(note.levelDb), decibels(note.readingDb), note.weighting, holds ? "yes" : "no",
        onOneLine(levels.calibration.file)};
}

} // namespace

QVector<QStringList> levelRows(const QVector<Run>& runs)
{
    QVector<QStringList> rows;
    for (const Run& run : runs) {
        if (run.levels) {
            rows.append(levelRow(run));
        }
    }
    if (!rows.isEmpty()) {
        rows.prepend({"run", "start", "lowest", "highest", "per Hz", "digital", "meter",
            "weighting", "holds", "note"});
    }
    return rows;
}

QString levelTable(const QVector<Run>& runs)
{
    const QVector<QStringList> rows = levelRows(runs);
    return rows.isEmpty() ? QString()
                          : "\nlevels by the calibration notes in dB SPL; per Hz: at the start\n\n"
            + alignedTable(rows, levelRowsLeft, levelRowsLeftAtEnd);
}
