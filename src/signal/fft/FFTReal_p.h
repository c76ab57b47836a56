// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/FFTReal.h"

template <class T>
FFTReal<T>::FFTReal(qint64 length)
    : m_length(length)
{
    QUORIN_CHECK(FFTReal_is_pow2(length), "FFTReal_is_pow2 (length)");
    for (qint64 rest = length - 1; rest > 0; rest /= 2)
        ++_nbr_bits;
    QUORIN_CHECK(_nbr_bits <= MAX_BIT_DEPTH, "_nbr_bits <= MAX_BIT_DEPTH");

    m_buffer = FFTArray<T>(m_length + pageElements);
    buildBitReversal();
    buildCosines();
    m_oscillators = FFTArray<FFTOscillator<T>>(std::max(0, _nbr_bits - TRIGO_BD_LIMIT));
    for (qint64 j = 0; j < m_oscillators.size(); ++j)
        m_oscillators[j].setStep(halfPi / T(qint64(1) << (TRIGO_BD_LIMIT + j)));
}

template <class T> void FFTReal<T>::buildBitReversal()
{
    m_bitReversal = FFTArray<qint64>(m_length);
    qint64* const table = m_bitReversal.data();
    table[0] = 0;
    for (qint64 filled = 1, bit = m_length / 2; filled < m_length; filled *= 2, bit /= 2) {
        for (qint64 i = 0; i < filled; ++i)
            table[filled + i] = table[i] + bit;
    }
}

// The last level holds every other: a level's entries are every second one of the next.
template <class T> void FFTReal<T>::buildCosines()
{
    if (_nbr_bits < 4)
        return;
    m_cosines = FFTArray<T>((qint64(1) << (_nbr_bits - 1)) - 4);
    const qint64 count = qint64(1) << (_nbr_bits - 2);
    T* level = &m_cosines[count - 4];
    for (qint64 i = 1; i <= count / 2; ++i) {
        const T angle = T(i) * (halfPi / T(count));
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

template <class T> void FFTReal<T>::do_fft(T* f, const T* x)
{
    QUORIN_CHECK(f != nullptr, "f != 0");
    QUORIN_CHECK(f != use_buffer(), "f != use_buffer ()");
    QUORIN_CHECK(x != nullptr, "x != 0");
    QUORIN_CHECK(x != use_buffer(), "x != use_buffer ()");
    QUORIN_CHECK(x != f, "x != f");

    if (m_length == 1) {
        f[0] = x[0];
    } else if (m_length == 2) {
        f[0] = (x[0] + T(0)) + (x[1] + T(0)); // + 0 as in FFTPasses::openEight
        f[1] = (x[0] + T(0)) - (x[1] + T(0));
    } else if (m_length == 4) {
        const T a[] = {x[0] + T(0), x[1] + T(0), x[2] + T(0), x[3] + T(0)};
        f[0] = (a[0] + a[2]) + (a[1] + a[3]);
        f[1] = a[0] - a[2];
        f[2] = (a[0] + a[2]) - (a[1] + a[3]);
        f[3] = a[1] - a[3];
    } else {
        transform(f, workBlockFor(f), x);
    }
}

// A pass reads and writes with strides of large powers of two. At the same place within a page,
// which is a way of the nearest cache, output and work block would drive each other out of it.
template <class T> T* FFTReal<T>::workBlockFor(const T* f)
{
    const auto distance = reinterpret_cast<quintptr>(f) - reinterpret_cast<quintptr>(use_buffer());
    return use_buffer() + qint64(distance / sizeof(T) + pageElements / 2) % pageElements;
}

template <class T> FFTTwiddles<T> FFTReal<T>::twiddles(int pass) const
{
    QUORIN_CHECK(pass >= 3, "pass >= 3");
    QUORIN_CHECK(pass < _nbr_bits, "pass < _nbr_bits");
    if (pass > TRIGO_BD_LIMIT)
        return rotatedTwiddles(pass);
    const qint64 count = qint64(1) << (pass - 1);
    return {&m_cosines[count - 4], count};
}

// Rotating step by step through a whole group would add up the rounding of thousands of steps.
// Every fourth factor is an entry of the table's level pass - 2, and the oscillator starts anew
// from there.
template <class T> FFTTwiddles<T> FFTReal<T>::rotatedTwiddles(int pass) const
{
    QUORIN_CHECK(pass > TRIGO_BD_LIMIT, "pass > TRIGO_BD_LIMIT");
    const qint64 count = qint64(1) << (pass - 1);
    FFTTwiddles<T> result = {&m_cosines[count / FFTTwiddles<T>::spacing - 4], count, true};
    FFTOscillator<T> oscillator = m_oscillators[pass - TRIGO_BD_LIMIT - 1];
    for (int step = 0; step <= FFTTwiddles<T>::spacing; ++step, oscillator.advance()) {
        result.stepCosines[step] = oscillator.cosine;
        result.stepSines[step] = oscillator.sine;
    }
    return result;
}

template <class T> void FFTReal<T>::transform(T* df, T* sf, const T* x) const
{
    QUORIN_CHECK(df != nullptr, "df != 0");
    QUORIN_CHECK(sf != nullptr, "sf != 0");
    QUORIN_CHECK(df != sf, "df != sf");
    QUORIN_CHECK(df != x, "df != x");
    FFTTwiddles<T> passes[MAX_BIT_DEPTH];
    for (int pass = 3; pass < _nbr_bits; ++pass)
        passes[pass] = twiddles(pass);
    m_kernel(df, sf, x, m_bitReversal.data(), _nbr_bits, passes);
}
