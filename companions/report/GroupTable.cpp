// SPDX-License-Identifier: GPL-3.0-or-later
// Means over the subjects of a study, by what their runs have in common.
#include "report/GroupTable.h"

#include "report/Texts.h"
#include "report/Units.h"
#include "session/OutputFileName.h"
#include "statistics/Inference.h"

#include <QMap>

namespace {

constexpr auto subjectKey = "subject";
constexpr auto parameterKey = "parameter";

QString fieldOf(const Run& run, const QString& key)
{
    if (key == subjectKey) {
        return subjectOf(run);
    }
    if (key == parameterKey) {
        return parameterOf(run);
    }
    if (key == "sound") {
        return soundOf(run);
    }
    return key == "type" ? sessionTypeOf(run) : sessionNumber(run.data.sesNum);
}

QStringList fieldsOf(const Run& run, const QStringList& keys)
{
    QStringList fields;
    for (const QString& key : keys) {
        fields.append(fieldOf(run, key));
    }
    return fields;
}

/// The runs of a group, and the levels in dB of its units' runs.
struct Group {
    Data data; ///< of any of its runs
    int nRuns = 0;
    QMap<QString, QVector<double>> levels; ///< by unit
};

using Groups = QMap<QStringList, Group>;

Groups groupsOf(const QVector<Run>& runs, const QStringList& keys)
{
    Groups groups;
    for (const Run& run : runs) {
        if (run.isNamed) {
            Group& group = groups[fieldsOf(run, keys)];
            group.data = run.data;
            ++group.nRuns;
            const QString unit = keys.contains(subjectKey) ? run.path : subjectOf(run);
            group.levels[unit].append(decibelsOf(run.data, run.data.threshold));
        }
    }
    return groups;
}

QStringList figuresOf(const Group& group)
{
    QVector<double> levels;
    QVector<double> values;
    for (const QVector<double>& unit : group.levels) {
        levels.append(meanEstimate(unit).mean);
        values.append(valueOfDecibels(group.data, levels.constLast()));
    }
    const MeanEstimate inUnit = meanEstimate(values);
    const MeanEstimate inDb = meanEstimate(levels);
    return {QString::number(group.nRuns), QString::number(inUnit.n), shown(inUnit.mean),
        shown(inUnit.deviation), shown(inUnit.error), shown(valueOfDecibels(group.data, inDb.mean)),
        shown(valueOfDecibels(group.data, inDb.low)), shown(valueOfDecibels(group.data, inDb.high)),
        unitOf(group.data)};
}

} // namespace

QStringList groupKeys()
{
    return {subjectKey, parameterKey, "sound", "type", "session"};
}

QString groupTable(const QVector<Run>& runs, const QStringList& keys)
{
    const QStringList all = keys.contains(parameterKey) ? keys : keys + QStringList(parameterKey);
    const bool isOverRuns = keys.contains(subjectKey);
    QVector<QStringList> rows {all
        + QStringList {"runs", "n", "mean", "SD", "SE", "geo. mean", "95 % from", "to", "unit"}};
    const Groups groups = groupsOf(runs, all);
    int nLeftOut = runs.size();
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        QStringList fields = group.key();
        for (QString& field : fields) {
            field = onOneLine(field);
        }
        rows.append(fields + figuresOf(group.value()));
        nLeftOut -= group.value().nRuns;
    }
    const QString title = isOverRuns ? "\nThresholds by " + all.join(", ") + "; n: runs\n\n"
                                     : "\nThresholds by " + all.join(", ")
            + "; n: subjects, each by the geometric mean of its runs\n\n";
    return title + alignedTable(rows, all.size())
        + (nLeftOut > 0 ? QString("runs of unknown subjects, left out: %1\n").arg(nLeftOut)
                        : QString());
}
