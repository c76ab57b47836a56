// SPDX-License-Identifier: GPL-3.0-or-later
// The figures over all runs of a simulation.
#include "simulate/RunStatistics.h"

#include <cmath>
#include <limits>
#include <utility>

RunStatistics runStatistics(const std::vector<RunOutcome>& outcomes, int runsAveraged)
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const auto perExperiment = static_cast<size_t>(runsAveraged);
    std::vector<double> thresholds;
    std::vector<double> decibels;
    std::vector<double> trials;
    qint64 nTrials = 0;
    qint64 nCorrect = 0;
    for (size_t first = 0; first + perExperiment <= outcomes.size(); first += perExperiment) {
        double sum = 0.0;
        int nTrialsHere = 0;
        for (size_t i = first; i < first + perExperiment; ++i) {
            sum += outcomes[i].threshold; // NaN of a run that was cut goes on
            nTrialsHere += outcomes[i].nTrials;
            nCorrect += outcomes[i].nCorrect;
        }
        const double threshold = sum / runsAveraged;
        thresholds.push_back(threshold);
        decibels.push_back(20.0 * std::log10(threshold));
        trials.push_back(std::isnan(threshold) ? none : nTrialsHere);
        nTrials += nTrialsHere;
    }
    const int nExperiments = static_cast<int>(thresholds.size());
    Distribution ofThresholds(std::move(thresholds));
    const int nCut = nExperiments - ofThresholds.size();
    return {std::move(ofThresholds), Distribution(std::move(decibels)),
        Distribution(std::move(trials)),
        static_cast<double>(nCorrect) / static_cast<double>(nTrials), nExperiments, nCut};
}

double biasDb(const RunStatistics& statistics, const PsychometricFunction& listener)
{
    return 20.0 * std::log10(statistics.thresholds.mean() / listener.threshold);
}
