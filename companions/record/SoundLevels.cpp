// SPDX-License-Identifier: GPL-3.0-or-later
// Levels of a trial's sounds, and of a run's.
#include "record/SoundLevels.h"

#include "session/AdaptedParameter.h"
#include "session/Data.h"
#include "signal/SignalToolkit.h"
#include "signal/Stimulus.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

double decibels(double rootMeanSquare)
{
    return 20.0 * std::log10(rootMeanSquare);
}

std::array<double, 2> levelsAtValue(Data data, double value)
{
    setAdaptedValue(data, value);
    return trialLevelsDb(data);
}

} // namespace

std::array<double, 2> trialLevelsDb(const Data& data)
{
    qsrand(1);
    QVector<double> standardSound;
    QVector<double> deviantSound;
    synthesise(standardSound, data, standard);
    synthesise(deviantSound, data, deviant);
    if (data.equalizeRms) {
        equaliseLevels(standardSound, deviantSound);
    }
    return {decibels(rms(standardSound)), decibels(rms(deviantSound))};
}

double pressureLevelDb(const CalibrationNote& note, double levelDb)
{
    return note.readingDb + (levelDb - note.levelDb);
}

double spectrumLevelDb(double levelDb, double rate)
{
    return levelDb - 10.0 * std::log10(rate / 2.0);
}

LevelRange levelRange(const Data& data, double smallest, double largest)
{
    const std::array<double, 2> start = trialLevelsDb(data);
    const std::array<double, 2> atSmallest = levelsAtValue(data, smallest);
    const std::array<double, 2> atLargest = levelsAtValue(data, largest);
    const auto all = {start[standard], start[deviant], atSmallest[standard], atSmallest[deviant],
        atLargest[standard], atLargest[deviant]};
    return {start, std::min(all), std::max(all)};
}
