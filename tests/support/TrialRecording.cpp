// SPDX-License-Identifier: GPL-3.0-or-later
// A recording compared with the sounds of a run's trials.
#include "support/TrialRecording.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr int soundsPerTrial = 4;

// With no silence between two sounds their ends overlap by the server's blocks, or more when the
// machine is busy: the sums round, by less than this at sample values up to 1.
constexpr float overlapTolerance = 1e-6F;

// Where a sound begins in what the earlier sounds leave of the recording: the first place where its
// first eighth fits, since the next sound may overlap the rest.
int onset(const QVector<float>& rest, const QVector<float>& sound, int from)
{
    const int nCompared = sound.size() / 8;
    for (int begin = from; begin + sound.size() <= rest.size(); ++begin) {
        const bool fits = std::equal(sound.begin(), sound.begin() + nCompared, rest.begin() + begin,
            [](float a, float b) { return std::abs(a - b) < overlapTolerance; });
        if (fits) {
            return begin;
        }
    }
    return -1;
}

template <typename Operation>
void combine(QVector<float>& samples, const QVector<float>& sound, int begin, Operation operation)
{
    std::transform(samples.begin() + begin, samples.begin() + begin + sound.size(), sound.begin(),
        samples.begin() + begin, operation);
}

struct Rebuilt {
    QVector<float> sum;
    QVector<int> onsets; ///< up to the first sound that is missing
};

Rebuilt rebuilt(const QVector<ScriptedListener::Trial>& trials, const QVector<float>& recording)
{
    Rebuilt result = {QVector<float>(recording.size(), 0.0F), {}};
    QVector<float> rest = recording;
    int from = 0;
    for (const ScriptedListener::Trial& trial : trials) {
        const QVector<float> standardSound = singlePrecision(trial.standardSound);
        const QVector<float> deviantSound = singlePrecision(trial.deviantSound);
        for (int interval = 1; interval <= soundsPerTrial; ++interval) {
            const bool isDeviant = interval == trial.deviantPosition;
            const QVector<float>& sound = isDeviant ? deviantSound : standardSound;
            from = onset(rest, sound, from);
            if (from < 0) {
                return result;
            }
            combine(result.sum, sound, from, std::plus<>());
            combine(rest, sound, from, std::minus<>());
            result.onsets.append(from);
        }
    }
    return result;
}

} // namespace

QVector<float> singlePrecision(const QVector<double>& samples)
{
    QVector<float> converted(samples.size());
    std::transform(samples.begin(), samples.end(), converted.begin(),
        [](double sample) { return static_cast<float>(sample); });
    return converted;
}

QString differenceFromRecording(
    const QVector<ScriptedListener::Trial>& trials, const QVector<float>& recording)
{
    const Rebuilt expected = rebuilt(trials, recording);
    const int nFound = expected.onsets.size();
    if (nFound < soundsPerTrial * trials.size()) {
        return QString("sound %1 of trial %2 is missing")
            .arg(nFound % soundsPerTrial + 1)
            .arg(nFound / soundsPerTrial + 1);
    }
    const QVector<float>& sum = expected.sum;
    const auto differs = std::mismatch(sum.begin(), sum.end(), recording.begin()).first;
    return differs == sum.end() ? QString()
                                : QString("sample %1 differs").arg(differs - sum.begin());
}

QVector<int> recordedOnsets(
    const QVector<ScriptedListener::Trial>& trials, const QVector<float>& recording)
{
    return rebuilt(trials, recording).onsets;
}
