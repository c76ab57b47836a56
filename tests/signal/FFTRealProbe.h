// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "signal/FFTReal.h"

/// What a transform keeps to itself.
struct FFTRealProbe {
    using Transform = FFTReal<double>;

    static const FFTArray<qint64>& bitReversal(const Transform& fft) { return fft.m_bitReversal; }
    static const FFTArray<double>& cosines(const Transform& fft) { return fft.m_cosines; }
    static const FFTArray<FFTOscillator<double>>& oscillators(const Transform& fft)
    {
        return fft.m_oscillators;
    }
    static FFTArray<FFTOscillator<double>>& oscillators(Transform& fft)
    {
        return fft.m_oscillators;
    }
    static bool usesPlainKernel(const Transform& fft)
    {
        return fft.m_kernel == fftTransform<double>;
    }
    static void usePlainKernel(Transform& fft) { fft.m_kernel = fftTransform<double>; }
    static void transform(const Transform& fft, double* df, double* sf, const double* x)
    {
        fft.transform(df, sf, x);
    }
    static FFTTwiddles<double> twiddles(const Transform& fft, int pass)
    {
        return fft.twiddles(pass);
    }
    static FFTTwiddles<double> rotatedTwiddles(const Transform& fft, int pass)
    {
        return fft.rotatedTwiddles(pass);
    }
};
