// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "sound/SoundPath.h"

/// Reads what `pw-metadata -n settings` prints; what it does not tell stays 0 or empty.
PipeWireSettings readPipeWireSettings(const QString& printed);

/// Asks the running PipeWire. Without pw-metadata, or without an answer, all is unknown.
PipeWireSettings runningPipeWireSettings();
