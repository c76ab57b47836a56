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
    static FFTArray<FFTOscillator<double>>& oscillators(Transform& fft) { return fft._oscillators; }
    static const FFTKernel<double>* kernel(const Transform& fft) { return fft._kernel; }
    static void usePlainKernel(Transform& fft) { fft._kernel = &fftKernel<FFTScalarLanes<double>>; }
    static void openBlocks(const Transform& fft, double* df, const double* x)
    {
        fft.openBlocks(df, x, nullptr);
    }
    static void combineBlocks(const Transform& fft, double* df, double* sf)
    {
        fft.combineBlocks(df, sf, nullptr);
    }
    static FFTTwiddles<double> twiddles(const Transform& fft, int pass)
    {
        return fft.twiddles(pass);
    }
    static FFTTwiddles<double> run(const Transform& fft, int pass)
    {
        FFTTwiddles<double> result;
        fft.addRun(result, pass);
        return result;
    }
};
