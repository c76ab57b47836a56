// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a run.
#include "report/RunPicture.h"

#include "plots/PlotArea.h"
#include "report/PlotParts.h"
#include "report/RunFlags.h"
#include "report/Texts.h"

#include <QPainter>

using namespace quorin;

namespace {

struct Answers {
    QVector<QPointF> all;
    QVector<QPointF> correct;
    QVector<QPointF> wrong;
};

// Points over the trials, counted from 1.
Answers answersOf(const QVector<Record>& records, double Record::*quantity)
{
    Answers answers;
    for (int i = 0; i < records.size(); ++i) {
        const QPointF point(i + 1, records[i].*quantity);
        answers.all.append(point);
        (records[i].correctness ? answers.correct : answers.wrong).append(point);
    }
    return answers;
}

// The reversals that the threshold averages, or all others.
QVector<QPointF> reversalPoints(const Run& run, bool areUsed)
{
    QVector<QPointF> points;
    for (int i = 0; i < run.reversalTrials.size(); ++i) {
        const int trial = run.reversalTrials[i];
        if (isUsed(run.data, i) == areUsed) {
            points.append(QPointF(trial + 1, run.data.records[trial].value));
        }
    }
    return points;
}

QString titleOf(const Run& run)
{
    return onOneLine(run.fileName) + (run.isNamed ? "" : "   (subject, session and sound unknown)");
}

QString figuresOf(const Run& run)
{
    const Data& data = run.data;
    const QString flags = flagNames(run);
    return QString("%1, SD %2 %4, geometric mean %3 %4;   %5 trials, %6 % correct;   mean reaction "
                   "time %7 ms%8")
        .arg(ruleOf(data), shown(run.standardDeviation), shown(run.geometricMean), unitOf(data),
            QString::number(data.nTrials), QString::number(run.percentCorrect, 'f', 1),
            shownTime(data.meanReactionTime), flags.isEmpty() ? "" : ";   " + flags);
}

Axis trialAxis(const Data& data)
{
    return {"trial", Axis::Scale::counts, 0.0, data.nTrials + 1.0};
}

PlotArea drawTrack(QPainter& painter, const QRectF& outer, const Run& run)
{
    const Answers answers = answersOf(run.data.records, &Record::value);
    PlotArea area(painter, outer, trialAxis(run.data),
        axisOfValues(adaptedQuantity(run.data), valuesOf({answers.all})));
    area.drawFrame("");
    area.drawLineAtY(run.data.threshold, QPen(thresholdColor, 1.5, Qt::DashLine));
    area.drawLine(answers.all, QPen(trackColor, 1));
    area.drawMarks(reversalPoints(run, true), PlotArea::Mark::ring, reversalColor);
    area.drawMarks(reversalPoints(run, false), PlotArea::Mark::box, reversalColor);
    area.drawMarks(answers.correct, PlotArea::Mark::dot, correctColor);
    area.drawMarks(answers.wrong, PlotArea::Mark::cross, wrongColor);
    return area;
}

void drawTimes(QPainter& painter, const QRectF& outer, const Run& run, bool hasKey)
{
    const Answers times = answersOf(run.data.records, &Record::reactionTime);
    drawReactionTimes(painter, outer, trialAxis(run.data), times.correct, times.wrong, hasKey);
}

constexpr qreal shareOfTrack = 0.66;

} // namespace

void drawRun(QPainter& painter, const QSize& size, const Run& run)
{
    const QRectF below = drawHeading(painter, size, titleOf(run), figuresOf(run));
    const qreal trackHeight = below.height() * shareOfTrack;
    const PlotArea area
        = drawTrack(painter, QRectF(below.topLeft(), QSizeF(below.width(), trackHeight)), run);
    drawKey(painter, area.inside(),
        {{"\u2022 correct", correctColor}, {"\u00d7 wrong", wrongColor},
            {"\u25cb reversal used", reversalColor}, {"\u25a1 not used", reversalColor},
            {"- - threshold " + shown(run.data.threshold) + ' ' + unitOf(run.data),
                thresholdColor}});
    drawTimes(painter, below.adjusted(0, trackHeight, 0, 0), run, true);
}

void drawPlainRun(QPainter& painter, const QSize& size, const Run& run)
{
    const qreal trackHeight = size.height() * shareOfTrack;
    drawTrack(painter, QRectF(0, 0, size.width(), trackHeight), run);
    drawTimes(
        painter, QRectF(0, trackHeight, size.width(), size.height() - trackHeight), run, false);
}
