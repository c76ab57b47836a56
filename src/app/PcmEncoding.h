// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVector>

/// Samples as 32-bit floats in the machine's byte order, unscaled and unclipped: sample i stands at
/// byte 4 i. Encodes nSamples of them: a longer sound is cut, a shorter one goes on with silence.
/// @param nSamples below 1 gives no bytes
QByteArray encodedPcm(const QVector<double>& samples, int nSamples);
