// SPDX-License-Identifier: GPL-3.0-or-later
// What was measured of a path as tables.
#include "sound/MeasureTable.h"

#include "session/Units.h"
#include "sound/ShownFigures.h"

#include <QStringList>

#include <cmath>

using namespace quorin;

namespace {

constexpr double steepHz = 16000.0; // above it every resampler loses something

QString lossText(double nLost, int rate)
{
    constexpr double wholeSample = 1.0; // edges of a resampled sound lie between samples
    if (std::abs(nLost) < wholeSample) {
        return "whole";
    }
    return QString("%1 samples (%2 ms) %3")
        .arg(shown(std::abs(nLost), 0), shown(inMs(std::abs(nLost) / rate), 1),
            nLost > 0.0 ? "missing" : "too long");
}

QString line(const QString& name, const QString& finding)
{
    constexpr int nameWidth = 32;
    return name.leftJustified(nameWidth) + finding + '\n';
}

} // namespace

QString measureTable(const MeasuredPath& path, const PathMeasurement& measurement)
{
    constexpr int width = 12;
    QString table
        = QString("sounds %1 Hz, output %2 Hz\n").arg(path.playedRate).arg(path.outputRate);
    for (const char* const heading : {"tone (Hz)", "level (dB)", "image (dB)", "at (Hz)"}) {
        table += QString(heading).rightJustified(width);
    }
    table += '\n';
    for (const ToneFigures& tone : measurement.tones) {
        for (const QString& cell : {shown(tone.frequency, 0), shown(tone.levelDb, decibelDecimals),
                 shown(tone.imageDb, 1), shown(tone.imageHz, 0)}) {
            table += cell.rightJustified(width);
        }
        table += '\n';
    }
    const double loss = largestLossDb(measurement.tones, steepHz);
    const QString sound = QString(" of a sound of %1 ms").arg(path.durationMs);
    return table
        + line(
            "samples", measurement.isExact ? "as they were played, bit for bit" : "computed anew")
        + line(
            QString("largest loss up to %1 Hz").arg(steepHz), shown(loss, decibelDecimals) + " dB")
        + line("begin" + sound, lossText(measurement.lost.atBegin, path.outputRate))
        + line("end" + sound, lossText(measurement.lost.atEnd, path.outputRate));
}

QString measureHeadings()
{
    return "sounds (Hz),output (Hz),tone (Hz),level (dB),image (dB),at (Hz),"
           "lost at begin (samples),lost at end (samples)";
}

QString measureRows(const MeasuredPath& path, const PathMeasurement& measurement)
{
    QString rows;
    for (const ToneFigures& tone : measurement.tones) {
        const QStringList cells {QString::number(path.playedRate), QString::number(path.outputRate),
            shown(tone.frequency, 0), shown(tone.levelDb, decibelDecimals), shown(tone.imageDb, 1),
            shown(tone.imageHz, 0), shown(measurement.lost.atBegin, 1),
            shown(measurement.lost.atEnd, 1)};
        rows += cells.join(',') + '\n';
    }
    return rows;
}
