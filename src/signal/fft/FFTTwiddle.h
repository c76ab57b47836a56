// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/fft/FFTKernel.h"

/// A twiddle, or as many consecutive ones as the lanes hold.
template <class Lanes> struct FFTTwiddle {
    using Factor = typename Lanes::Factor;
    using Twiddles = FFTTwiddles<typename Lanes::Scalar>;

    Factor cosine;
    Factor sine;

    /// @tparam turned whether the pass takes them from its oscillator
    /// @param k       coefficient, 1 or a multiple of the number of lanes
    template <bool turned> static FFTTwiddle at(const Twiddles& t, qint64 k)
    {
        if constexpr (turned) {
            return fromOscillator(t, k);
        } else {
            return fromTable(t, k);
        }
    }

    static FFTTwiddle fromTable(const Twiddles& t, qint64 k)
    {
        return {Lanes::factors(t.seats + k), Lanes::factorsReversed(t.seats + t.quarter - k)};
    }

    static FFTTwiddle fromOscillator(const Twiddles& t, qint64 k)
    {
        constexpr qint64 seatDistance = Twiddles::seatDistance;
        const qint64 turn = k % seatDistance;
        const Factor runCosine = Lanes::factors(t.runCosines + turn);
        const Factor runSine = Lanes::factors(t.runSines + turn);
        if (k < seatDistance)
            return {runCosine, runSine};
        const qint64 seat = k / seatDistance;
        const Factor cosine = Lanes::sameFactor(t.seats + seat);
        const Factor sine = Lanes::sameFactor(t.seats + t.quarter / seatDistance - seat);
        return {cosine * runCosine - sine * runSine, sine * runCosine + cosine * runSine};
    }
};
