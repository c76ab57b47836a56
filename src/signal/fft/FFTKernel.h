// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

/// The twiddles exp(-i pi k / 2^pass) of one pass, k = 1 ... quarter - 1.
///
/// Each is a seat, taken from the cosine table, turned by 0 to 3 steps of the pass's oscillator. Up
/// to the last pass of the table every coefficient is a seat of its own.
template <class T> struct FFTTwiddles {
    static constexpr int seatDistance = 4;

    const T* seats = nullptr; ///< cosines; the sine of seat j is the cosine of seat count - j
    qint64 quarter = 0; ///< number of coefficients, a quarter of the group
    bool turned = false; ///< whether only every seatDistance-th coefficient is a seat
    T runCosines[seatDistance + 1] = {}; ///< of 0 to 4 steps: a pack may begin at step 1
    T runSines[seatDistance + 1] = {};
};

/// The two stages of a transform: blocks from the samples, and the whole from the blocks.
template <class T> struct FFTKernel {
    /// Spectra of blocks of 2^blockBits samples, read in bit-reversed order.
    void (*open)(T* df, const T* x, const qint64* reversed, int bits, int blockBits,
        const FFTTwiddles<T>* passes);
    /// Combines the blocks of 2^blockBits until the spectrum of 2^bits stands in df, two passes a
    /// step. With an even number of steps the blocks stand in df, else in sf, which is overwritten.
    void (*combine)(T* df, T* sf, int bits, int blockBits, const FFTTwiddles<T>* passes);
};
