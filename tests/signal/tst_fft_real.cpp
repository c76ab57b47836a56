// SPDX-License-Identifier: GPL-3.0-or-later
#include "signal/DefiningSum.h"
#include "signal/FFTRealProbe.h"
#include "signal/FFTTestSignals.h"

#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

#include <cstdlib>
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

} // namespace

void* operator new(std::size_t size)
{
    return countedMemory(size, alignof(std::max_align_t));
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return countedMemory(size, std::size_t(alignment));
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
        for (std::size_t n = 1; n <= 65536; n *= 2) {
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

    void object_givesTheSameAgain_afterOtherSamples()
    {
        for (const std::size_t n : {4096U, 32768U}) {
            const FFTReal<double> fft {qint64(n)};
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
            const Samples copy = x;
            transformed(x);
            QVERIFY(x == copy);
        }
    }

    void transform_allocatesNothing_butItsConstruction()
    {
        for (const std::size_t n : {1U, 4U, 1024U, 16384U, 32768U}) {
            const Samples x = noise(n);
            Samples f(n);
            const int before = allocations;
            const FFTReal<double> fft {qint64(n)};
            const int built = allocations;
            fft.do_fft(f.data(), x.data());
            QCOMPARE(allocations, built);
            QVERIFY(built > before);
        }
    }

    void bitReversal_reversesTheBits_ofEveryIndex()
    {
        const FFTReal<double> fft(64);
        QCOMPARE(FFTRealProbe::bitReversal(fft).size(), qint64(64));
        for (int i = 0; i < 64; ++i) {
            int reversed = 0;
            for (int bit = 0; bit < 6; ++bit)
                reversed |= (i >> bit & 1) << (5 - bit);
            QCOMPARE(FFTRealProbe::bitReversal(fft)[i], qint64(reversed));
        }
    }

    void cosines_areLaidOutByLevel_fromLevelThree()
    {
        const FFTReal<double> fft(32768);
        const FFTArray<double>& cosines = FFTRealProbe::cosines(fft);
        QCOMPARE(cosines.size(), qint64((1 << 14) - 4));
        for (int level = 3; level <= 14; ++level) {
            const qint64 count = 1 << (level - 1);
            for (qint64 i = 0; i < count; ++i) {
                const long double angle = std::acos(-1.0L) * i / (2 * count);
                // The angle's own rounding, at most half an epsilon of pi / 2, and the cosine's.
                QVERIFY(std::abs(double(cosines[count - 4 + i] - std::cos(angle))) <= epsilon);
            }
        }
    }

    void cosines_areAbsent_belowSixteenSamples()
    {
        QCOMPARE(FFTRealProbe::cosines(FFTReal<double>(8)).size(), qint64(0));
        QCOMPARE(FFTRealProbe::cosines(FFTReal<double>(16)).size(), qint64(4));
    }

    void oscillators_areOneForEachPassAboveTwelve()
    {
        QCOMPARE(FFTRealProbe::oscillators(FFTReal<double>(1024)).size(), qint64(0));
        QCOMPARE(FFTRealProbe::oscillators(FFTReal<double>(4096)).size(), qint64(0));
        QCOMPARE(FFTRealProbe::oscillators(FFTReal<double>(8192)).size(), qint64(1));
        const FFTReal<double> fft(65536);
        QCOMPARE(FFTRealProbe::oscillators(fft).size(), qint64(4));
        for (int j = 0; j < 4; ++j) {
            const FFTOscillator<double>& oscillator = FFTRealProbe::oscillators(fft)[j];
            QCOMPARE(oscillator.cosine, 1.0);
            QCOMPARE(oscillator.sine, 0.0);
            QCOMPARE(oscillator.stepCosine, std::cos(M_PI / (8192 << j)));
            QCOMPARE(oscillator.stepSine, std::sin(M_PI / (8192 << j)));
        }
    }

    void oscillator_entersTheSpectrum_from16384SamplesOn()
    {
        for (const std::size_t n : {8192U, 16384U}) {
            const FFTReal<double> fft {qint64(n)};
            const Samples x = noise(n);
            Samples before(n);
            Samples after(n);
            fft.do_fft(before.data(), x.data());
            FFTRealProbe::oscillators(fft)[0].setStep(1.0);
            fft.do_fft(after.data(), x.data());
            QCOMPARE(before == after, n == 8192);
        }
    }

    void misuse_stopsTheProgram_withFileLineAndText_data()
    {
        QTest::addColumn<QString>("file");
        const char* const ofTheTables[] = {"size >= 0", "pos >= 0", "pos < _len"};
        for (const char* text : ofTheTables)
            QTest::newRow(text) << "FFTTables.h";
        QTest::newRow("x > 0") << "FFTReal.h";
        const char* const ofTheTransform[] = {"FFTReal_is_pow2 (length)",
            "_nbr_bits <= MAX_BIT_DEPTH", "f != 0", "f != use_buffer ()", "x != 0",
            "x != use_buffer ()", "x != f", "df != 0", "sf != 0", "df != sf", "df != x",
            "pass >= 3", "pass < _nbr_bits", "pass > TRIGO_BD_LIMIT"};
        for (const char* text : ofTheTransform)
            QTest::newRow(text) << "FFTReal_p.h";
    }
    void misuse_stopsTheProgram_withFileLineAndText()
    {
        QFETCH(QString, file);
        const QString text = QTest::currentDataTag();
        QProcess program;
        program.start(FFT_ASSERTION_PROGRAM, {text});
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);
        const QRegularExpression line("(^|/)" + QRegularExpression::escape(file)
            + ":[1-9][0-9]*: check failed: " + QRegularExpression::escape(text) + "\n$");
        const QString error = QString::fromLocal8Bit(program.readAllStandardError());
        QVERIFY2(line.match(error).hasMatch(), qPrintable(error));
    }
};

QTEST_GUILESS_MAIN(TestFFTReal)
#include "tst_fft_real.moc"
