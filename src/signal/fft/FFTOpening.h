// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/fft/FFTLanes.h"
#include "signal/fft/FFTPasses.h"

#include <cstddef>

/// The opening passes, on as many blocks side by side as there are lanes.
template <class Lanes> struct FFTOpening {
    using Scalar = typename Lanes::Scalar;
    using Pack = typename Lanes::Pack;
    using Passes = FFTPasses<FFTColumnLanes<Lanes>>;
    static constexpr std::size_t largestBlock = 32;
    static constexpr std::size_t neighbours
        = 16 / std::size_t(Lanes::width); ///< columns within two lines

    /// Passes 0 and 1. Adding +0 turns a sample of -0 into +0: from there on no sum or difference
    /// of zeros gives a real part of -0, whose angle would be pi instead of 0.
    static void openFour(Pack* out, const Scalar* x, const qint64* reversed)
    {
        const Pack a = Lanes::load(x + reversed[0]) + Scalar(0);
        const Pack c = Lanes::load(x + reversed[1]) + Scalar(0);
        const Pack d = Lanes::load(x + reversed[2]) + Scalar(0);
        const Pack e = Lanes::load(x + reversed[3]) + Scalar(0);
        out[0] = (a + c) + (d + e);
        out[1] = a - c;
        out[2] = (a + c) - (d + e);
        out[3] = d - e;
    }

    /// Passes 0 to 2.
    static void openEight(Pack* out, const Scalar* x, const qint64* reversed)
    {
        Pack four[8];
        openFour(four, x, reversed);
        openFour(four + 4, x, reversed + 4);
        Passes::combineEdges(out, four, 4);
        const Pack v = (four[5] - four[7]) * Passes::rootOfHalf;
        const Pack u = (four[5] + four[7]) * Passes::rootOfHalf;
        out[1] = four[1] + v;
        out[3] = four[1] - v;
        out[5] = u + four[3];
        out[7] = u - four[3];
    }

    /// Passes 3 and 4, as far as they belong to the block: from eights to the whole column.
    static void closeColumn(
        Pack* column, const Pack* eights, int blockBits, const FFTTwiddles<Scalar>* passes)
    {
        if (blockBits == 4) {
            Passes::combineTwo(column, eights, passes[3]);
        } else if (blockBits == 5) {
            Passes::template combineFour<false, false>(column, eights, passes[3], passes[4]);
        } else {
            for (int i = 0; i < 8; ++i)
                column[i] = eights[i];
        }
    }

    /// The lanes of a pack are consecutive samples, whose places in bit-reversed order lie a
    /// fraction of the whole apart: so does what is stored. Columns that read the same pairs of
    /// cache lines are worked on together, as the lines of one column displace each other.
    static void open(Scalar* df, const Scalar* x, const qint64* reversed, int bits, int blockBits,
        const FFTTwiddles<Scalar>* passes)
    {
        const qint64 stride = (qint64(1) << bits) / Lanes::width;
        const qint64 block = qint64(1) << blockBits;
        const qint64 together
            = stride / block < qint64(neighbours) ? stride / block : qint64(neighbours);
        const qint64 distance = stride / together;
        Pack eights[neighbours][largestBlock];
        Pack column[largestBlock];
        for (qint64 i = 0; i < distance; i += block) {
            for (qint64 j = 0; j < block; j += 8) {
                for (qint64 c = 0; c < together; ++c)
                    openEight(eights[c] + j, x, reversed + i + c * distance + j);
            }
            for (qint64 c = 0; c < together; ++c) {
                closeColumn(column, eights[c], blockBits, passes);
                Lanes::storeColumn(df + i + c * distance, stride, column, block);
            }
        }
    }
};

/// The kernel for one kind of lanes.
template <class Lanes>
constexpr FFTKernel<typename Lanes::Scalar> fftKernel
    = {FFTOpening<Lanes>::open, FFTPasses<Lanes>::combine};
