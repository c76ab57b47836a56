// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/fft/FFTKernel.h"
#include "signal/fft/FFTTables.h"

/// @param x positive; any other value stops the program
/// @return whether x is a power of two
inline bool FFTReal_is_pow2(qint64 x)
{
    QUORIN_CHECK(x > 0, "x > 0");
    return (x & (x - 1)) == 0;
}

/// Discrete Fourier transform of a block of N real samples, N a power of two.
/// An object may transform any number of blocks, one at a time, as its work buffer is overwritten.
/// Every misuse stops the program with file, line and text. No other file need be compiled.
/// @tparam T a floating-point type
template <class T> class FFTReal {
public:
    static constexpr int MAX_BIT_DEPTH = 30; ///< N is at most 2^30
    static constexpr int TRIGO_BD_LIMIT = 12; ///< later passes take their factors from oscillators

    /// Builds the tables of a transform.
    /// @param length N, a power of two from 1 to 2^MAX_BIT_DEPTH
    explicit FFTReal(qint64 length);
    virtual ~FFTReal() = default;
    FFTReal(const FFTReal&) = delete;
    FFTReal& operator=(const FFTReal&) = delete;

    /// The work buffer; neither the input nor the output of do_fft may be it. It has N elements and
    /// a page more, 512 of double, among which the N that are worked in have their place.
    T* use_buffer() { return m_buffer.data(); }

    /// Unscaled forward transform X[k] = sum of x[n] exp(-2 pi i k n / N). Allocates nothing.
    /// @param f N results: f[k] = Re X[k] for k = 0 ... N/2 and f[N/2 + k] = -Im X[k] for
    ///          k = 1 ... N/2 - 1. No real part is -0 when all samples are zeros of either sign,
    ///          but f[0] = x[0] to the last bit when N is 1
    /// @param x N samples, left as they are; distinct from f
    void do_fft(T* f, const T* x);

private:
    friend struct FFTRealProbe;
    static constexpr T halfPi = T(1.570796326794896619231321691639751442L);
    static constexpr qint64 pageElements = 4096 / qint64(sizeof(T));

    void buildBitReversal();
    void buildCosines();
    T* workBlockFor(const T* f);
    FFTTwiddles<T> twiddles(int pass) const;
    FFTTwiddles<T> rotatedTwiddles(int pass) const;
    void transform(T* df, T* sf, const T* x) const;

    qint64 m_length = 0;
    int _nbr_bits = 0;
    FFTArray<qint64> m_bitReversal;
    FFTArray<T> m_cosines;
    FFTArray<T> m_buffer;
    FFTArray<FFTOscillator<T>> m_oscillators;
    decltype(fftKernel<T>()) m_kernel = fftKernel<T>();
};

#include "signal/fft/FFTReal_p.h"
