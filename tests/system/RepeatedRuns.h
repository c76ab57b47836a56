// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class MainWindow;
class ModalBoxes;

/// Objects that are alive.
struct AliveSounds {
    int outputs;
    int buffers;
};

/// Opens a run after the other, starts six sounds in each, whose ends are not awaited, and closes
/// the subject window.
/// @return what is left of all those sounds
AliveSounds soundsLeftBy(MainWindow& window, ModalBoxes& boxes, int nRuns);

constexpr int ticksPerRepeatedRun = 6; ///< the fifth and the sixth start empty sounds
