// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "soundlab/SoundRecorder.h"
#include "soundlab/SoundServer.h"

constexpr int timeoutMs = 60000; ///< of whatever a server does

/// A sound server with a recorder: without one its sink works in blocks of seconds, and the ends of
/// sounds are reported late.
struct SoundLab {
    SoundServer server;
    SoundRecorder recorder {server};

    bool start() { return server.start() && recorder.start(); }
};
