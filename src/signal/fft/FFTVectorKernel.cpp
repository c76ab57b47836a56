// SPDX-License-Identifier: GPL-3.0-or-later
// Compiled with the instructions of AVX2, so nothing here may run before the processor was asked,
// nor may it emit an inline function that other files share: the linker could choose this file's
// copy.
#include "signal/fft/FFTVectorKernel.h"

#ifdef __AVX2__

#include "signal/fft/FFTOpening.h"

#include <immintrin.h>

namespace {

// A pack is a register: it is passed by value.
// clazy:excludeall=function-args-by-ref

/// Four numbers at a time. The type is local to this file, and with it all code made for it.
struct Avx2Lanes {
    using Scalar = double;
    using Element = double;
    using Pack = __m256d;
    using Factor = __m256d;
    static constexpr int width = 4;

    static Pack reversed(Pack pack) { return _mm256_permute4x64_pd(pack, _MM_SHUFFLE(0, 1, 2, 3)); }

    static Pack load(const double* p) { return _mm256_loadu_pd(p); }
    static void store(double* p, Pack value) { _mm256_storeu_pd(p, value); }
    static void storeReversed(double* p, Pack value) { store(p - 3, reversed(value)); }
    static Factor factors(const double* p) { return load(p); }
    static Factor factorsReversed(const double* p) { return reversed(load(p - 3)); }
    static Factor sameFactor(const double* p) { return _mm256_broadcast_sd(p); }

    static void storeColumn(double* df, qint64 stride, const Pack* column, qint64 count)
    {
        for (qint64 i = 0; i < count; i += 4) {
            const Pack low01 = _mm256_unpacklo_pd(column[i], column[i + 1]);
            const Pack high01 = _mm256_unpackhi_pd(column[i], column[i + 1]);
            const Pack low23 = _mm256_unpacklo_pd(column[i + 2], column[i + 3]);
            const Pack high23 = _mm256_unpackhi_pd(column[i + 2], column[i + 3]);
            store(df + i, _mm256_permute2f128_pd(low01, low23, 0x20));
            store(df + 2 * stride + i, _mm256_permute2f128_pd(high01, high23, 0x20));
            store(df + stride + i, _mm256_permute2f128_pd(low01, low23, 0x31));
            store(df + 3 * stride + i, _mm256_permute2f128_pd(high01, high23, 0x31));
        }
    }
};

} // namespace

const FFTKernel<double>* fftVectorKernel()
{
    return __builtin_cpu_supports("avx2") ? &fftKernel<Avx2Lanes> : nullptr;
}

#else

const FFTKernel<double>* fftVectorKernel()
{
    return nullptr;
}

#endif
