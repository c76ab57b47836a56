// SPDX-License-Identifier: GPL-3.0-or-later
// The figures that the user guide has from simulated runs.
#include "documents/Guide.h"
#include "psychometrics/PsychometricFunction.h"
#include "simulate/RunStatistics.h"
#include "simulate/SimulatedRuns.h"
#include "support/QuietTest.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

struct Reversals {
    int all;
    int averaged;
};

std::vector<RunOutcome> runsOf(
    const PsychometricFunction& listener, int mainParameter, Reversals reversals, int nRuns)
{
    Simulation simulation = defaultSimulation(mainParameter);
    simulation.listener = listener;
    simulation.nReversals = reversals.all;
    simulation.nReversalsToCalculate = reversals.averaged;
    simulation.nRuns = nRuns;
    return simulatedRuns(simulation, QThread::idealThreadCount(), [](int) {});
}

/// Control runs without modulation, by a listener who is right with one probability.
std::vector<RunOutcome> controlRuns(double probability, int nReversals)
{
    constexpr int nRuns = 50000;
    return runsOf(constantListener(probability), modulationDepthParameter, {nReversals, 8}, nRuns);
}

/// What the guide's table says of the runs of a listener.
struct TableColumn {
    QString correct;
    QString spread;
    QString spreadOfThree;
    QString trials;
};

TableColumn tableColumn(
    const PsychometricFunction& listener, int mainParameter, Reversals reversals = {14, 8})
{
    constexpr int nRuns = 20000;
    const RunStatistics runs = runStatistics(runsOf(listener, mainParameter, reversals, nRuns));
    const double mean = runs.thresholds.mean();
    const double spread = runs.thresholds.standardDeviation() / mean * percent;
    return {decimals(listener.probabilityRight(mean) * percent, 0), decimals(spread, 0),
        decimals(spread / std::sqrt(3.0), 0), decimals(runs.trials.mean(), 0)};
}

Distribution sharesCorrect(const std::vector<RunOutcome>& runs)
{
    std::vector<double> shares;
    shares.reserve(runs.size());
    for (const RunOutcome& run : runs) {
        shares.push_back(static_cast<double>(run.nCorrect) / run.nTrials);
    }
    return Distribution(shares);
}

/// Percentage of runs whose share of correct answers is above the guessers' 95 % limit.
double powerOfControl(const Distribution& guesses, const Distribution& shares)
{
    const double limit = guesses.quantile(0.95);
    const std::vector<double>& sorted = shares.sorted();
    const auto passing
        = std::count_if(sorted.begin(), sorted.end(), [limit](double x) { return x > limit; });
    return static_cast<double>(passing) / static_cast<double>(sorted.size()) * percent;
}

} // namespace

class TestGuideSimulations : public QuietTest {
    Q_OBJECT

private slots:
    void runs_averageSo_inTheTable()
    {
        const TableColumn depth
            = tableColumn(logisticListener(0.056234, 2.5), modulationDepthParameter);
        const TableColumn frequency
            = tableColumn(gaussianListener(0.002, 1.0), carrierFrequencyParameter);
        GUIDE_SAYS(QString("| percent correct at the mean threshold | %1 % | %2 % |")
                       .arg(depth.correct, frequency.correct));
        GUIDE_SAYS(QString("| standard deviation of one run, of the threshold | %1 % | %2 % |")
                       .arg(depth.spread, frequency.spread));
        GUIDE_SAYS(QString("| of the mean of three runs | %1 % | %2 % |")
                       .arg(depth.spreadOfThree, frequency.spreadOfThree));
        GUIDE_SAYS(QString("| trials | %1 | %2 |").arg(depth.trials, frequency.trials));
        const TableColumn shallow
            = tableColumn(weibullListener(0.056234, 1.5), modulationDepthParameter);
        GUIDE_SAYS(QString("an exponent of 1.5) gives %1 % and %2 % there")
                       .arg(shallow.correct, shallow.spread));
    }

    void runs_spreadLess_whenMoreReversalsAreAveraged()
    {
        constexpr Reversals many = {30, 24};
        const TableColumn depth
            = tableColumn(logisticListener(0.056234, 2.5), modulationDepthParameter, many);
        const TableColumn frequency
            = tableColumn(gaussianListener(0.002, 1.0), carrierFrequencyParameter, many);
        GUIDE_SAYS(QString("(the last %1 of %2: %3 and %4 % for one run, of %5 and %6 trials)")
                       .arg(many.averaged)
                       .arg(many.all)
                       .arg(depth.spread, frequency.spread, depth.trials, frequency.trials));
    }

    void controlRun_tellsSoMuch_whenSoLong()
    {
        const std::vector<RunOutcome> guesses = controlRuns(0.5, 14);
        const Distribution shares = sharesCorrect(guesses);
        GUIDE_SAYS(
            QString("they have %1 trials on average, and pure guessers score %2 to %3 % in 95")
                .arg(decimals(runStatistics(guesses).trials.mean(), 0),
                    decimals(shares.quantile(0.025) * percent, 0),
                    decimals(shares.quantile(0.975) * percent, 0)));
        const double power = powerOfControl(shares, sharesCorrect(controlRuns(0.65, 14)));
        QVERIFY2(power > 48 && power < 52, qPrintable(decimals(power, 2)));
        const std::vector<RunOutcome> longGuesses = controlRuns(0.5, 60);
        const Distribution longShares = sharesCorrect(controlRuns(0.65, 60));
        GUIDE_SAYS(QString("in half of such runs, but in %1 % of runs of 60 reversals (%2 trials")
                       .arg(decimals(powerOfControl(sharesCorrect(longGuesses), longShares), 0),
                           decimals(runStatistics(longGuesses).trials.mean(), 0)));
    }
};

QUORIN_TEST(TestGuideSimulations);
#include "tst_guide_simulations.moc"
