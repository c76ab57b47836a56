// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/SoundPath.h"

/// Asks the sound server that programs of this user play on, PulseAudio or PipeWire's PulseAudio
/// server, for the path of a sound. Plays nothing and changes nothing; waits 5 s at most for each
/// answer. What is PipeWire's own is not asked for.
FoundPath askPulseServer();
