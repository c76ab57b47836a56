// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class MainWindow;
class ModalBoxes;

/// Opens a run after the other, starts six sounds in each, whose ends are not awaited, and closes
/// the subject window.
/// @return how many outputs and buffers are left when it is not the last sound's one alone; else
///         empty. For devices that play nothing: others let eight earlier sounds play on.
QString pileAfterRuns(MainWindow& window, ModalBoxes& boxes, int nRuns);

constexpr int ticksPerRepeatedRun = 6; ///< the fifth and the sixth start empty sounds
