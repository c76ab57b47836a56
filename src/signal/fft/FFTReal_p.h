// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/FFTReal.h"
#include "signal/fft/FFTOpening.h"
#include "signal/fft/FFTVectorKernel.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

template <class T> constexpr T fftHalfPi = T(1.570796326794896619231321691639751442L);

/// The fastest kernel that this processor has for a transform of 2^bits samples.
template <class T> const FFTKernel<T>* fftKernelFor(int bits)
{
    constexpr int fewestVectorBits = 6;
    if constexpr (std::is_same_v<T, double>) {
        if (bits >= fewestVectorBits && fftVectorKernel() != nullptr)
            return fftVectorKernel();
    }
    return &fftKernel<FFTScalarLanes<T>>;
}

template <class T>
FFTReal<T>::FFTReal(qint64 length)
    : _length(length)
{
    QUORIN_CHECK(FFTReal_is_pow2(length), "FFTReal_is_pow2 (length)");
    for (qint64 rest = length - 1; rest > 0; rest /= 2)
        ++_nbr_bits;
    QUORIN_CHECK(_nbr_bits <= MAX_BIT_DEPTH, "_nbr_bits <= MAX_BIT_DEPTH");

    _kernel = fftKernelFor<T>(_nbr_bits);
    _buffer = FFTArray<T>(_length + displacementRange());
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
    for (qint64 filled = 1; filled < _length; filled *= 2, reversedBit /= 2) {
        for (qint64 i = 0; i < filled; ++i)
            table[filled + i] = table[i] + reversedBit;
    }
}

// The last level holds every other: a level's entries are every second one of the next.
template <class T> void FFTReal<T>::buildCosines()
{
    if (_nbr_bits < 4)
        return;
    _cosines = FFTArray<T>((qint64(1) << (_nbr_bits - 1)) - 4);
    const qint64 count = qint64(1) << (_nbr_bits - 2);
    T* level = &_cosines[count - 4];
    for (qint64 i = 1; i <= count / 2; ++i) {
        const T angle = T(i) * (fftHalfPi<T> / T(count));
        level[i] = std::cos(angle);
        level[count - i] = std::sin(angle);
    }
    level[0] = T(1);
    for (qint64 shorter = count / 2; shorter >= 4; shorter /= 2) {
        const T* const longer = level;
        level -= shorter;
        for (qint64 i = 0; i < shorter; ++i)
            level[i] = longer[2 * i];
    }
}

template <class T> void FFTReal<T>::buildOscillators()
{
    if (_nbr_bits <= TRIGO_BD_LIMIT)
        return;
    _oscillators = FFTArray<FFTOscillator<T>>(_nbr_bits - TRIGO_BD_LIMIT);
    for (qint64 j = 0; j < _oscillators.size(); ++j)
        _oscillators[j].setStep(fftHalfPi<T> / T(qint64(1) << (TRIGO_BD_LIMIT + j)));
}

template <class T> const T* FFTReal<T>::levelCosines(int level) const
{
    return &_cosines[(qint64(1) << (level - 1)) - 4];
}

template <class T> void FFTReal<T>::do_fft(T* f, const T* x)
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
    FFTTwiddles<T> passes[MAX_BIT_DEPTH];
    for (int pass = 3; pass < _nbr_bits; ++pass)
        passes[pass] = twiddles(pass);
    const bool evenSteps = (_nbr_bits - blockBits()) / 2 % 2 == 0;
    T* const work = workBlockFor(f);
    openBlocks(evenSteps ? f : work, x, passes);
    combineBlocks(f, work, passes);
}

// A sample alone is its own spectrum. Two and four get the +0 of FFTOpening::openFour.
template <class T> void FFTReal<T>::transformShort(T* f, const T* x) const
{
    const T zero = T(0);
    if (_nbr_bits == 0) {
        f[0] = x[0];
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

/// How far the N elements that are worked in may be moved within the buffer.
template <class T> qint64 FFTReal<T>::displacementRange() const
{
    constexpr qint64 cacheWayBytes = 4096;
    return std::min<qint64>(_length, cacheWayBytes / qint64(sizeof(T)));
}

// A pass reads and writes with strides of large powers of two. With the same address modulo a way
// of the nearest cache, the output and the work block would drive each other out of it.
template <class T> T* FFTReal<T>::workBlockFor(const T* f)
{
    const auto place = [](const T* p) { return qint64(reinterpret_cast<quintptr>(p) / sizeof(T)); };
    const qint64 range = displacementRange();
    return use_buffer() + ((place(f) - place(use_buffer()) + range / 2) & (range - 1));
}

// The passes above the blocks go in pairs, so the blocks take an odd number out.
template <class T> int FFTReal<T>::blockBits() const
{
    if (_nbr_bits == 3)
        return 3;
    return _nbr_bits % 2 == 0 ? 4 : 5;
}

template <class T> FFTTwiddles<T> FFTReal<T>::twiddles(int pass) const
{
    QUORIN_CHECK(pass >= 3, "pass >= 3");
    QUORIN_CHECK(pass < _nbr_bits, "pass < _nbr_bits");
    FFTTwiddles<T> result;
    result.quarter = qint64(1) << (pass - 1);
    if (pass > TRIGO_BD_LIMIT) {
        addRun(result, pass);
    } else {
        result.seats = levelCosines(pass);
    }
    return result;
}

// Turning step by step through a whole group would add up the rounding of thousands of steps. Every
// fourth coefficient is one of the table's level pass - 2, and the oscillator starts anew from
// there.
template <class T> void FFTReal<T>::addRun(FFTTwiddles<T>& twiddles, int pass) const
{
    QUORIN_CHECK(pass > TRIGO_BD_LIMIT, "pass > TRIGO_BD_LIMIT");
    twiddles.turned = true;
    twiddles.seats = levelCosines(pass - 2);
    FFTOscillator<T> oscillator = _oscillators[pass - TRIGO_BD_LIMIT - 1];
    for (int step = 0; step <= FFTTwiddles<T>::seatDistance; ++step) {
        twiddles.runCosines[step] = oscillator.cosine;
        twiddles.runSines[step] = oscillator.sine;
        oscillator.advance();
    }
}

template <class T>
void FFTReal<T>::openBlocks(T* df, const T* x, const FFTTwiddles<T>* passes) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(df != x, "df != x");
    _kernel->open(df, x, _bitReversal.data(), _nbr_bits, blockBits(), passes);
}

template <class T> void FFTReal<T>::combineBlocks(T* df, T* sf, const FFTTwiddles<T>* passes) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(sf != nullptr, "sf != 0");
    QUORIN_CHECK(df != sf, "df != sf");
    _kernel->combine(df, sf, _nbr_bits, blockBits(), passes);
}
