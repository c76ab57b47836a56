// SPDX-License-Identifier: GPL-3.0-or-later
// A tone or noise of a known level, from the functions of the experiment's own sounds.
#include "sound/CalibrationSound.h"

#include "app/PlayedSound.h"
#include "session/Counts.h"
#include "session/Data.h"
#include "session/Units.h"
#include "signal/SignalToolkit.h"
#include "signal/Stimulus.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

// Of an amplitude of 1: a tone's, and that of uniform noise.
double fullRms(const CalibrationSound& sound)
{
    return 1.0 / std::sqrt(sound.isNoise ? 3.0 : 2.0);
}

Data steadySound(const CalibrationSound& sound)
{
    Data data;
    data.soundType = sound.isNoise ? noiseCarrier : sinusoidCarrier;
    data.fs = sound.rate;
    data.dur[standard] = fromMs(sound.durationMs);
    data.nSamples[standard] = soundLength(data.fs, data.dur[standard]);
    data.cf[standard] = sound.frequency;
    data.md[standard] = 0.0;
    return data;
}

} // namespace

double highestLevelDb(const CalibrationSound& sound)
{
    return 20.0 * std::log10(fullRms(sound));
}

double raisedLevelDb(double levelDb, double stepDb, double highestDb)
{
    return std::min(levelDb + stepDb, highestDb);
}

QVector<double> calibrationSamples(const CalibrationSound& sound, double levelDb)
{
    QVector<double> samples;
    qsrand(1);
    synthesise(samples, steadySound(sound), standard);
    const double amplitude = std::pow(10.0, levelDb / 20.0) / fullRms(sound);
    for (double& sample : samples) {
        sample *= amplitude;
    }
    cosRamp(&samples, static_cast<int>(fromMs(calibrationRampMs) * sound.rate));
    return samples;
}

int channelsOf(Ear ear)
{
    return ear == Ear::both ? 1 : 2;
}

// PipeWire plays no last part that does not fill its quantum: the silence is what is lost.
QByteArray calibrationFrames(const QVector<double>& samples, Ear ear, int rate)
{
    constexpr double silence = 0.1; // s
    const int nChannels = channelsOf(ear);
    const int nFrames = samples.size() + static_cast<int>(silence * rate);
    QVector<double> frames(nFrames * nChannels, 0.0);
    const int channel = ear == Ear::right ? 1 : 0;
    for (int i = 0; i < samples.size(); ++i) {
        frames[i * nChannels + channel] = samples[i];
    }
    return encodedPcm(frames, frames.size());
}
