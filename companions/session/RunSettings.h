// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "record/RecordLines.h"

class MainWindow;

/// What surrounds a run that begins now: program, time, locale, screens, sound, and the choices in
/// words. Seed, draws and the two session records are left at their defaults.
RunBegun runSettings(const MainWindow& window);

/// Name, version and formats of the sound server from what `pactl info` and `pactl list short
/// sinks` print in the C locale; empty where they print no such lines.
QJsonObject soundServer(const QString& information, const QString& sinks);
