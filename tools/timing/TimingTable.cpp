// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the timing table.
#include "timing/TimingTable.h"

#include "timing/Summary.h"

#include <cmath>
#include <limits>

namespace {

constexpr int conditionWidth = 19;
constexpr int figureWidth = 57;
constexpr int numberWidth = 8;

QString line(const QString& condition, const QString& figure, const QStringList& numbers)
{
    QString text = QString("| %1 | %2 |").arg(condition, -conditionWidth).arg(figure, -figureWidth);
    for (const QString& number : numbers)
        text += QString(" %1 |").arg(number, numberWidth);
    return text;
}

QString row(const QString& condition, const QString& figure, const QVector<double>& values)
{
    const Summary summary = summaryOf(values);
    QStringList numbers = {QString::number(summary.n)};
    for (const double value : {summary.mean, summary.sd, summary.minimum, summary.maximum})
        numbers += summary.n == 0 ? QString("-") : QString::number(value, 'f', 2);
    return line(condition, figure, numbers);
}

// The differences of a figure over the sounds; those that are not numbers did not happen.
QVector<double> over(const Measurement& measurement, const std::function<double(int)>& figure)
{
    QVector<double> values;
    for (int i = 0; i < measurement.sounds.size(); ++i) {
        const double value = figure(i);
        if (!std::isnan(value))
            values.append(value);
    }
    return values;
}

} // namespace

QStringList tableHeading()
{
    const QString rule(numberWidth - 1, '-');
    const QString right = rule + ':';
    return {
        line("condition", "figure (ms where no unit is given)",
            {"n", "mean", "SD", "minimum", "maximum"}),
        line(QString(conditionWidth, '-'), QString(figureWidth, '-'),
            {right, right, right, right, right}),
    };
}

QStringList tableRows(const QString& condition, const Measurement& m)
{
    constexpr double nothing = std::numeric_limits<double>::quiet_NaN();
    const auto& sounds = m.sounds;
    const auto onset = [&](int i) { return m.timeMs(m.recorded[i].begin); };
    const auto end = [&](int i) {
        return m.timeMs(m.recorded[i].begin + m.recorded[i].length - 1) + 1000.0 / m.rate;
    };
    const auto spacing = [&](int i) {
        return sounds[i].interval == 1 ? nothing : onset(i) - onset(i - 1) - m.periodMs;
    };
    const auto delay = [&](int i) { return sounds[i].tick - sounds[i].due; };
    const auto first = [&](int i) { return sounds[i].interval == 1 ? delay(i) : nothing; };
    const auto length = [&](int i) { return double(m.recorded[i].length - m.soundSamples); };
    const auto begun = [&](int i) { return onset(i) - sounds[i].tick; };
    const auto lit = [&](int i) { return sounds[i].light - sounds[i].tick; };
    const auto litAfterOnset = [&](int i) { return sounds[i].light - onset(i); };
    const auto reported = [&](int i) { return sounds[i].endReport - end(i); };
    const auto answerable = [&](int i) { return sounds[i].answerable - end(i); };
    return {
        row(condition, "tick, after its due time", over(m, delay)),
        row(condition, "first tick after an answer, after its due time", over(m, first)),
        row(condition, "onset to onset, minus T", over(m, spacing)),
        row(condition, "length, minus the sound's own (samples)", over(m, length)),
        row(condition, "onset, after the tick", over(m, begun)),
        row(condition, "light, after the tick", over(m, lit)),
        row(condition, "light, after the onset", over(m, litAfterOnset)),
        row(condition, "report of a sound's end, after its last sample", over(m, reported)),
        row(condition, "reaction clock, after the fourth sound's last sample", over(m, answerable)),
    };
}
