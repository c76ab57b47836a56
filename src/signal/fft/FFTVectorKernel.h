// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/fft/FFTKernel.h"

/// The kernel that works on four numbers at a time, for transforms of 64 and more samples; its
/// results are those of the plain one to the last bit.
/// @return null when this processor, or the one compiled for, lacks the instructions
const FFTKernel<double>* fftVectorKernel();
