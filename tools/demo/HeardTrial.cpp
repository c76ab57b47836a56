// SPDX-License-Identifier: GPL-3.0-or-later
// Which of the recorded sounds of a trial differs.
#include "demo/HeardTrial.h"

#include "soundlab/RecordedSounds.h"

#include <algorithm>

namespace {

constexpr int soundsPerTrial = 4;

bool areEqual(const QVector<float>& recording, const RecordedSound& a, const RecordedSound& b)
{
    const auto begin = recording.cbegin();
    return std::equal(
        begin + a.begin, begin + a.begin + a.length, begin + b.begin, begin + b.begin + b.length);
}

} // namespace

HeardTrial heardTrial(const QVector<float>& recording, int shortestSilence)
{
    QVector<RecordedSound> sounds = recordedSounds(recording, shortestSilence);
    const auto endOf = [](const RecordedSound& sound) { return sound.begin + sound.length; };
    if (!sounds.isEmpty() && recording.size() - endOf(sounds.constLast()) < shortestSilence) {
        sounds.removeLast();
    }
    HeardTrial heard = {sounds.size(), 0, sounds.isEmpty() ? 0 : endOf(sounds.constLast())};
    if (heard.nSounds == soundsPerTrial) {
        const bool secondDiffers = !areEqual(recording, sounds[0], sounds[1]);
        const bool thirdDiffers = !areEqual(recording, sounds[0], sounds[2]);
        if (secondDiffers != thirdDiffers) {
            heard.deviant = secondDiffers ? 2 : 3;
        }
    }
    return heard;
}
