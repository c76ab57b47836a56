// SPDX-License-Identifier: GPL-3.0-or-later
// The report of a trial, and the comparison of the results file with what was heard.
#include "demo/DemoTrial.h"

#include <QList>

#include <cmath>

namespace {

// The panel rounds to 4 decimals, the file to 6.
constexpr double roundingOfValues = 0.51e-4;
constexpr int columns = 5;

bool agrees(const QList<QByteArray>& fields, const DemoTrial& trial)
{
    return fields.size() == columns
        && std::abs(fields[0].toDouble() - trial.value.toDouble()) <= roundingOfValues
        && fields[1].toInt() == trial.heard && fields[2].toInt() == trial.answer
        && fields[3] == (trial.isRight() ? "1" : "0");
}

} // namespace

int reversals(const QVector<DemoTrial>& trials)
{
    int count = 0;
    for (int i = 1; i < trials.size(); ++i) {
        count += trials[i].isRight() == trials[i - 1].isRight() ? 0 : 1;
    }
    return count;
}

QString progressLine(const QVector<DemoTrial>& trials, const QString& unit)
{
    const DemoTrial& trial = trials.constLast();
    return QString("trial %1   reversals %2   value %3 %4   heard in %5   answer %6   %7")
        .arg(trials.size(), 3)
        .arg(reversals(trials), 2)
        .arg(trial.value, 8)
        .arg(unit)
        .arg(trial.heard)
        .arg(trial.answer)
        .arg(trial.isRight() ? "right" : "wrong");
}

QString disagreement(const QByteArray& file, const QVector<DemoTrial>& trials)
{
    QList<QByteArray> lines = file.split('\n');
    lines.removeFirst();
    if (!lines.isEmpty() && lines.constLast().isEmpty()) {
        lines.removeLast();
    }
    if (lines.size() != trials.size()) {
        return QString("it has %1 trials, the listener answered %2")
            .arg(lines.size())
            .arg(trials.size());
    }
    for (int i = 0; i < trials.size(); ++i) {
        if (!agrees(lines[i].trimmed().split('\t'), trials[i])) {
            return QString("trial %1 is \"%2\"")
                .arg(i + 1)
                .arg(QString::fromLatin1(lines[i].trimmed()));
        }
    }
    return {};
}
