// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <QString>
#include <QVector>

/// One answered trial with the deviant in interval 2.
inline Record answered(bool isCorrect, double value = 0.0, double reactionTime = 0.0)
{
    return answeredTrial(value, 2, isCorrect ? 2 : 3, reactionTime);
}

/// Adds an answered trial to a run and counts it.
inline void addAnswer(Data& data, bool isCorrect, double value = 0.0)
{
    data.records.append(answered(isCorrect, value));
    data.nTrials = data.records.size();
}

/// Whether a character of a string of answers stands for a correct one: 'c', or 'w' for a wrong
/// one.
inline bool isCorrect(QChar answer)
{
    return answer == 'c';
}
