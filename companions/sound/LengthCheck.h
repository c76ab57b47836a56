// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/PathCheck.h"

/// How much of the sounds of these settings is played: on PipeWire the quantum, then the end of a
/// sound and its length.
/// @param path with an output
QVector<CheckLine> lengthLines(const SoundPath& path, const CheckedSettings& settings);
