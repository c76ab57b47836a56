// SPDX-License-Identifier: GPL-3.0-or-later
// The transform against its defining sum, closed forms and known limits of error.
#include "signal/DefiningSum.h"
#include "signal/FFTRealProbe.h"
#include "signal/FFTTestSignals.h"
#include "support/ExactVectors.h"
#include "support/TestProgram.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>
#include <type_traits>

using namespace fftTest;

namespace {

int allocations = 0;

constexpr double epsilon = std::numeric_limits<double>::epsilon();

// Every one of the b passes adds roundings of about half an epsilon, independent of each other.
double rmsTolerance(int bits)
{
    return epsilon * std::sqrt(bits + 1.0);
}

// The largest of up to 65536 such errors is within five of their RMS values.
double largestTolerance(int bits)
{
    return 5.0 * rmsTolerance(bits);
}

// Twice what FFTW 3.3.10 reaches with this input and length.
constexpr double rmsToleranceAt32768 = 2.0 * 2.7e-16;

static_assert(!std::is_copy_constructible_v<FFTReal<double>>);
static_assert(!std::is_copy_assignable_v<FFTReal<double>>);
static_assert(std::has_virtual_destructor_v<FFTReal<double>>);
static_assert(FFTReal<double>::MAX_BIT_DEPTH == 30);
static_assert(FFTReal<double>::TRIGO_BD_LIMIT == 12);

void* countedMemory(std::size_t size, std::size_t alignment)
{
    ++allocations;
    void* const memory = std::aligned_alloc(alignment, (size + alignment) / alignment * alignment);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

Samples transformed(const Samples& x)
{
    Samples f(x.size(), std::numeric_limits<double>::quiet_NaN());
    FFTReal<double>(qint64(x.size())).do_fft(f.data(), x.data());
    return f;
}

template <class T> Samples transformedAs(const Samples& x)
{
    const std::vector<T> samples(x.begin(), x.end());
    std::vector<T> f(x.size());
    FFTReal<T>(qint64(x.size())).do_fft(f.data(), samples.data());
    return Samples(f.begin(), f.end());
}

} // namespace

void* operator new(std::size_t size)
{
    return countedMemory(size, alignof(std::max_align_t));
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return countedMemory(size, std::size_t(alignment));
}
void* operator new[](std::size_t size)
{
    return operator new(size);
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return operator new(size, alignment);
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::align_val_t) noexcept
{
    std::free(memory);
}
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept
{
    std::free(memory);
}

class TestFFTReal : public QObject {
    Q_OBJECT

private slots:
    void reference_equalsTheSum_atEveryBin()
    {
        const Samples x = noise(512);
        const auto roots = definingSum::roots(x.size());
        const std::vector<Complex> bins = definingSum::spectrum(x, roots);
        // Some 500 roundings of sums up to about 50 in long double.
        const long double referenceTolerance
            = 500 * 50 * std::numeric_limits<long double>::epsilon();
        for (std::size_t k = 0; k < x.size(); ++k)
            QVERIFY(std::abs(bins[k] - definingSum::bin(x, roots, k)) < referenceTolerance);
    }

    void spectrum_equalsTheSum_atEveryLength_data()
    {
        QTest::addColumn<int>("bits");
        for (int bits = 0; bits <= 16; ++bits)
            QTest::addRow("%d", 1 << bits) << bits;
    }
    void spectrum_equalsTheSum_atEveryLength()
    {
        QFETCH(int, bits);
        const std::size_t n = std::size_t(1) << bits;
        const auto roots = definingSum::roots(n);
        const std::vector<Samples> inputs = {noise(n), paddedNoise(n), sawtooth(n), Samples(n, 1.0),
            impulse(n, 1), impulse(n, n - 1), tone(n, double(n) / 5.0), tone(n, double(n) / 2.0)};
        for (const Samples& x : inputs) {
            const Errors errors = errorsOf(transformed(x), definingSum::spectrum(x, roots));
            QVERIFY2(errors.rms <= rmsTolerance(bits), qPrintable(QString::number(errors.rms)));
            QVERIFY2(errors.largest <= largestTolerance(bits),
                qPrintable(QString::number(errors.largest)));
        }
    }

    void bins_equalTheDefiningSum_whenAddedUpOneByOne_data()
    {
        spectrum_equalsTheSum_atEveryLength_data();
    }
    void bins_equalTheDefiningSum_whenAddedUpOneByOne()
    {
        QFETCH(int, bits);
        const std::size_t n = std::size_t(1) << bits;
        const Samples x = noise(n);
        const Samples f = transformed(x);
        const auto roots = definingSum::roots(n);
        const std::size_t distance = n <= 1024 ? 1 : n / 64 - 1;
        // The bins of this noise are about sqrt(n / 3) in size.
        const double binSize = std::sqrt(double(n));
        for (std::size_t k = 0; k <= n / 2; k += distance) {
            const Complex error = bin(f, k) - definingSum::bin(x, roots, k);
            QVERIFY(double(std::abs(error)) <= largestTolerance(bits) * binSize);
        }
    }

    void error_isAtMostTwiceThatOfTheFastest_at32768()
    {
        const Samples x = noise(32768);
        const auto expected = definingSum::spectrum(x, definingSum::roots(x.size()));
        const double rms = errorsOf(transformed(x), expected).rms;
        QVERIFY2(rms <= rmsToleranceAt32768, qPrintable(QString::number(rms)));
    }

    void avx2_givesTheSameBits_asEveryProcessor_data()
    {
        spectrum_equalsTheSum_atEveryLength_data();
        QTest::newRow("131072") << 17;
        QTest::newRow("262144") << 18;
    }
    void avx2_givesTheSameBits_asEveryProcessor()
    {
        QFETCH(int, bits);
        const std::size_t n = std::size_t(1) << bits;
        FFTReal<double> fft {qint64(n)};
        if (FFTRealProbe::usesPlainKernel(fft))
            QSKIP("This processor has one kernel alone.");
        const Samples x = noise(n);
        Samples avx2(n);
        Samples plain(n);
        fft.do_fft(avx2.data(), x.data());
        FFTRealProbe::usePlainKernel(fft);
        fft.do_fft(plain.data(), x.data());
        QCOMPARE(std::memcmp(avx2.data(), plain.data(), n * sizeof(double)), 0);
    }

    void otherNumbers_areTransformed_toTheirOwnPrecision()
    {
        constexpr std::size_t n = 16384;
        const Samples x = noise(n);
        const Samples expected = transformed(x);
        const Samples inFloat = transformedAs<float>(x);
        const Samples inLongDouble = transformedAs<long double>(x);
        const double binSize = std::sqrt(double(n));
        for (std::size_t k = 0; k < n; ++k) {
            QVERIFY(std::abs(inFloat[k] - expected[k])
                <= 5.0 * std::sqrt(15.0) * binSize * double(std::numeric_limits<float>::epsilon()));
            QVERIFY(std::abs(inLongDouble[k] - expected[k]) <= largestTolerance(14) * binSize);
        }
    }

    void output_mayLieAnywhere_besideTheBuffer()
    {
        const std::size_t n = 1024;
        FFTReal<double> fft {qint64(n)};
        const Samples x = noise(n);
        const Samples expected = transformed(x);
        for (std::size_t shift = 0; shift < 1024; shift += 31) {
            Samples f(n + 1024, 0.5);
            fft.do_fft(f.data() + shift, x.data());
            const auto first = f.begin() + qint64(shift);
            QVERIFY(std::equal(expected.begin(), expected.end(), first));
            QVERIFY(std::count(f.begin(), first, 0.5) == qint64(shift));
            QVERIFY(std::count(first + qint64(n), f.end(), 0.5) == qint64(1024 - shift));
        }
    }

    void closedForms_areExact_whenShort()
    {
        QCOMPARE(transformed({0.1}), Samples({0.1}));
        QCOMPARE(transformed({0.1, 0.7}), Samples({0.1 + 0.7, 0.1 - 0.7}));
        QCOMPARE(transformed({0.1, 0.7, -0.3, 1.9}),
            Samples(
                {(0.1 + -0.3) + (0.7 + 1.9), 0.1 - -0.3, (0.1 + -0.3) - (0.7 + 1.9), 0.7 - 1.9}));
    }

    void impulse_hasAFlatSpectrum_atSampleZero()
    {
        const Samples f = transformed(impulse(1024, 0));
        for (std::size_t k = 0; k < f.size(); ++k)
            QCOMPARE(f[k], k <= 512 ? 1.0 : 0.0);
    }

    void cosine_fillsOneRealPart_ofHalfTheLength()
    {
        const Samples f = transformed(tone(1024, 4.0));
        const double absolute = 1024 * largestTolerance(10);
        for (std::size_t k = 0; k < f.size(); ++k)
            QVERIFY(std::abs(f[k] - (k == 4 ? 512.0 : 0.0)) < absolute);
    }

    void sine_fillsOneImaginaryPart_withPositiveSign()
    {
        const Samples f = transformed(tone(1024, 7.0, -M_PI / 2.0));
        const double absolute = 1024 * largestTolerance(10);
        for (std::size_t k = 0; k < f.size(); ++k)
            QVERIFY(std::abs(f[k] - (k == 512 + 7 ? 512.0 : 0.0)) < absolute);
    }

    void silence_givesZeros_whoseRealPartsArePositive()
    {
        for (std::size_t n = 2; n <= 65536; n *= 2) {
            Samples x(n, 0.0);
            for (std::size_t i = 0; i < n; i += 3)
                x[i] = -0.0;
            for (const Samples& silence : {Samples(n, 0.0), Samples(n, -0.0), x}) {
                const Samples f = transformed(silence);
                for (std::size_t k = 0; k < n; ++k)
                    QVERIFY(f[k] == 0.0 && (k > n / 2 || !std::signbit(f[k])));
            }
        }
    }

    void sample_isItsOwnSpectrum_whenAlone()
    {
        for (const double sample : {0.0, -0.0, 0.1, -1e308, -5e-324}) {
            const Samples f = transformed({sample});
            QUORIN_COMPARE_EXACT(f[0], sample);
        }
    }

    void object_givesTheSameAgain_afterOtherSamples()
    {
        for (const std::size_t n : {4096U, 32768U}) {
            FFTReal<double> fft {qint64(n)};
            const Samples x = noise(n);
            Samples first(n);
            Samples second(n);
            fft.do_fft(first.data(), x.data());
            fft.do_fft(second.data(), sawtooth(n).data());
            QVERIFY(first != second);
            fft.do_fft(second.data(), x.data());
            QVERIFY(first == second);
        }
    }

    void samples_stayAsTheyAre_whenTransformed()
    {
        for (const std::size_t n : {1U, 2U, 4U, 8U, 2048U, 65536U}) {
            const Samples x = noise(n);
            transformed(x);
            QVERIFY(x == noise(n));
        }
    }

    void transform_allocatesNothing_butItsConstruction()
    {
        for (const std::size_t n : {1U, 4U, 1024U, 16384U, 32768U}) {
            const Samples x = noise(n);
            Samples f(n);
            const int before = allocations;
            FFTReal<double> fft {qint64(n)};
            const int built = allocations;
            fft.do_fft(f.data(), x.data());
            QCOMPARE(allocations, built);
            QVERIFY(built > before);
        }
    }
};

QUORIN_GUILESS_TEST(TestFFTReal);
#include "tst_fft_real.moc"
