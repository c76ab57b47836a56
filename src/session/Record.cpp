// SPDX-License-Identifier: GPL-3.0-or-later
// The record of one trial: empty, and as an answer fills it.
#include "session/Record.h"

Record::Record()
    : value(0.0)
    , stimulusPosition(0)
    , responsePosition(0)
    , correctness(false)
    , reactionTime(0.0)
{
}

Record answeredTrial(double value, int stimulusPosition, int responsePosition, double reactionTime)
{
    Record record;
    record.value = value;
    record.stimulusPosition = stimulusPosition;
    record.responsePosition = responsePosition;
    record.correctness = responsePosition == stimulusPosition;
    record.reactionTime = reactionTime;
    return record;
}
