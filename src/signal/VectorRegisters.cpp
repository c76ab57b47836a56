// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/VectorRegisters.h"

#ifdef __x86_64__

#include <immintrin.h>

namespace {

__attribute__((target("avx"))) void zeroUpperHalves()
{
    _mm256_zeroupper();
}

} // namespace

void clearUpperVectorHalves()
{
    if (__builtin_cpu_supports("avx")) {
        zeroUpperHalves();
    }
}

#else

void clearUpperVectorHalves() { }

#endif
