// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds in a recording, and the place of an expected one.
#include "soundlab/RecordedSounds.h"

#include <algorithm>
#include <cstring>

namespace {

bool isSound(float sample)
{
    // By value, so that negative zero is silence and NaN is sound.
    return !(sample >= 0.0F && sample <= 0.0F);
}

} // namespace

QVector<RecordedSound> recordedSounds(const QVector<float>& recording, int shortestSilence)
{
    QVector<RecordedSound> sounds;
    for (int i = 0; i < recording.size(); ++i) {
        if (!isSound(recording.at(i)))
            continue;
        const int end = sounds.isEmpty() ? 0 : sounds.constLast().begin + sounds.constLast().length;
        if (sounds.isEmpty() || i - end >= std::max(shortestSilence, 1)) {
            sounds.append({i, 1});
        } else {
            sounds.last().length = i + 1 - sounds.constLast().begin;
        }
    }
    return sounds;
}

int locate(const QVector<float>& recording, const QVector<float>& expected, int from)
{
    const auto anchor = std::find_if(expected.cbegin(), expected.cend(), isSound);
    if (anchor == expected.cend())
        return -1;
    const int offset = int(anchor - expected.cbegin());
    const auto sameBits = [&anchor](const float& sample) {
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the bits are what is looked for
        return std::memcmp(&sample, &*anchor, sizeof(float)) == 0;
    };
    const int last = recording.size() - expected.size();
    for (int begin = std::max(from, 0); begin <= last; ++begin) {
        const auto found
            = std::find_if(recording.cbegin() + begin + offset, recording.cend(), sameBits);
        begin = int(found - recording.cbegin()) - offset;
        if (begin <= last
            && std::memcmp(recording.constData() + begin, expected.constData(),
                   size_t(expected.size()) * sizeof(float))
                == 0)
            return begin;
    }
    return -1;
}
