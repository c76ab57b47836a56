// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulate/Distribution.h"

#include "statistics/Spread.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

std::vector<double> sortedNumbers(std::vector<double> values)
{
    const auto isNan = [](double value) { return std::isnan(value); };
    values.erase(std::remove_if(values.begin(), values.end(), isNan), values.end());
    std::sort(values.begin(), values.end());
    return values;
}

} // namespace

Distribution::Distribution(std::vector<double> values)
    : m_sorted(sortedNumbers(std::move(values)))
    , m_mean(meanOf(m_sorted))
    , m_standardDeviation(standardDeviationOf(m_sorted))
{
}

double Distribution::quantile(double share) const
{
    if (m_sorted.empty()) {
        return notANumber;
    }
    const double place = share * static_cast<double>(m_sorted.size() - 1);
    const auto below = static_cast<size_t>(place);
    const size_t above = std::min(below + 1, m_sorted.size() - 1);
    const double part = place - static_cast<double>(below);
    return m_sorted[below] + part * (m_sorted[above] - m_sorted[below]);
}

RunStatistics runStatistics(const std::vector<RunOutcome>& outcomes)
{
    std::vector<double> thresholds;
    std::vector<double> trials;
    qint64 nTrials = 0;
    qint64 nCorrect = 0;
    for (const RunOutcome& outcome : outcomes) {
        const bool isCut = std::isnan(outcome.threshold);
        thresholds.push_back(outcome.threshold);
        trials.push_back(isCut ? notANumber : outcome.nTrials);
        nTrials += outcome.nTrials;
        nCorrect += outcome.nCorrect;
    }
    Distribution ofThresholds(std::move(thresholds));
    const int nCut = static_cast<int>(outcomes.size()) - ofThresholds.size();
    return {std::move(ofThresholds), Distribution(std::move(trials)),
        static_cast<double>(nCorrect) / static_cast<double>(nTrials), nCut};
}

double biasDb(const RunStatistics& statistics, const PsychometricFunction& listener)
{
    return 20.0 * std::log10(statistics.thresholds.mean() / listener.threshold);
}
