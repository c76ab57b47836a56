// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// The 58 bytes before the samples of a WAV file of one channel of 32-bit floats (format code 3,
/// with the "fact" chunk that this format demands).
/// @param nSamples 0 to 2^29
/// @param rate     samples a second
QByteArray wavHeader(int nSamples, int rate);

/// Writes a WAV file of one channel of 32-bit floats; an existing file is replaced.
/// @return whether the whole file was written
bool writeWavFile(const QString& path, const QVector<float>& samples, int rate);
