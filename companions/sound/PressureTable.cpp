// SPDX-License-Identifier: GPL-3.0-or-later
// The experiment's own sounds in dB SPL.
#include "sound/PressureTable.h"

#include "procedure/StaircaseRule.h"
#include "record/SoundLevels.h"
#include "session/AdaptedParameter.h"
#include "session/Counts.h"
#include "session/Data.h"

#include <algorithm>

using namespace quorin;

namespace {

constexpr int nameWidth = 26;
constexpr int cellWidth = 10;

struct Kind {
    const char* name;
    int soundType;
    int mainParameter;
};

constexpr Kind kinds[] = {
    {"noise, modulation depth", noiseCarrier, modulationDepthParameter},
    {"tone, modulation depth", sinusoidCarrier, modulationDepthParameter},
    {"tone, carrier frequency", sinusoidCarrier, carrierFrequencyParameter},
};

Data settingsOf(const Kind& kind, int rate)
{
    Data data;
    data.fs = rate;
    data.soundType = kind.soundType;
    data.mainParameter = kind.mainParameter;
    for (const int i : {standard, deviant}) {
        data.nSamples[i] = soundLength(data.fs, data.dur[i]);
    }
    resetDeviant(data);
    return data;
}

QString row(const QString& name, const QStringList& cells)
{
    QString text = name.leftJustified(nameWidth);
    for (const QString& cell : cells) {
        text += cell.rightJustified(cellWidth);
    }
    return text + '\n';
}

QString shown(double levelDb)
{
    return QString::number(levelDb, 'f', 1);
}

QString caveats(const CalibrationNote& note)
{
    QString text = "At the highest the modulation has almost gone. The other sound's levels hold "
                   "as far as the headphones are flat.\n";
    if (note.weighting != "Z") {
        text += QString("The meter weighted by %1: the levels are those of a sound that it weights "
                        "as it did the one that was played.\n")
                    .arg(note.weighting);
    }
    return text;
}

} // namespace

PressureTable pressureTable(const CalibrationNote& note)
{
    PressureTable table {row("dB SPL", {"standard", "deviant", "highest", "per Hz"}), 0.0};
    for (const Kind& kind : kinds) {
        const Data data = settingsOf(kind, note.rate);
        const LevelRange range = levelRange(data, 0.0, adaptedValue(data));
        const double standardDb = pressureLevelDb(note, range.startDb[standard]);
        const double highestDb = pressureLevelDb(note, range.highestDb);
        const bool isNoise = kind.soundType == noiseCarrier;
        table.text += row(kind.name,
            {shown(standardDb), shown(pressureLevelDb(note, range.startDb[deviant])),
                shown(highestDb),
                isNoise ? shown(spectrumLevelDb(standardDb, note.rate)) : QString("-")});
        table.highestDb = std::max(table.highestDb, highestDb);
    }
    table.text += caveats(note);
    return table;
}
