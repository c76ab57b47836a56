// SPDX-License-Identifier: GPL-3.0-or-later
// FFTW on the same samples as bench_fft.cpp.
#include "FFTBenchmark.h"

#include <QtGlobal>

#include <fftw3.h>

namespace {

using fftTest::Samples;
using Complex = std::complex<double>;

// Real to half-complex: out of place, the samples kept, the imaginary parts from the end backwards.
fftw_plan halfComplexPlan(Samples& x, Samples& f, unsigned effort)
{
    return fftw_plan_r2r_1d(
        int(x.size()), x.data(), f.data(), FFTW_R2HC, effort | FFTW_PRESERVE_INPUT);
}

// Measuring writes into the samples, and a plan belongs to their address.
void fillWithNoise(Samples& x)
{
    const Samples noise = fftTest::noise(x.size());
    std::copy(noise.begin(), noise.end(), x.begin());
}

// The planner's memory of earlier plans is dropped, untimed, before each: no plan profits from a
// measured one.
void estimateAndExecute(benchmark::State& state)
{
    Samples x = fftTest::noise(lengthOf(state));
    Samples f(x.size());
    for (auto _ : state) {
        state.PauseTiming();
        fftw_forget_wisdom();
        state.ResumeTiming();
        const fftw_plan plan = halfComplexPlan(x, f, FFTW_ESTIMATE);
        fftw_execute(plan);
        fftw_destroy_plan(plan);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(estimateAndExecute)->Name("FFTW/estimate+execute")->Apply(fftLengths);

// The planner remembers the measured plan: only the twiddles are made anew.
void recallAndExecute(benchmark::State& state)
{
    Samples x(lengthOf(state));
    Samples f(x.size());
    fftw_destroy_plan(halfComplexPlan(x, f, FFTW_MEASURE));
    fillWithNoise(x);
    for (auto _ : state) {
        const fftw_plan plan = halfComplexPlan(x, f, FFTW_ESTIMATE);
        fftw_execute(plan);
        fftw_destroy_plan(plan);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(recallAndExecute)->Name("FFTW/remembered+execute")->Apply(fftLengths);

void executeMeasured(benchmark::State& state)
{
    Samples x(lengthOf(state));
    Samples f(x.size());
    const fftw_plan plan = halfComplexPlan(x, f, FFTW_MEASURE);
    fillWithNoise(x);
    for (auto _ : state) {
        fftw_execute(plan);
        benchmark::ClobberMemory();
    }
    countError(state, x, [&f](std::size_t k) {
        const bool isReal = k == 0 || k == f.size() / 2;
        return Complex(f[k], isReal ? 0.0 : f[f.size() - k]);
    });
    fftw_destroy_plan(plan);
}
BENCHMARK(executeMeasured)->Name("FFTW/execute measured")->Apply(fftLengths);

// Real to complex has vector code for which half-complex has none, but another layout. It is at its
// fastest with buffers of FFTW's own alignment.
class ComplexTransform {
public:
    explicit ComplexTransform(std::size_t n)
        : m_n(n)
        , m_x(fftw_alloc_real(n))
        , m_bins(fftw_alloc_complex(n / 2 + 1))
    {
    }
    ~ComplexTransform()
    {
        fftw_free(m_bins);
        fftw_free(m_x);
    }
    Q_DISABLE_COPY(ComplexTransform)

    fftw_plan plan(unsigned effort)
    {
        return fftw_plan_dft_r2c_1d(int(m_n), m_x, m_bins, effort | FFTW_PRESERVE_INPUT);
    }
    void setSamples(const Samples& x) { std::copy(x.begin(), x.end(), m_x); }
    Complex bin(std::size_t k) const { return {m_bins[k][0], m_bins[k][1]}; }

private:
    std::size_t m_n;
    double* m_x;
    fftw_complex* m_bins;
};

void estimateAndExecuteComplex(benchmark::State& state)
{
    ComplexTransform transform(lengthOf(state));
    transform.setSamples(fftTest::noise(lengthOf(state)));
    for (auto _ : state) {
        state.PauseTiming();
        fftw_forget_wisdom();
        state.ResumeTiming();
        const fftw_plan plan = transform.plan(FFTW_ESTIMATE);
        fftw_execute(plan);
        fftw_destroy_plan(plan);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(estimateAndExecuteComplex)->Name("FFTW/estimate+execute r2c")->Apply(fftLengths);

void executeMeasuredComplex(benchmark::State& state)
{
    const Samples noise = fftTest::noise(lengthOf(state));
    ComplexTransform transform(noise.size());
    const fftw_plan plan = transform.plan(FFTW_MEASURE);
    transform.setSamples(noise);
    for (auto _ : state) {
        fftw_execute(plan);
        benchmark::ClobberMemory();
    }
    countError(state, noise, [&transform](std::size_t k) { return transform.bin(k); });
    fftw_destroy_plan(plan);
}
BENCHMARK(executeMeasuredComplex)->Name("FFTW/execute measured r2c")->Apply(fftLengths);

} // namespace
