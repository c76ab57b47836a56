// SPDX-License-Identifier: GPL-3.0-or-later
// How much of a sound is played: PipeWire's quantum, resamplers, and the longest sound.
#include "sound/LengthCheck.h"

#include "session/Counts.h"
#include "session/Units.h"

#include <cmath>

using namespace quorin;

namespace {

constexpr int smallQuantum = 128; // with less, single sounds had pauses: docs/timing.md

QString quantumCommand(int quantum)
{
    return QString("pw-metadata -n settings 0 clock.force-quantum %1").arg(quantum);
}

CheckLine quantumLine(const PipeWireSettings& settings, int rate)
{
    const int quantum = settings.quantumAt(rate);
    if (quantum == 0) {
        return {Verdict::look, "quantum", "unknown",
            "How much of a sound's end is lost cannot be told.",
            "install pw-metadata: apt install pipewire-bin"};
    }
    const QString finding
        = QString("%1 samples (%2 ms)").arg(quantum).arg(inMs(double(quantum) / rate), 0, 'f', 1);
    if (quantum > smallQuantum) {
        return {Verdict::look, "quantum", finding,
            "The end of a sound that does not fill a quantum is not played.",
            quantumCommand(smallQuantum)};
    }
    if (quantum < smallQuantum) {
        return {Verdict::look, "quantum", finding,
            "So small a quantum leaves little time: single sounds may have pauses.",
            quantumCommand(smallQuantum)};
    }
    return {Verdict::fine, "quantum", finding, {}, {}};
}

/// The rate at which PipeWire handles sounds of a rate. Hz.
int graphRate(const SoundPath& path, int rate)
{
    const int running = path.pipeWire->rateFor(rate);
    return running > 0 ? running : path.outputs.last().rate;
}

/// Samples of a sound at another rate.
int samplesAt(int rate, const CheckedSettings& settings)
{
    const double n = soundLength(settings.rate, fromMs(settings.durationMs));
    return qRound(n * rate / settings.rate);
}

QString lossRemedy(int nSamples, int quantum, int rate)
{
    if (nSamples % smallQuantum == 0 && quantum > smallQuantum) {
        return quantumCommand(smallQuantum);
    }
    constexpr int digits = 10;
    const int whole = (nSamples / smallQuantum + 1) * smallQuantum;
    const QString duration = QString("type a duration of whole quanta, such as %1 ms")
                                 .arg(inMs(double(whole) / rate), 0, 'g', digits);
    return quantum > smallQuantum ? quantumCommand(smallQuantum) + "; and " + duration : duration;
}

// What each of PulseAudio's resamplers keeps back was measured: docs/timing.md.
CheckLine resampledEndLine(int outputRate)
{
    return {Verdict::look, "end of a sound", "the last 0.2 to 6 ms are lost",
        "They are still in the resampler; quorin-sound measure tells how many.",
        QString("type %1 in the panel's \"Sampling rate\"").arg(outputRate)};
}

CheckLine endLine(const SoundPath& path, const CheckedSettings& settings)
{
    if (!path.pipeWire) {
        const int other = path.otherRate(settings.rate);
        return other == settings.rate
            ? CheckLine {Verdict::fine, "end of a sound", "played", {}, {}}
            : resampledEndLine(other);
    }
    const int rate = graphRate(path, settings.rate);
    const int quantum = path.pipeWire->quantumAt(rate);
    const int nSamples = samplesAt(rate, settings);
    if (quantum == 0) {
        return {Verdict::look, "end of a sound", "unknown", {}, {}};
    }
    const int nLost = nSamples % quantum;
    if (nLost == 0) {
        return {Verdict::fine, "end of a sound", "played",
            QString("%1 samples are whole quanta.").arg(nSamples), {}};
    }
    return {Verdict::stop, "end of a sound",
        QString("the last %1 of %2 samples are lost").arg(nLost).arg(nSamples),
        QString("PipeWire does not play what is less than a quantum: each sound ends %1 ms early.")
            .arg(inMs(double(nLost) / rate), 0, 'f', 1),
        lossRemedy(nSamples, quantum, rate)};
}

CheckLine lengthLine(const CheckedSettings& settings)
{
    const double wanted = std::floor(settings.rate * fromMs(settings.durationMs));
    const int nSamples = soundLength(settings.rate, fromMs(settings.durationMs));
    const QString finding = QString("%1 samples").arg(nSamples);
    if (wanted > nSamples) {
        return {Verdict::stop, "length", finding,
            "The sound does not fit: it is cut at this many samples.",
            QString("type a duration of at most %1 ms")
                .arg(std::floor(inMs(double(longestSound) / settings.rate)), 0, 'f', 0)};
    }
    return {Verdict::fine, "length", finding, {}, {}};
}

} // namespace

QVector<CheckLine> lengthLines(const SoundPath& path, const CheckedSettings& settings)
{
    QVector<CheckLine> lines;
    if (path.pipeWire) {
        lines.append(quantumLine(*path.pipeWire, graphRate(path, settings.rate)));
    }
    return lines << endLine(path, settings) << lengthLine(settings);
}
