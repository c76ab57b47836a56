// SPDX-License-Identifier: GPL-3.0-or-later
// Runs into the check whose text is the only argument. Exits normally when nothing stopped it, with
// 2 for an unknown text and 0 when the misuse went through.
#include "signal/FFTRealProbe.h"

#include <functional>
#include <map>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using Transform = FFTReal<double>;
using Probe = FFTRealProbe;

std::map<std::string, std::function<void()>> checksOfTheInterface(double* f, double* x)
{
    static Transform fft(16);
    return {
        {"x > 0", [] { Transform(0); }},
        {"FFTReal_is_pow2 (length)", [] { Transform(1000); }},
        {"_nbr_bits <= MAX_BIT_DEPTH", [] { Transform(qint64(1) << 31); }},
        {"f != 0", [=] { fft.do_fft(nullptr, x); }},
        {"f != use_buffer ()", [=] { fft.do_fft(fft.use_buffer(), x); }},
        {"x != 0", [=] { fft.do_fft(f, nullptr); }},
        {"x != use_buffer ()", [=] { fft.do_fft(f, fft.use_buffer()); }},
        {"x != f", [=] { fft.do_fft(f, f); }},
    };
}

std::map<std::string, std::function<void()>> innerChecks(double* f, double* x)
{
    static const Transform fft(16);
    return {
        {"df != 0", [=] { Probe::transform(fft, nullptr, f, x); }},
        {"sf != 0", [=] { Probe::transform(fft, f, nullptr, x); }},
        {"df != sf", [=] { Probe::transform(fft, f, f, x); }},
        {"df != x", [=] { Probe::transform(fft, x, f, x); }},
        {"pass >= 3", [] { Probe::twiddles(fft, 2); }},
        {"pass < _nbr_bits", [] { Probe::twiddles(fft, 4); }},
        {"pass > TRIGO_BD_LIMIT", [] { Probe::rotatedTwiddles(fft, 12); }},
        {"size >= 0", [] { FFTArray<double>(-1).size(); }},
        {"pos >= 0", [] { FFTArray<double>(4)[-1] = 0.0; }},
        {"pos < _len", [] { FFTArray<double>(4)[4] = 0.0; }},
    };
}

} // namespace

int main(int argc, char** argv)
{
    const rlimit noCoreFile = {0, 0};
    setrlimit(RLIMIT_CORE, &noCoreFile);

    std::vector<double> f(16);
    std::vector<double> x(16);
    auto misuses = checksOfTheInterface(f.data(), x.data());
    misuses.merge(innerChecks(f.data(), x.data()));
    const auto misuse = misuses.find(argc == 2 ? argv[1] : "");
    if (misuse == misuses.end())
        return 2;
    misuse->second();
    return 0;
}
