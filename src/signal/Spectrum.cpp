// SPDX-License-Identifier: GPL-3.0-or-later
// Amplitude and phase spectrum of a sound, and its window.
#include "signal/Spectrum.h"

#include "signal/FFTReal.h"
#include "signal/SampleArithmetic.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

Spectrum spectrumOf(const QVector<double>& sound, qint64 length, int nSamples)
{
    const int n = static_cast<int>(length);
    const int half = n / 2;
    QVector<double> block(n, 0.0);
    std::copy_n(sound.begin(), std::min(n, sound.size()), block.begin());
    QVector<double> f(n);
    FFTReal<double> transform(length);
    transform.do_fft(f.data(), block.constData());

    const int scale = nSamples / 2;
    Spectrum spectrum = {QVector<double>(half), QVector<double>(half)};
    double* amplitude = spectrum.amplitude.data();
    double* phase = spectrum.phase.data();
    const double* real = f.constData();
    const double* minusImaginary = real + half;
    for (int k = 0; k < half; ++k) {
        const double re = real[k];
        const double im = -minusImaginary[k];
        amplitude[k] = std::sqrt(im * im + re * re) / scale;
        phase[k] = std::atan2(im, re);
    }
    return spectrum;
}

void applyWindow(QVector<double>& sound, int nSamples, int windowSelector)
{
    constexpr int hannWindow = 1;
    for (int i = 0; i < sound.size(); ++i) {
        const double gain
            = windowSelector == hannWindow ? (1 - std::cos(i * twoPi / (nSamples - 1))) * 0.5 : 0.0;
        sound[i] *= gain;
    }
}

void overwriteFrequencies(QVector<double>& axis, int nBins, double resolution)
{
    for (int k = 0; k < std::min(nBins, axis.size()); ++k) {
        axis[k] = resolution * k;
    }
}
