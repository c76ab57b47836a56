// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVector>

class QAudioOutput;
class QBuffer;

/// What is known of a sound that was started.
struct SoundProgress {
    int interval = 0; ///< 1 to 4 in the trial under way; 0: that of no trial
    bool isInterrupted = false;
    bool isLate = false;
    int nWaitsAnew = 0; ///< how often the wait began anew, since the server stood still meanwhile
    int bytesFree = -1; ///< in the output's queue, at the last look at an interrupted sound
    int nLooksStill = 0; ///< looks in a row at which the queue had not moved
    int nResumptions = 0;
};

/// A sound with what it is played from; all null between sounds.
struct PlayedSound {
    QByteArray* bytes;
    QBuffer* buffer;
    QAudioOutput* output;
    SoundProgress progress = {};
};

/// Samples as 32-bit floats in the machine's byte order, unscaled and unclipped: sample i stands at
/// byte 4 i. Encodes nSamples of them: a longer sound is cut, a shorter one goes on with silence.
/// @param nSamples below 1 gives no bytes
QByteArray encodedPcm(const QVector<double>& samples, int nSamples);
