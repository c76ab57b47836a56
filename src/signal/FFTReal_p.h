// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/FFTReal.h"

#include <algorithm>
#include <utility>

template <class T>
FFTReal<T>::FFTReal(qint64 length)
    : _length(length)
{
    QUORIN_CHECK(FFTReal_is_pow2(length), "FFTReal_is_pow2 (length)");
    for (qint64 rest = length - 1; rest > 0; rest /= 2)
        ++_nbr_bits;
    QUORIN_CHECK(_nbr_bits <= MAX_BIT_DEPTH, "_nbr_bits <= MAX_BIT_DEPTH");

    _buffer = FFTArray<T>(_length);
    buildBitReversal();
    buildCosines();
    buildOscillators();
}

template <class T> void FFTReal<T>::buildBitReversal()
{
    _bitReversal = FFTArray<qint64>(_length);
    _bitReversal[0] = 0;
    qint64* const table = _bitReversal.data();
    qint64 reversedBit = _length / 2;
    for (qint64 filled = 1; filled < _length; filled *= 2, reversedBit /= 2)
        for (qint64 i = 0; i < filled; ++i)
            table[filled + i] = table[i] + reversedBit;
}

template <class T> void FFTReal<T>::buildCosines()
{
    if (_nbr_bits < 4)
        return;
    _cosines = FFTArray<T>((qint64(1) << (_nbr_bits - 1)) - 4);
    constexpr T pi = T(3.141592653589793238462643383279502884L);
    for (int level = 3; level < _nbr_bits; ++level) {
        const qint64 count = qint64(1) << (level - 1);
        const T step = pi / T(count * 2);
        for (qint64 i = 0; i < count; ++i)
            _cosines[count - 4 + i] = std::cos(T(i) * step);
    }
}

template <class T> void FFTReal<T>::buildOscillators()
{
    if (_nbr_bits <= TRIGO_BD_LIMIT)
        return;
    _oscillators = FFTArray<FFTOscillator<T>>(_nbr_bits - TRIGO_BD_LIMIT);
    constexpr T halfPi = T(1.570796326794896619231321691639751442L);
    for (qint64 j = 0; j < _oscillators.size(); ++j)
        _oscillators[j].setStep(halfPi / T(qint64(1) << (TRIGO_BD_LIMIT + j)));
}

template <class T> const T* FFTReal<T>::levelCosines(int level) const
{
    return &_cosines[(qint64(1) << (level - 1)) - 4];
}

template <class T> void FFTReal<T>::do_fft(T* f, const T* x) const
{
    QUORIN_CHECK(f != nullptr, "f != 0");
    QUORIN_CHECK(f != use_buffer(), "f != use_buffer ()");
    QUORIN_CHECK(x != nullptr, "x != 0");
    QUORIN_CHECK(x != use_buffer(), "x != use_buffer ()");
    QUORIN_CHECK(x != f, "x != f");

    if (_nbr_bits < 3) {
        transformShort(f, x);
        return;
    }
    T* df = _nbr_bits % 2 == 0 ? f : use_buffer();
    T* sf = _nbr_bits % 2 == 0 ? use_buffer() : f;
    passes0And1(df, x);
    std::swap(df, sf);
    pass2(df, sf);
    for (int pass = 3; pass < _nbr_bits; ++pass) {
        std::swap(df, sf);
        if (pass <= TRIGO_BD_LIMIT)
            passWithTable(df, sf, pass);
        else
            passWithOscillator(df, sf, pass);
    }
}

// Adding +0 turns a sample of -0 into +0. From there on no sum or difference of zeros gives a real
// part of -0, whose angle would be pi instead of 0.
template <class T> void FFTReal<T>::transformShort(T* f, const T* x) const
{
    const T zero = T(0);
    if (_nbr_bits == 0) {
        f[0] = x[0] + zero;
    } else if (_nbr_bits == 1) {
        f[0] = (x[0] + zero) + (x[1] + zero);
        f[1] = (x[0] + zero) - (x[1] + zero);
    } else {
        const T even = (x[0] + zero) + (x[2] + zero);
        const T odd = (x[1] + zero) + (x[3] + zero);
        f[1] = (x[0] + zero) - (x[2] + zero);
        f[3] = (x[1] + zero) - (x[3] + zero);
        f[0] = even + odd;
        f[2] = even - odd;
    }
}

template <class T> void FFTReal<T>::passes0And1(T* df, const T* x) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(x != nullptr, "x != 0");
    QUORIN_CHECK(df != x, "df != x");
    const qint64* const reversed = _bitReversal.data();
    for (qint64 i = 0; i < _length; i += 4) {
        const T a = x[reversed[i]] + T(0);
        const T c = x[reversed[i + 1]] + T(0);
        const T d = x[reversed[i + 2]] + T(0);
        const T e = x[reversed[i + 3]] + T(0);
        df[i + 1] = a - c;
        df[i + 3] = d - e;
        df[i] = (a + c) + (d + e);
        df[i + 2] = (a + c) - (d + e);
    }
}

template <class T> void FFTReal<T>::pass2(T* df, const T* sf) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(sf != nullptr, "sf != 0");
    QUORIN_CHECK(df != sf, "df != sf");
    constexpr T rootOfHalf = T(0.7071067811865475244008443621048490L);
    for (qint64 i = 0; i < _length; i += 8) {
        const T* const even = sf + i;
        const T* const odd = even + 4;
        T* const out = df + i;
        const T v = (odd[1] - odd[3]) * rootOfHalf;
        const T u = (odd[1] + odd[3]) * rootOfHalf;
        out[0] = even[0] + odd[0];
        out[4] = even[0] - odd[0];
        out[2] = even[2];
        out[6] = odd[2];
        out[1] = even[1] + v;
        out[3] = even[1] - v;
        out[5] = even[3] + u;
        out[7] = u - even[3];
    }
}

// The spectra of the even and of the odd samples, half a group each, give that of the group:
// X[k] = E[k] + w O[k] and X[half - k] = conj(E[k] - w O[k]) with w = exp(-i pi k / half).
// Imaginary parts are stored negated.
template <class T>
inline void combineCoefficient(T* out, const T* even, qint64 half, qint64 k, T cosine, T sine)
{
    const T* const odd = even + half;
    const qint64 imaginary = half / 2 + k;
    const T v = odd[k] * cosine - odd[imaginary] * sine;
    const T u = odd[imaginary] * cosine + odd[k] * sine;
    out[k] = even[k] + v;
    out[half - k] = even[k] - v;
    out[half + k] = u + even[imaginary];
    out[2 * half - k] = u - even[imaginary];
}

/// Coefficients 0 and half / 2, whose twiddles are 1 and -i.
template <class T> inline void combineEdges(T* out, const T* even, qint64 half)
{
    const T* const odd = even + half;
    const qint64 quarter = half / 2;
    out[0] = even[0] + odd[0];
    out[half] = even[0] - odd[0];
    out[quarter] = even[quarter];
    out[half + quarter] = odd[quarter];
}

template <class T> void FFTReal<T>::passWithTable(T* df, const T* sf, int pass) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(sf != nullptr, "sf != 0");
    QUORIN_CHECK(df != sf, "df != sf");
    QUORIN_CHECK(pass >= 3, "pass >= 3");
    QUORIN_CHECK(pass < _nbr_bits, "pass < _nbr_bits");
    const qint64 half = qint64(1) << pass;
    const T* const cosines = levelCosines(pass);
    for (qint64 i = 0; i < _length; i += 2 * half) {
        combineEdges(df + i, sf + i, half);
        for (qint64 k = 1; k < half / 2; ++k)
            combineCoefficient(df + i, sf + i, half, k, cosines[k], cosines[half / 2 - k]);
    }
}

// Turning step by step would add up the rounding of thousands of steps. Every fourth coefficient is
// one of the table's level pass - 2, where the oscillator is seated anew.
template <class T> void FFTReal<T>::passWithOscillator(T* df, const T* sf, int pass) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(sf != nullptr, "sf != 0");
    QUORIN_CHECK(df != sf, "df != sf");
    QUORIN_CHECK(pass > TRIGO_BD_LIMIT, "pass > TRIGO_BD_LIMIT");
    QUORIN_CHECK(pass < _nbr_bits, "pass < _nbr_bits");
    const qint64 half = qint64(1) << pass;
    const T* const seats = levelCosines(pass - 2);
    for (qint64 i = 0; i < _length; i += 2 * half) {
        FFTOscillator<T> oscillator = _oscillators[pass - TRIGO_BD_LIMIT - 1];
        combineEdges(df + i, sf + i, half);
        for (qint64 k = 1; k < half / 2; ++k) {
            if (k % 4 == 0)
                oscillator.seat(seats[k / 4], seats[half / 8 - k / 4]);
            else
                oscillator.advance();
            combineCoefficient(df + i, sf + i, half, k, oscillator.cosine, oscillator.sine);
        }
    }
}
