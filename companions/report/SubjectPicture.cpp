// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of all runs of a subject.
#include "report/SubjectPicture.h"

#include "plots/PlotArea.h"
#include "report/PlotParts.h"
#include "report/Texts.h"

#include <QPainter>

using namespace quorin;

namespace {

using Points = QVector<QPointF>;

Axis runAxis(const QVector<Run>& runs)
{
    return {"run (by sound, practice before test, session)", Axis::Scale::counts, 0.0,
        runs.size() + 1.0};
}

// A line from mean - SD to mean + SD for each run.
QVector<Points> spreadsOf(const QVector<Run>& runs)
{
    QVector<Points> spreads;
    for (int i = 0; i < runs.size(); ++i) {
        const QPointF mean(i + 1, runs[i].data.threshold);
        const QPointF deviation(0, runs[i].standardDeviation);
        spreads.append(Points {mean - deviation, mean, mean + deviation});
    }
    return spreads;
}

void drawThresholds(QPainter& painter, const QRectF& outer, const QVector<Run>& runs)
{
    const QVector<Points> spreads = spreadsOf(runs);
    PlotArea area(painter, outer, runAxis(runs),
        axisOfValues("threshold: " + adaptedQuantity(runs.constFirst().data), valuesOf(spreads)));
    area.drawFrame("");
    for (int i = 0; i < runs.size(); ++i) {
        area.drawLine(spreads[i], penOf(runs[i]));
        area.drawMarks({spreads[i][1]}, markOf(runs[i]), penOf(runs[i]).color());
    }
    drawKey(painter, area.inside(), keyOfRuns());
}

// Above the plots: beside the key it has no room when there are two plots in a row.
QString keyOfBars(const QVector<QVector<Run>>& columns)
{
    QStringList units;
    for (const QVector<Run>& column : columns) {
        units.append(unitOf(column.constFirst().data));
    }
    return "| \u00b1 SD of the reversals (" + units.join(", ") + ')';
}

void drawMeanTimes(QPainter& painter, const QRectF& outer, const QVector<Run>& runs)
{
    Points correct;
    Points wrong;
    for (int i = 0; i < runs.size(); ++i) {
        correct.append(QPointF(i + 1, runs[i].data.meanReactionTimeCorrect));
        wrong.append(QPointF(i + 1, runs[i].data.meanReactionTimeIncorrect));
    }
    drawReactionTimes(painter, outer, runAxis(runs), correct, wrong);
}

} // namespace

void drawSubject(QPainter& painter, const QSize& size, const Subject& subject)
{
    constexpr qreal shareOfThresholds = 0.6;
    const QVector<QVector<Run>> columns = byParameter(subject.runs);
    const QRectF below = drawHeading(painter, size, "Subject " + onOneLine(subject.name),
        QString("runs: %1;   %2;   %3")
            .arg(QString::number(subject.runs.size()), ruleOf(subject.runs), keyOfBars(columns)));
    const qreal width = below.width() / columns.size();
    const qreal height = below.height() * shareOfThresholds;
    for (int i = 0; i < columns.size(); ++i) {
        const QRectF column(below.left() + i * width, below.top(), width, below.height());
        drawThresholds(painter, QRectF(column.topLeft(), QSizeF(width, height)), columns[i]);
        drawMeanTimes(painter, column.adjusted(0, height, 0, 0), columns[i]);
    }
}
