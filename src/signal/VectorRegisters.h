// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Marks the upper halves of the vector registers as unused; no result depends on them. Painting
/// leaves them in use, and then each change between the AVX instructions of a sine or cosine and
/// the plain ones around it costs some 20 to 70 cycles, by processor (Fog, "The microarchitecture
/// of Intel, AMD and VIA CPUs", on mixing VEX and non-VEX instructions): more than the function
/// itself.
void clearUpperVectorHalves();
