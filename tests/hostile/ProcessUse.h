// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// What this process uses of the machine, as the kernel counts it.

/// The processor's time that the program has had so far, s. Other programs do not add to it.
double processorSeconds();

/// Memory in use, bytes: pages in memory; with the address sanitizer, which keeps freed memory for
/// a while, what is allocated.
qint64 memoryInUse();

/// The most pages that were in memory at one time, bytes.
qint64 peakMemory();

/// Files, sockets and pipes that are open.
int openDescriptors();

/// How much more of the processor's time and of memory this build may take than an optimised one
/// without sanitizers. The address sanitizer keeps freed memory for a while, and a shadow of all.
#if defined(UNDER_SANITIZERS)
constexpr int timeAllowance = 3;
constexpr int memoryAllowance = 3;
#elif !defined(NDEBUG) // the program, too, is not optimised
constexpr int timeAllowance = 5;
constexpr int memoryAllowance = 1;
#else
constexpr int timeAllowance = 1;
constexpr int memoryAllowance = 1;
#endif
