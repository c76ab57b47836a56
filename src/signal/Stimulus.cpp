// SPDX-License-Identifier: GPL-3.0-or-later
// One stimulus from the session record, and the level of the standard.
#include "signal/Stimulus.h"

#include "signal/SampleArithmetic.h"
#include "signal/SignalToolkit.h"
#include "signal/VectorRegisters.h"

#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

constexpr int blockLength = 256;

// The envelope times the amplitude, times the carrier, times the normalisation. A block's library
// calls come first: the arithmetic after them is then done on several samples at a time.
template <typename Carrier>
void fill(QVector<double>& sound, const Data& data, int stimulus, const Carrier& carrier)
{
    const Oscillation modulator = {data.mf[stimulus], data.fs, data.mfPhase[stimulus]};
    const double depth = data.md[stimulus];
    const double amplitude = data.amp[stimulus];
    const double normalisation = data.normalizeMd ? 1 / (depth + 1) : 1.0;
    QVarLengthArray<double, blockLength> carrierBlock(blockLength);
    int length = 0;
    for (int start = 0; start < sound.size(); start += length) {
        double* const block = sound.data() + start;
        length = std::min(blockLength, sound.size() - start);
        for (int k = 0; k < length; ++k) {
            block[k] = std::cos(modulator.angle(start + k));
            carrierBlock[k] = carrier(start + k);
        }
        for (int k = 0; k < length; ++k) {
            const double envelope = block[k] * depth + 1;
            block[k] = envelope * amplitude * carrierBlock[k] * normalisation;
        }
    }
}

double centredDraw()
{
    const double u = qrand() / largestDraw;
    return u + u - 1;
}

} // namespace

void synthesise(QVector<double>& sound, const Data& data, int stimulus)
{
    clearUpperVectorHalves();
    sound.resize(std::max(data.nSamples[stimulus], 0));
    const Oscillation tone = {data.cf[stimulus], data.fs, data.cfPhase[stimulus]};
    switch (data.soundType) {
    case sinusoidCarrier:
        fill(sound, data, stimulus, [&tone](int k) { return std::sin(tone.angle(k)); });
        break;
    case noiseCarrier:
        fill(sound, data, stimulus, [](int /*k*/) { return centredDraw(); });
        break;
    default:
        fill(sound, data, stimulus, [](int /*k*/) { return 0.0; });
    }
}

void equaliseLevels(QVector<double>& standardSound, const QVector<double>& deviantSound)
{
    if (standardSound.isEmpty()) {
        return;
    }
    const auto [deviantLevel, standardLevel] = rms(deviantSound, standardSound);
    const double factor = deviantLevel / standardLevel;
    for (double& sample : standardSound) {
        sample *= factor;
    }
}
