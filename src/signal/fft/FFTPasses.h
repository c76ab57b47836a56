// SPDX-License-Identifier: GPL-3.0-or-later
//
// The passes of a radix-2 transform with decimation in time, as loops over the lanes of a vector:
// the compiler makes vector instructions of them.
//
// A textbook's step joins the spectra E and O of the even and of the odd samples, n bins each:
// X[k] = E[k] + w O[k] and X[k + n] = E[k] - w O[k] with w = exp(-i pi k / n). Here differ:
// - Samples are real: bins 0 to n / 2 of E and O suffice, and X[n - k] = conj(E[k] - w O[k]).
// - Imaginary parts are stored negated. A spectrum of n samples lies in n numbers: the real parts
//   of bins 0 to n / 2, then the imaginary parts of bins 1 to n / 2 - 1.
// - Two passes are made at once, four spectra into one: the memory is read half as often.
#pragma once

#include <QtGlobal>

#include <algorithm>

/// The factors exp(-i pi k / 2^pass) of one pass, k = 1 ... count - 1. Each is an entry of the
/// cosine table or, in a rotated pass, every fourth entry rotated by 0 to 3 steps.
template <class T> struct FFTTwiddles {
    static constexpr int spacing = 4;

    const T* cosines = nullptr; ///< of the entries; the sine of one is as far from the level's end
    qint64 count = 0; ///< half the bins of each spectrum that is joined
    bool isRotated = false;
    T stepCosines[spacing + 1] = {}; ///< of 0 to 4 steps
    T stepSines[spacing + 1] = {};
};

/// The passes for one arrangement of the lanes: neighbouring bins of one transform, in one column,
/// or one bin of transforms side by side, a column each. Whatever the arrangement, the operations
/// on each number and their order are the same, and so are the results to the last bit.
/// @tparam columns 1, or the number of lanes
template <class T, int lanes, int columns> struct FFTPasses {
    /// Passes 0 to 2 on eight samples of each column: four spectra of two bins. Adding +0 turns a
    /// sample of -0 into +0: from there on no sum or difference of zeros gives a real part of -0,
    /// whose angle would be pi.
    static void openEight(T* __restrict out, const T* x, const qint64* reversed)
    {
        for (int lane = 0; lane < columns; ++lane) {
            T bins[8];
            for (int i = 0; i < 8; i += 2) {
                const T a = x[reversed[i] + lane] + T(0);
                const T c = x[reversed[i + 1] + lane] + T(0);
                bins[i] = a + c;
                bins[i + 1] = a - c;
            }
            combineEdges(out + lane, columns, bins);
        }
    }

    /// One pass in every column: two neighbouring spectra into one.
    static void combineTwo(T* __restrict out, const T* in, const FFTTwiddles<T>& twiddles)
    {
        const qint64 half = twiddles.count * columns;
        for (int lane = 0; lane < columns; ++lane) {
            out[lane] = in[lane] + in[2 * half + lane];
            out[2 * half + lane] = in[lane] - in[2 * half + lane];
            out[half + lane] = in[half + lane];
            out[3 * half + lane] = in[3 * half + lane];
        }
        for (qint64 k = 1; k < twiddles.count; ++k) {
            T* const back = out + 2 * half - 2 * k * columns;
            for (qint64 i = k * columns; i < (k + 1) * columns; ++i) {
                Bin even = {in[i], in[half + i]};
                Bin odd = {in[2 * half + i], in[3 * half + i]};
                combine(even, odd, twiddles.cosines[k], twiddles.cosines[twiddles.count - k]);
                out[i] = even.re;
                out[2 * half + i] = even.im;
                back[i] = odd.re;
                back[2 * half + i] = odd.im;
            }
        }
    }

    /// Two passes: four neighbouring spectra into one.
    static void combineFour(
        T* __restrict out, const T* in, const FFTTwiddles<T>& low, const FFTTwiddles<T>& high)
    {
        const qint64 half = low.count * columns;
        for (int lane = 0; lane < columns; ++lane) {
            T bins[8];
            for (int i = 0; i < 8; ++i)
                bins[i] = in[i * half + lane];
            combineEdges(out + lane, half, bins);
        }
        if (columns == 1 && low.isRotated) {
            combineBins<true, true>(out, in, low, high);
        } else if (columns == 1 && high.isRotated) {
            combineBins<false, true>(out, in, low, high);
        } else {
            combineBins<false, false>(out, in, low, high);
        }
    }

private:
    struct Factors {
        T cosines[std::size_t(lanes)];
        T sines[std::size_t(lanes)];
    };
    struct Bin {
        T re;
        T im;
    };

    /// The textbook's step: X[k] in place of E[k], and X[n - k] in place of O[k].
    static void combine(Bin& even, Bin& odd, T cosine, T sine)
    {
        const T v = odd.re * cosine - odd.im * sine;
        const T u = odd.im * cosine + odd.re * sine;
        odd = {even.re - v, u - even.im};
        even = {even.re + v, u + even.im};
    }

    /// The bins 0, half, 2 half, ... of two passes, whose factors are 1, -i or a root of -i.
    static void combineEdges(T* out, qint64 distance, const T* bins)
    {
        constexpr T rootOfHalf = T(0.7071067811865475244008443621048490L);
        const T v = (bins[5] - bins[7]) * rootOfHalf;
        const T u = (bins[5] + bins[7]) * rootOfHalf;
        out[0 * distance] = (bins[0] + bins[2]) + (bins[4] + bins[6]);
        out[1 * distance] = bins[1] + v;
        out[2 * distance] = bins[0] - bins[2];
        out[3 * distance] = bins[1] - v;
        out[4 * distance] = (bins[0] + bins[2]) - (bins[4] + bins[6]);
        out[5 * distance] = u + bins[3];
        out[6 * distance] = bins[4] - bins[6];
        out[7 * distance] = u - bins[3];
    }

    /// The other bins. Bins k and block - k of the first pass are needed together by the second,
    /// whose factors for them are each other's mirror. Bin 0 has no factor: the first of several
    /// lanes is bin 1, then 4, which thus comes twice, then every fourth.
    template <bool isLowRotated, bool isHighRotated>
    static void combineBins(
        T* out, const T* in, const FFTTwiddles<T>& low, const FFTTwiddles<T>& high)
    {
        constexpr qint64 step = lanes / columns;
        constexpr qint64 back = columns == 1 ? -1 : 1;
        const qint64 half = low.count;
        const qint64 block = 2 * half;
        for (qint64 k = 1; k < half; k = k < step ? step : k + step) {
            const Factors first = factorsAt<isLowRotated>(low, k);
            const Factors second = factorsAt<isHighRotated>(high, k);
            T results[8][std::size_t(lanes)];
            for (int lane = 0; lane < lanes; ++lane) {
                Bin bins[4];
                for (int i = 0; i < 4; ++i) {
                    const T* const bin = in + (i * block + k) * columns + lane;
                    bins[i] = {bin[0], bin[half * columns]};
                }
                combine(bins[0], bins[1], first.cosines[lane], first.sines[lane]);
                combine(bins[2], bins[3], first.cosines[lane], first.sines[lane]);
                combine(bins[0], bins[2], second.cosines[lane], second.sines[lane]);
                combine(bins[1], bins[3], second.sines[lane], second.cosines[lane]);
                for (int i = 0; i < 4; ++i) {
                    results[i][lane] = bins[i].re;
                    results[4 + i][lane] = bins[i].im;
                }
            }
            for (qint64 part = 0; part < 2; ++part) { // real, then imaginary
                T* const to = out + 2 * part * block * columns;
                store<1>(to + k * columns, results[4 * part]);
                store<back>(to + (block - k) * columns, results[4 * part + 1]);
                store<1>(to + (block + k) * columns, results[4 * part + 3]);
                store<back>(to + (2 * block - k) * columns, results[4 * part + 2]);
            }
        }
    }

    template <qint64 direction> static void store(T* out, const T* values)
    {
        for (int lane = 0; lane < lanes; ++lane)
            out[direction * lane] = values[lane];
    }

    template <bool isRotated> static Factors factorsAt(const FFTTwiddles<T>& twiddles, qint64 k)
    {
        constexpr qint64 spacing = FFTTwiddles<T>::spacing;
        Factors factors;
        if constexpr (!isRotated) {
            for (int lane = 0; lane < lanes; ++lane) {
                const qint64 bin = columns == 1 ? k + lane : k;
                factors.cosines[lane] = twiddles.cosines[bin];
                factors.sines[lane] = twiddles.cosines[twiddles.count - bin];
            }
        } else if (k < spacing) {
            std::copy_n(twiddles.stepCosines + k, lanes, factors.cosines);
            std::copy_n(twiddles.stepSines + k, lanes, factors.sines);
        } else {
            const T cosine = twiddles.cosines[k / spacing];
            const T sine = twiddles.cosines[(twiddles.count - k) / spacing];
            for (int lane = 0; lane < lanes; ++lane) {
                const Bin step = {twiddles.stepCosines[lane], twiddles.stepSines[lane]};
                factors.cosines[lane] = cosine * step.re - sine * step.im;
                factors.sines[lane] = sine * step.re + cosine * step.im;
            }
        }
        return factors;
    }
};
