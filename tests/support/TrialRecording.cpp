// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/TrialRecording.h"

#include "soundlab/RecordedSounds.h"

#include <algorithm>
#include <functional>

namespace {

constexpr int soundsPerTrial = 4;

QVector<float> singlePrecision(const QVector<double>& samples)
{
    QVector<float> converted(samples.size());
    std::transform(samples.begin(), samples.end(), converted.begin(),
        [](double sample) { return static_cast<float>(sample); });
    return converted;
}

// Where a sound begins, found by its middle half alone: with no silence between two sounds their
// ends may overlap in the recording.
int locateByMiddle(const QVector<float>& recording, const QVector<float>& sound, int from)
{
    const int quarter = sound.size() / 4;
    const int middle = locate(recording, sound.mid(quarter, sound.size() / 2), from + quarter);
    return middle < 0 ? -1 : middle - quarter;
}

void addTo(QVector<float>& sum, const QVector<float>& sound, int begin)
{
    std::transform(
        sound.begin(), sound.end(), sum.begin() + begin, sum.begin() + begin, std::plus<float>());
}

} // namespace

QString differenceFromRecording(
    const QVector<ScriptedListener::Trial>& trials, const QVector<float>& recording)
{
    QVector<float> sum(recording.size(), 0.0F);
    int from = 0;
    for (int trial = 0; trial < trials.size(); ++trial) {
        const QVector<float> standardSound = singlePrecision(trials[trial].standardSound);
        const QVector<float> deviantSound = singlePrecision(trials[trial].deviantSound);
        for (int interval = 1; interval <= soundsPerTrial; ++interval) {
            const bool isDeviant = interval == trials[trial].deviantPosition;
            const QVector<float>& sound = isDeviant ? deviantSound : standardSound;
            const int begin = locateByMiddle(recording, sound, from);
            if (begin < 0 || begin + sound.size() > sum.size()) {
                return QString("sound %1 of trial %2 is missing").arg(interval).arg(trial + 1);
            }
            addTo(sum, sound, begin);
            from = begin + sound.size() / 2;
        }
    }
    const auto differs = std::mismatch(sum.begin(), sum.end(), recording.begin()).first;
    return differs == sum.end() ? QString()
                                : QString("sample %1 differs").arg(differs - sum.begin());
}
