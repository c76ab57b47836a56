// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds of a trial, as they are played.
#include "sound/TrialSounds.h"

#include "app/PlayedSound.h"
#include "session/RandomDraws.h"
#include "signal/Stimulus.h"

#include <cstring>

using namespace quorin;

TrialSounds trialSounds(const Data& data, const Draws& draws)
{
    seedGenerator(draws.seed, draws.before);
    QVector<double> computed[2];
    synthesise(computed[standard], data, standard);
    synthesise(computed[deviant], data, deviant);
    if (data.equalizeRms) {
        equaliseLevels(computed[standard], computed[deviant]);
    }
    TrialSounds sounds;
    for (const int i : {standard, deviant}) {
        const QByteArray bytes = encodedPcm(computed[i], data.nSamples[i]);
        sounds.samples[i].resize(computed[i].size());
        std::memcpy(sounds.samples[i].data(), bytes.constData(), static_cast<size_t>(bytes.size()));
    }
    return sounds;
}
