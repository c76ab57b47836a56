// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/FFTReal.h"

/// What a transform keeps to itself.
struct FFTRealProbe {
    using Transform = FFTReal<double>;

    static int bits(const Transform& fft) { return fft._nbr_bits; }
    static const FFTArray<qint64>& bitReversal(const Transform& fft) { return fft._bitReversal; }
    static const FFTArray<double>& cosines(const Transform& fft) { return fft._cosines; }
    static const FFTArray<FFTOscillator<double>>& oscillators(const Transform& fft)
    {
        return fft._oscillators;
    }
    static void firstPasses(const Transform& fft, double* df, const double* x)
    {
        fft.passes0And1(df, x);
    }
    static void tablePass(const Transform& fft, double* df, const double* sf, int pass)
    {
        fft.passWithTable(df, sf, pass);
    }
    static void oscillatorPass(const Transform& fft, double* df, const double* sf, int pass)
    {
        fft.passWithOscillator(df, sf, pass);
    }
};
