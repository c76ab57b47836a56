// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// From now on SIGINT, SIGTERM and SIGHUP end the application's event loop, so that what follows it
/// is done, instead of ending the process at once. Needs the application; call it once.
void endLoopOnSignals();

/// After endLoopOnSignals(): a second SIGINT ends the process at once, whatever it waits for.
void endAtOnceOnSecondInterrupt();
