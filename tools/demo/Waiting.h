// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

/// Runs the event loop until a condition holds, looking every few milliseconds, so that timers and
/// sounds go on undisturbed.
/// @return whether the condition held in time
bool waitUntil(const std::function<bool()>& condition, int timeoutMs);

/// Runs the event loop for a while.
void waitFor(int ms);
