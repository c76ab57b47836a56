// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifdef __x86_64__
#include <immintrin.h>

__attribute__((target("avx"))) inline void zeroUpperVectorHalves()
{
    _mm256_zeroupper();
}
#endif

/// Marks the upper halves of the vector registers as unused; no result depends on them. Painting
/// leaves them in use, and then each change between the AVX instructions of a sine or cosine and
/// the plain ones around it costs some 20 to 70 cycles, by processor (Fog, "The microarchitecture
/// of Intel, AMD and VIA CPUs", on mixing VEX and non-VEX instructions): more than the function
/// itself.
inline void clearUpperVectorHalves()
{
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx")) {
        zeroUpperVectorHalves();
    }
#endif
}
