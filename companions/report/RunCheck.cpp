// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a saved run can be one: each value follows from the one before and the answer to it.
#include "report/RunCheck.h"

#include "procedure/ResultsFormat.h"
#include "session/Data.h"

#include <cmath>
#include <limits>

namespace {

// Copied or retyped values are seldom negative zeros: the application writes none but for values
// below 0.
bool isPossible(double value)
{
    return std::isfinite(value) && !std::signbit(value);
}

QString positionText(const char* whose, int position)
{
    return QString("%1 position is %2, not 2 or 3").arg(whose).arg(position);
}

QString textOf(const Record& record, const ReplayedTrial& trial)
{
    switch (trial.departure) {
    case Departure::none:
        return {};
    case Departure::afterTheEnd:
        return "the run has ended before this line";
    case Departure::stimulusPosition:
        return positionText("the stimulus", record.stimulusPosition);
    case Departure::responsePosition:
        return positionText("the response", record.responsePosition);
    case Departure::correctness:
        return "the correctness contradicts the positions";
    case Departure::value:
        break;
    }
    return QString("%1 does not follow from the line before, %2 would: a line is missing, doubled, "
                   "moved or changed")
        .arg(resultsNumber(record.value), resultsNumber(trial.expected));
}

} // namespace

Replay replayOf(const Data& data)
{
    Data run = data;
    run.nReversals = std::numeric_limits<int>::max();
    return replay(run, resultsFileValues(run.mainParameter));
}

TrialFault departureOf(const Data& data, const Replay& replay)
{
    for (int i = 0; i < data.records.size(); ++i) {
        const Record& record = data.records[i];
        if (!isPossible(record.value)) {
            return {i, resultsNumber(record.value) + " is no value of a run"};
        }
        const QString text = textOf(record, replay.trials[i]);
        if (!text.isEmpty()) {
            return {i, text};
        }
    }
    const int last = data.records.size() - 1;
    return replay.trials[last].isReversal
        ? TrialFault()
        : TrialFault {last, "the run does not end with a reversal: lines are missing"};
}
