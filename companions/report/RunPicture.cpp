// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/RunPicture.h"

#include "plots/PlotArea.h"
#include "report/PlotParts.h"
#include "report/Texts.h"

#include <QFileInfo>
#include <QPainter>

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

QVector<QPointF> reversalPoints(const Run& run)
{
    QVector<QPointF> points;
    for (const int trial : run.reversalTrials) {
        points.append(QPointF(trial + 1, run.data.records[trial].value));
    }
    return points;
}

QString figuresOf(const Run& run)
{
    const Data& data = run.data;
    return QString("%1, SD %2, geometric mean %3 %4;   %5 trials, %6 % correct;   mean reaction "
                   "time %7 ms")
        .arg(ruleOf(data), shown(run.standardDeviation), shown(run.geometricMean), unitOf(data),
            QString::number(data.nTrials), QString::number(run.percentCorrect, 'f', 1),
            shown(data.meanReactionTime));
}

Axis trialAxis(const Data& data)
{
    return {"trial", Axis::Scale::linear, 0.0, data.nTrials + 1.0};
}

void drawTrack(QPainter& painter, const QRectF& outer, const Run& run)
{
    const Answers answers = answersOf(run.data.records, &Record::value);
    PlotArea area(painter, outer, trialAxis(run.data),
        axisOfValues(adaptedQuantity(run.data), valuesOf({answers.all})));
    area.drawFrame("");
    area.drawLineAtY(run.data.threshold, QPen(thresholdColor, 1.5, Qt::DashLine));
    area.drawLine(answers.all, QPen(trackColor, 1));
    area.drawMarks(reversalPoints(run), PlotArea::Mark::ring, reversalColor);
    area.drawMarks(answers.correct, PlotArea::Mark::dot, correctColor);
    area.drawMarks(answers.wrong, PlotArea::Mark::cross, wrongColor);
    drawKey(painter, area.inside(),
        {{"\u2022 correct", correctColor}, {"\u00d7 wrong", wrongColor},
            {"\u25cb reversal", reversalColor},
            {"- - threshold " + shown(run.data.threshold) + ' ' + unitOf(run.data),
                thresholdColor}});
}

} // namespace

void drawRun(QPainter& painter, const QSize& size, const Run& run)
{
    constexpr qreal shareOfTrack = 0.66;
    const QRectF below
        = drawHeading(painter, size, onOneLine(QFileInfo(run.path).fileName()), figuresOf(run));
    const qreal trackHeight = below.height() * shareOfTrack;
    drawTrack(painter, QRectF(below.topLeft(), QSizeF(below.width(), trackHeight)), run);
    const Answers times = answersOf(run.data.records, &Record::reactionTime);
    drawReactionTimes(painter, below.adjusted(0, trackHeight, 0, 0), trialAxis(run.data),
        times.correct, times.wrong);
}
