// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Data.h"

#include <QString>
#include <QTest>
#include <QVector>

/// A main parameter that the windows do not have.
constexpr int otherParameter = 2;

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

/// Fails the test unless a record has nothing of a run: results and all reversals are 0.
inline void verifyNothingOfARun(const Data& data, int nReversals)
{
    QCOMPARE(data.nTrials, 0);
    QVERIFY(data.records.isEmpty());
    QCOMPARE(data.reversals, QVector<double>(nReversals, 0.0));
    QCOMPARE(data.reversalCount, 0);
    QCOMPARE(data.deviantPosition, 0);
    QCOMPARE(data.threshold, 0.0);
    QCOMPARE(data.meanReactionTime, 0.0);
    QCOMPARE(data.meanReactionTimeCorrect, 0.0);
    QCOMPARE(data.meanReactionTimeIncorrect, 0.0);
}

/// Whether a character of a string of answers stands for a correct one: 'c', or 'w' for a wrong
/// one.
inline bool isCorrect(QChar answer)
{
    return answer == 'c';
}
