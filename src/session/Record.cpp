// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Record.h"

Record::Record()
    : value(0.0)
    , stimulusPosition(0)
    , responsePosition(0)
    , correctness(false)
    , reactionTime(0.0)
{
}
