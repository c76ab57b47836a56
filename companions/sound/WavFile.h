// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QVector>

/// A WAV file of 32-bit floats and one channel that holds exactly these samples, beyond full scale
/// too. The same samples give the same bytes.
/// @param rate Hz, above 0
/// @return empty where it cannot be made
QByteArray wavFile(const QVector<float>& samples, int rate);
