// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "procedure/ResultsFormat.h"
#include "procedure/RunResults.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "session/Data.h"

#include <QByteArray>
#include <QFile>

#include <random>

/// A run by the application's own rules whose listener answers 3 of 4 trials rightly at random, in
/// the units of the application, with its results.
inline Data simulatedRun(int mainParameter, unsigned seed, int nReversals = 14)
{
    std::mt19937 random(seed);
    Data data;
    data.mainParameter = mainParameter;
    data.cf[quorin::standard] = 1234.5;
    data.nReversals = nReversals;
    resetDeviant(data);
    while (true) {
        const int position = random() % 2 == 0 ? 2 : 3;
        const int response = random() % 4 != 0 ? position : 5 - position;
        const auto reactionTime = static_cast<double>(random() % 3000);
        data.records.append(answeredTrial(adaptedValue(data), position, response, reactionTime));
        data.nTrials = data.records.size();
        if (judgeTrial(data, data.nTrials - 1) == AfterTrial::end) {
            computeRunResults(data);
            return data;
        }
        stepDeviant(data);
    }
}

/// Puts bytes into a file, which is made.
inline void fillFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("the test's folder is not writable");
    }
}

/// The bytes of a file; a remark when it cannot be read.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}
