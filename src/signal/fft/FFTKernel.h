// SPDX-License-Identifier: GPL-3.0-or-later
//
// The order of the passes for eight samples and more: short blocks first, whose samples lie far
// apart, then four spectra into one until one is left. It is compiled for every processor and once
// more for those with AVX2, inlined whole into one function, so that no code that is shared needs
// AVX2. Neither fuses multiplications with additions: the results are the same to the last bit.
#pragma once

#include "signal/fft/FFTPasses.h"

/// Writes the spectra of four neighbouring columns, interleaved in memory, to their own places.
template <class T, int columns>
void fftStoreFour(qint64 block, const T* __restrict spectra, T* __restrict first,
    T* __restrict second, T* __restrict third, T* __restrict fourth)
{
    for (qint64 bin = 0; bin < block; ++bin, spectra += columns) {
        first[bin] = spectra[0];
        second[bin] = spectra[1];
        third[bin] = spectra[2];
        fourth[bin] = spectra[3];
    }
}

/// The first stage: the spectra of blocks of 8 to 32 samples from bit-reversed places. Neighbouring
/// samples lie in different blocks: as many blocks as there are columns are made side by side.
template <class T, int columns>
void fftOpen(T* df, const T* x, const qint64* reversed, int bits, int blockBits,
    const FFTTwiddles<T>* passes)
{
    using Passes = FFTPasses<T, columns, columns>;
    const qint64 block = qint64(1) << blockBits;
    T parts[std::size_t(32 * columns)];
    T spectra[std::size_t(32 * columns)];
    for (qint64 i = 0; i < (qint64(1) << bits) / columns; i += block) {
        T* const out = columns > 1 ? spectra : df + i;
        T* const opened = blockBits == 3 ? out : parts;
        for (qint64 j = 0; j < block; j += 8)
            Passes::openEight(opened + j * columns, x + reversed[i], reversed + j);
        if (blockBits == 4) {
            Passes::combineTwo(out, parts, passes[3]);
        } else if (blockBits == 5) {
            Passes::combineFour(out, parts, passes[3], passes[4]);
        }
        for (int c = 0; columns > 1 && c < columns; c += 4) {
            fftStoreFour<T, columns>(block, spectra + c, df + i + reversed[c],
                df + i + reversed[c + 1], df + i + reversed[c + 2], df + i + reversed[c + 3]);
        }
    }
}

/// Transforms 2^bits samples of x, 8 at least, into f by way of as much room in work.
/// @param reversed the table of bit-reversed indices
/// @param passes   the factors of passes 3 to bits - 1
template <class T>
[[gnu::flatten]] void fftTransform(
    T* f, T* work, const T* x, const qint64* reversed, int bits, const FFTTwiddles<T>* passes)
{
    // The passes above the blocks go in pairs, so the blocks take an odd number out.
    const int blockBits = bits == 3 ? 3 : 4 + bits % 2;
    T* const blocks = (bits - blockBits) / 2 % 2 == 0 ? f : work;
    if (bits < 9) { // too short for sixteen columns of 32
        fftOpen<T, 1>(blocks, x, reversed, bits, blockBits, passes);
    } else {
        fftOpen<T, 16>(blocks, x, reversed, bits, blockBits, passes);
    }
    // As soon as four spectra of a length are there, they are combined: they still lie in the
    // nearest cache. Each step goes from f to work or back, the last one to f.
    const qint64 smallest = qint64(4) << blockBits;
    for (qint64 end = smallest; end <= qint64(1) << bits; end += smallest) {
        for (int b = blockBits + 2; b <= bits && end % (qint64(1) << b) == 0; b += 2) {
            const bool intoOutput = (bits - b) / 2 % 2 == 0;
            const qint64 begin = end - (qint64(1) << b);
            FFTPasses<T, 4, 1>::combineFour((intoOutput ? f : work) + begin,
                (intoOutput ? work : f) + begin, passes[b - 2], passes[b - 1]);
        }
    }
}

#ifdef __x86_64__
template <class T>
[[gnu::flatten, gnu::target("avx2")]] void fftTransformAvx2(
    T* f, T* work, const T* x, const qint64* reversed, int bits, const FFTTwiddles<T>* passes)
{
    fftTransform(f, work, x, reversed, bits, passes);
}
#endif

/// The transform as compiled for this processor.
template <class T> auto fftKernel() -> decltype(&fftTransform<T>)
{
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx2"))
        return fftTransformAvx2<T>;
#endif
    return fftTransform<T>;
}
