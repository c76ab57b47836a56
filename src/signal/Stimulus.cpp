// SPDX-License-Identifier: GPL-3.0-or-later
// One stimulus from the session record, and the level of the standard.
#include "signal/Stimulus.h"

#include "signal/SampleArithmetic.h"
#include "signal/SignalToolkit.h"
#include "signal/VectorRegisters.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

void fillWithCarrier(QVector<double>& sound, const Data& data, int stimulus)
{
    const Oscillation tone = {data.cf[stimulus], data.fs, data.cfPhase[stimulus]};
    double* const samples = sound.data();
    switch (data.soundType) {
    case sinusoidCarrier:
        for (int k = 0; k < sound.size(); ++k) {
            samples[k] = std::sin(tone.angle(k));
        }
        break;
    case noiseCarrier:
        for (int k = 0; k < sound.size(); ++k) {
            const double u = qrand() / largestDraw;
            samples[k] = u + u - 1;
        }
        break;
    default:
        sound.fill(0.0);
    }
}

// The envelope times the amplitude, times the carrier, times the normalisation.
void modulate(QVector<double>& sound, const Data& data, int stimulus)
{
    const Oscillation modulator = {data.mf[stimulus], data.fs, data.mfPhase[stimulus]};
    const double depth = data.md[stimulus];
    const double amplitude = data.amp[stimulus];
    const double normalisation = data.normalizeMd ? 1 / (depth + 1) : 1.0;
    double* const samples = sound.data();
    for (int k = 0; k < sound.size(); ++k) {
        const double envelope = std::cos(modulator.angle(k)) * depth + 1;
        samples[k] = envelope * amplitude * samples[k] * normalisation;
    }
}

} // namespace

void synthesise(QVector<double>& sound, const Data& data, int stimulus)
{
    clearUpperVectorHalves();
    sound.resize(std::max(data.nSamples[stimulus], 0));
    fillWithCarrier(sound, data, stimulus);
    modulate(sound, data, stimulus);
}

void equaliseLevels(QVector<double>& standardSound, const QVector<double>& deviantSound)
{
    if (standardSound.isEmpty()) {
        return;
    }
    const double factor = rms(deviantSound) / rms(standardSound);
    for (double& sample : standardSound) {
        sample *= factor;
    }
}
