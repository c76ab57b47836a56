// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/fft/FFTTwiddle.h"

/// Passes over blocks, for any kind of lanes. Every kind does the same operations in the same order
/// on every number, so all give the same results to the last bit.
///
/// The spectra of the even and of the odd samples, half a group each, give that of the group:
/// X[k] = E[k] + w O[k] and X[half - k] = conj(E[k] - w O[k]) with w = exp(-i pi k / half).
/// Imaginary parts are stored negated, the one of k at half + k.
template <class Lanes> struct FFTPasses {
    using Scalar = typename Lanes::Scalar;
    using Element = typename Lanes::Element;
    using Pack = typename Lanes::Pack;
    using Twiddles = FFTTwiddles<Scalar>;
    using Twiddle = FFTTwiddle<Lanes>;

    struct Value {
        Pack re;
        Pack im;
    };
    struct Pair {
        Value ahead; ///< X[k]
        Value back; ///< X[half - k]
    };

    static constexpr Scalar rootOfHalf = Scalar(0.7071067811865475244008443621048490L);

    static Pair combined(Value even, Value odd, Twiddle w)
    {
        const Pack v = odd.re * w.cosine - odd.im * w.sine;
        const Pack u = odd.im * w.cosine + odd.re * w.sine;
        return {{even.re + v, u + even.im}, {even.re - v, u - even.im}};
    }

    static Value loaded(const Element* block, qint64 quarter, qint64 k)
    {
        return {Lanes::load(block + k), Lanes::load(block + quarter + k)};
    }

    /// Coefficients 0 and half / 2, whose twiddles are 1 and -i.
    static void combineEdges(Element* out, const Element* in, qint64 half)
    {
        const qint64 quarter = half / 2;
        out[0] = in[0] + in[half];
        out[half] = in[0] - in[half];
        out[quarter] = in[quarter];
        out[half + quarter] = in[half + quarter];
    }

    /// One pass over one group of two blocks of half a group each.
    static void combineTwo(Element* out, const Element* in, const Twiddles& t)
    {
        const qint64 half = 2 * t.quarter;
        combineEdges(out, in, half);
        for (qint64 k = 1; k < t.quarter; ++k) {
            const Pair x = combined(loaded(in, t.quarter, k), loaded(in + half, t.quarter, k),
                Twiddle::template at<false>(t, k));
            Lanes::store(out + k, x.ahead.re);
            Lanes::store(out + half + k, x.ahead.im);
            Lanes::storeReversed(out + half - k, x.back.re);
            Lanes::storeReversed(out + 2 * half - k, x.back.im);
        }
    }

    /// The coefficients 0, half, 2 half, ... of two passes over four blocks of size block.
    static void combineFourEdges(Element* out, const Element* in, qint64 block)
    {
        const qint64 half = block / 2;
        const Element even = in[0] + in[block];
        const Element odd = in[2 * block] + in[3 * block];
        out[0] = even + odd;
        out[2 * block] = even - odd;
        out[block] = in[0] - in[block];
        out[3 * block] = in[2 * block] - in[3 * block];

        const Element re = in[2 * block + half];
        const Element im = in[3 * block + half];
        const Element v = (re - im) * rootOfHalf;
        const Element u = (re + im) * rootOfHalf;
        out[half] = in[half] + v;
        out[2 * block - half] = in[half] - v;
        out[2 * block + half] = u + in[block + half];
        out[4 * block - half] = u - in[block + half];
    }

    /// Two passes at once over one group of four blocks. Coefficients k and block - k of the first
    /// pass are needed together by the second, whose twiddles for them are each other's mirror.
    template <bool lowTurned, bool highTurned>
    static void combineFour(
        Element* out, const Element* in, const Twiddles& low, const Twiddles& high)
    {
        const qint64 half = low.quarter;
        const qint64 block = 2 * half;
        combineFourEdges(out, in, block);
        for (qint64 k = 1; k < half; k = k < Lanes::width ? Lanes::width : k + Lanes::width) {
            const Twiddle wLow = Twiddle::template at<lowTurned>(low, k);
            const Twiddle wHigh = Twiddle::template at<highTurned>(high, k);
            const Pair even = combined(loaded(in, half, k), loaded(in + block, half, k), wLow);
            const Pair odd
                = combined(loaded(in + 2 * block, half, k), loaded(in + 3 * block, half, k), wLow);
            const Pair outer = combined(even.ahead, odd.ahead, wHigh);
            const Pair inner = combined(even.back, odd.back, {wHigh.sine, wHigh.cosine});
            Lanes::store(out + k, outer.ahead.re);
            Lanes::storeReversed(out + block - k, inner.ahead.re);
            Lanes::store(out + block + k, inner.back.re);
            Lanes::storeReversed(out + 2 * block - k, outer.back.re);
            Lanes::store(out + 2 * block + k, outer.ahead.im);
            Lanes::storeReversed(out + 3 * block - k, inner.ahead.im);
            Lanes::store(out + 3 * block + k, inner.back.im);
            Lanes::storeReversed(out + 4 * block - k, outer.back.im);
        }
    }

    // Depth first: what is combined next still lies in the nearest cache. The depth is half of the
    // transform's bits.
    // NOLINTNEXTLINE(misc-no-recursion)
    static void combine(Element* df, Element* sf, int bits, int blockBits, const Twiddles* passes)
    {
        if (bits == blockBits)
            return;
        const qint64 block = qint64(1) << (bits - 2);
        for (qint64 i = 0; i < 4 * block; i += block)
            combine(sf + i, df + i, bits - 2, blockBits, passes);
        const Twiddles& low = passes[bits - 2];
        const Twiddles& high = passes[bits - 1];
        if (low.turned) {
            combineFour<true, true>(df, sf, low, high);
        } else if (high.turned) {
            combineFour<false, true>(df, sf, low, high);
        } else {
            combineFour<false, false>(df, sf, low, high);
        }
    }
};
