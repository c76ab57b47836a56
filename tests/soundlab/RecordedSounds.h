// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVector>

/// A part of a recording that is not silent.
struct RecordedSound {
    int begin; ///< index of its first sample
    int length; ///< samples

    bool operator==(const RecordedSound& other) const
    {
        return begin == other.begin && length == other.length;
    }
};
Q_DECLARE_TYPEINFO(RecordedSound, Q_PRIMITIVE_TYPE);

/// The sounds of a recording: what lies between runs of at least shortestSilence exact zeros (of
/// either sign) and the recording's ends. Each begins and ends with a sample that is not zero, so
/// a sound that was played with zeros at its ends is found without them; see locate().
/// A shortestSilence below 1 is taken as 1.
QVector<RecordedSound> recordedSounds(const QVector<float>& recording, int shortestSilence);

/// The first place at or after an index where a recording holds an expected sound bit for bit,
/// zeros at its beginning and end included.
/// @param from below 0 is taken as 0
/// @return the index of its first sample; -1 if it is not there, or if every expected sample is
///         zero, since silence has no place
int locate(const QVector<float>& recording, const QVector<float>& expected, int from = 0);
