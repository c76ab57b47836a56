// SPDX-License-Identifier: GPL-3.0-or-later
// The psychometric function of largest likelihood, searched by GSL's minimiser, and its precision
// by fits of answers drawn from it.
#include "psychometrics/PsychometricFit.h"

#include "psychometrics/PsychometricFunction.h"

#include <algorithm>
#include <cmath>
#include <gsl/gsl_multimin.h>
#include <gsl/gsl_statistics_double.h>
#include <limits>
#include <memory>

namespace {

constexpr double leastSpreadDb = 0.1;
constexpr double mostSpreadDb = 40.0;
constexpr double roomDb = 20.0; // for m beyond the levels

// A parameter with limits, which are reached: the search moves an angle.
struct Bounded {
    double least;
    double most;

    double at(double angle) const { return least + (most - least) * 0.5 * (1.0 + std::sin(angle)); }
    double angleOf(double value) const
    {
        return std::asin(2.0 * (value - least) / (most - least) - 1.0);
    }
};

struct Search {
    const std::vector<FitLevel>& levels;
    FitShape shape;
    Bounded middleDb;
    Bounded logSpread;
    Bounded lapseRate;
};

Search searchOf(const std::vector<FitLevel>& levels, FitShape shape, const LapseLimits& lapses)
{
    double least = std::numeric_limits<double>::infinity();
    double most = -least;
    for (const FitLevel& level : levels) {
        if (std::isfinite(level.decibels)) {
            least = std::min(least, level.decibels);
            most = std::max(most, level.decibels);
        }
    }
    return {levels, shape, {least - roomDb, most + roomDb},
        {std::log(leastSpreadDb), std::log(mostSpreadDb)}, {lapses.least, lapses.most}};
}

FittedFunction functionAt(const Search& search, const gsl_vector* angles)
{
    return {search.shape, search.middleDb.at(gsl_vector_get(angles, 0)),
        std::exp(search.logSpread.at(gsl_vector_get(angles, 1))),
        angles->size > 2 ? search.lapseRate.at(gsl_vector_get(angles, 2)) : search.lapseRate.least};
}

double negativeLogLikelihood(const std::vector<FitLevel>& levels, const FittedFunction& function)
{
    constexpr double surest = 1.0 - 1e-12; // keeps one wrong answer from being impossible
    double sum = 0.0;
    for (const FitLevel& level : levels) {
        const double p = std::min(function.probabilityRight(level.decibels), surest);
        sum -= level.nCorrect * std::log(p) + (level.nTrials - level.nCorrect) * std::log1p(-p);
    }
    return sum;
}

double objective(const gsl_vector* angles, void* parameters)
{
    const auto& search = *static_cast<const Search*>(parameters);
    return negativeLogLikelihood(search.levels, functionAt(search, angles));
}

struct VectorDeleter {
    void operator()(gsl_vector* vector) const { gsl_vector_free(vector); }
};
struct MinimizerDeleter {
    void operator()(gsl_multimin_fminimizer* minimizer) const
    {
        gsl_multimin_fminimizer_free(minimizer);
    }
};

// The least at one s, with m wherever it is best.
double leastAtSpread(const Search& search, double spreadDb, double lapseRate)
{
    constexpr double stepDb = 0.25;
    double least = std::numeric_limits<double>::infinity();
    const auto nSteps = static_cast<int>((search.middleDb.most - search.middleDb.least) / stepDb);
    for (int i = 0; i <= nSteps; ++i) {
        const double m = search.middleDb.least + i * stepDb;
        least = std::min(
            least, negativeLogLikelihood(search.levels, {search.shape, m, spreadDb, lapseRate}));
    }
    return least;
}

struct Found {
    FittedFunction function;
    double minimum;
};

Found searched(const Search& search, const FittedFunction& start)
{
    Search parameters = search; // GSL asks for one that might be changed
    const size_t nAngles = search.lapseRate.least < search.lapseRate.most ? 3 : 2;
    constexpr double firstStep = 0.2; // rad
    constexpr double lastStep = 1e-7;
    constexpr int mostSteps = 2000;
    const std::unique_ptr<gsl_vector, VectorDeleter> angles(gsl_vector_alloc(nAngles));
    gsl_vector_set(angles.get(), 0, search.middleDb.angleOf(start.middleDb));
    gsl_vector_set(angles.get(), 1, search.logSpread.angleOf(std::log(start.spreadDb)));
    if (nAngles > 2) {
        gsl_vector_set(angles.get(), 2, search.lapseRate.angleOf(start.lapseRate));
    }
    const std::unique_ptr<gsl_vector, VectorDeleter> steps(gsl_vector_alloc(nAngles));
    gsl_vector_set_all(steps.get(), firstStep);
    gsl_multimin_function function = {objective, nAngles, &parameters};
    const std::unique_ptr<gsl_multimin_fminimizer, MinimizerDeleter> minimizer(
        gsl_multimin_fminimizer_alloc(gsl_multimin_fminimizer_nmsimplex2, nAngles));
    gsl_multimin_fminimizer_set(minimizer.get(), &function, angles.get(), steps.get());
    for (int i = 0; i < mostSteps; ++i) {
        if (gsl_multimin_fminimizer_iterate(minimizer.get()) != GSL_SUCCESS
            || gsl_multimin_fminimizer_size(minimizer.get()) < lastStep) {
            break;
        }
    }
    return {functionAt(search, gsl_multimin_fminimizer_x(minimizer.get())),
        gsl_multimin_fminimizer_minimum(minimizer.get())};
}

// Whether a function at the limits of s or m describes the answers as well as the one found.
bool isAtLimit(const Search& search, const Found& found)
{
    constexpr double asWell = 1e-3;
    constexpr double closeDb = 0.01;
    const double middleDb = found.function.middleDb;
    const double enough = found.minimum + asWell;
    return leastAtSpread(search, leastSpreadDb, found.function.lapseRate) < enough
        || leastAtSpread(search, mostSpreadDb, found.function.lapseRate) < enough
        || std::min(middleDb - search.middleDb.least, search.middleDb.most - middleDb) < closeDb;
}

// The likelihood of the shares that were observed: no function comes nearer to the answers.
double saturated(const std::vector<FitLevel>& levels)
{
    const auto term = [](int part, int whole) {
        return part == 0 ? 0.0 : part * std::log(static_cast<double>(part) / whole);
    };
    double sum = 0.0;
    for (const FitLevel& level : levels) {
        sum -= term(level.nCorrect, level.nTrials)
            + term(level.nTrials - level.nCorrect, level.nTrials);
    }
    return sum;
}

double devianceOf(const std::vector<FitLevel>& levels, double minimum)
{
    return std::max(0.0, 2.0 * (minimum - saturated(levels)));
}

std::vector<FitLevel> drawnAnswers(
    std::vector<FitLevel> levels, const FittedFunction& function, std::mt19937_64& generator)
{
    for (FitLevel& level : levels) {
        const double p = function.probabilityRight(level.decibels);
        level.nCorrect = 0;
        for (int i = 0; i < level.nTrials; ++i) {
            level.nCorrect += nextFraction(generator) < p ? 1 : 0;
        }
    }
    return levels;
}

FitInterval intervalOf(std::vector<double> values)
{
    constexpr double tail = 0.025;
    std::sort(values.begin(), values.end());
    const auto quantile = [&values](double share) {
        return gsl_stats_quantile_from_sorted_data(values.data(), 1, values.size(), share);
    };
    return {quantile(tail), quantile(1.0 - tail)};
}

} // namespace

PsychometricFit psychometricFit(
    const std::vector<FitLevel>& levels, FitShape shape, const LapseLimits& lapses)
{
    const Search search = searchOf(levels, shape, lapses);
    const double middle = search.middleDb.at(0.0);
    const double lapseRate = 0.75 * lapses.least + 0.25 * lapses.most;
    Found best = {{}, std::numeric_limits<double>::infinity()};
    for (const double startDb : {middle - roomDb / 2, middle, middle + roomDb / 2}) {
        for (const double spreadDb : {1.0, 4.0, 12.0}) {
            const Found found = searched(search, {shape, startDb, spreadDb, lapseRate});
            best = found.minimum < best.minimum ? found : best;
        }
    }
    // The simplex may have shrunk too early: the search begins again from what it found.
    best = searched(search, best.function);
    return {best.function, devianceOf(levels, best.minimum), isAtLimit(search, best)};
}

FitPrecision fitPrecision(const std::vector<FitLevel>& levels, const PsychometricFit& fit,
    const LapseLimits& lapses, int nSamples, std::uint64_t seed, const SamplesDone& samplesDone)
{
    std::mt19937_64 generator(seed);
    std::array<std::vector<double>, fitTargets.size()> thresholds;
    std::vector<double> slopes;
    std::vector<double> lapseRates;
    int nWorse = 0;
    for (int i = 0; i < nSamples; ++i) {
        const std::vector<FitLevel> drawn = drawnAnswers(levels, fit.function, generator);
        const Search search = searchOf(drawn, fit.function.shape, lapses);
        const Found found = searched(search, searched(search, fit.function).function);
        for (size_t target = 0; target < fitTargets.size(); ++target) {
            thresholds[target].push_back(found.function.decibelsAt(fitTargets[target]));
        }
        slopes.push_back(found.function.slope());
        lapseRates.push_back(found.function.lapseRate);
        nWorse += devianceOf(drawn, found.minimum) >= fit.deviance ? 1 : 0;
        samplesDone(i + 1);
    }
    FitPrecision precision = {{}, intervalOf(std::move(slopes)), intervalOf(std::move(lapseRates)),
        static_cast<double>(nWorse) / nSamples};
    std::transform(thresholds.begin(), thresholds.end(), precision.thresholds.begin(), intervalOf);
    return precision;
}
