// SPDX-License-Identifier: GPL-3.0-or-later
// A saved run taken through the staircase's rule again. Saved values are rounded, so the true one
// is followed as the interval that it must lie in. A value outside departs from the rule.
#include "procedure/Replay.h"

#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/Data.h"
#include "session/Units.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double halfOfLastDecimal = 0.5e-6; // results files have six

/// An interval of numbers, its ends included; NaN lies in none.
struct Interval {
    double low;
    double high;
};

bool overlap(const Interval& a, const Interval& b)
{
    return a.low <= b.high && b.low <= a.high;
}

Interval intersection(const Interval& a, const Interval& b)
{
    return {std::max(a.low, b.low), std::min(a.high, b.high)};
}

Interval widened(const Interval& interval, double margin)
{
    // Each product of the run and of the replay is rounded by half an epsilon.
    constexpr double share = 4 * std::numeric_limits<double>::epsilon();
    const auto marginAt
        = [margin](double end) { return std::isinf(end) ? 0.0 : margin + share * std::abs(end); };
    return {interval.low - marginAt(interval.low), interval.high + marginAt(interval.high)};
}

/// Follows the true value behind rounded ones.
class TrueValue {
public:
    TrueValue(double first, const ValueNotation& notation)
        : m_rounding(notation.rounding)
        , m_ceiling {notation.ceiling.value_or(-infinity), notation.ceiling.value_or(infinity)}
        , m_possible(widened({first, first}, m_rounding))
        , m_unbounded(m_possible)
        , m_likely(first)
    {
    }

    /// The likeliest value of the present trial.
    double likely() const { return m_likely; }

    void step(int stepDb)
    {
        m_unbounded = widened({steppedValue(m_possible.low, stepDb, infinity),
                                  steppedValue(m_possible.high, stepDb, infinity)},
            0.0);
        m_possible = {
            std::min(m_unbounded.low, m_ceiling.low), std::min(m_unbounded.high, m_ceiling.high)};
        m_likely = steppedValue(m_likely, stepDb, m_ceiling.high);
    }

    /// Takes the value that was given after a step.
    /// @return whether it can be the one that the step gave
    bool follow(double given)
    {
        const Interval around = widened({given, given}, m_rounding);
        if (!overlap(around, m_possible)) {
            m_possible = around;
            m_likely = given;
            return false;
        }
        m_possible = intersection(around, m_possible);
        m_likely = std::max(m_possible.low, std::min(given, m_possible.high));
        if (around.high < m_unbounded.low) {
            m_ceiling = intersection(m_ceiling, around);
        } else {
            m_ceiling.low = std::max(m_ceiling.low, m_possible.low);
        }
        return true;
    }

private:
    double m_rounding;
    Interval m_ceiling; ///< where the ceiling lies, as far as known
    Interval m_possible; ///< where the present trial's value lies
    Interval m_unbounded; ///< where it would lie without a ceiling
    double m_likely;
};

Departure departureOf(const Record& trial, bool isAfterTheEnd, bool hasItsValue)
{
    const auto isAnInterval = [](int position) { return position == 2 || position == 3; };
    if (isAfterTheEnd) {
        return Departure::afterTheEnd;
    }
    if (!isAnInterval(trial.stimulusPosition)) {
        return Departure::stimulusPosition;
    }
    if (!isAnInterval(trial.responsePosition)) {
        return Departure::responsePosition;
    }
    if (trial.correctness != (trial.responsePosition == trial.stimulusPosition)) {
        return Departure::correctness;
    }
    return hasItsValue ? Departure::none : Departure::value;
}

} // namespace

ValueNotation exactFractions(int mainParameter)
{
    const AdaptedParameter* const adapted = adaptedParameter(mainParameter);
    if (adapted == nullptr) {
        return {std::nullopt, 0.0};
    }
    return {adapted->ceiling, 0.0};
}

ValueNotation resultsFileValues(int mainParameter)
{
    const AdaptedParameter* const adapted = adaptedParameter(mainParameter);
    if (adapted == nullptr || adapted->isOfCarrier) {
        return {std::nullopt, halfOfLastDecimal};
    }
    return {inPercent(adapted->ceiling), halfOfLastDecimal};
}

int Replay::firstDeparture() const
{
    const auto departing = std::find_if(trials.cbegin(), trials.cend(),
        [](const ReplayedTrial& trial) { return trial.departure != Departure::none; });
    return departing == trials.cend() ? -1 : static_cast<int>(departing - trials.cbegin());
}

Replay replay(const Data& run, const ValueNotation& notation)
{
    Replay result;
    if (run.records.isEmpty()) {
        return result;
    }
    Data data = run;
    data.reversals.clear();
    data.reversalCount = 0;
    TrueValue value(run.records.constFirst().value, notation);
    AfterTrial next = AfterTrial::nextTrial;
    for (int i = 0; i < run.records.size(); ++i) {
        const Record& trial = run.records[i];
        const bool isAfterTheEnd = next == AfterTrial::end;
        const int countBefore = data.reversalCount;
        const double expected = value.likely();
        const bool hasItsValue = i == 0 ? !std::isnan(trial.value) : value.follow(trial.value);
        next = judgeTrial(data, i);
        value.step(nextStepDb(data));
        result.trials.append({expected, data.reversalCount > countBefore, data.reversalCount,
            departureOf(trial, isAfterTheEnd, hasItsValue)});
    }
    result.reversals = data.reversals;
    return result;
}
