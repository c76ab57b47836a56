// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a subject's thresholds over sessions or days.
#include "report/LearningPicture.h"

#include "plots/PlotArea.h"
#include "report/PlotParts.h"
#include "report/Texts.h"
#include "statistics/Spread.h"

#include <QMap>
#include <QPainter>

#include <algorithm>

namespace {

// The runs that have a place on the axis, and their places.
struct Places {
    QVector<Run> runs;
    QVector<double> places;
};

Places placesOf(const QVector<Run>& runs, CurveAxis over)
{
    Places result;
    QDate first;
    for (const Run& run : runs) {
        if (!first.isValid() || (run.written.isValid() && run.written.date() < first)) {
            first = run.written.date();
        }
    }
    for (const Run& run : runs) {
        if (over == CurveAxis::session ? run.isNamed : run.written.isValid()) {
            result.runs.append(run);
            result.places.append(over == CurveAxis::session
                    ? run.data.sesNum
                    : static_cast<double>(first.daysTo(run.written.date())) + 1);
        }
    }
    return result;
}

Axis placeAxis(const QVector<double>& places, CurveAxis over)
{
    const auto [least, greatest] = std::minmax_element(places.cbegin(), places.cend());
    return {over == CurveAxis::session ? "session" : "day of the files, from the first",
        Axis::Scale::counts, *least - 1, *greatest + 1};
}

// The geometric means at each place, for the runs of one sound.
QVector<QPointF> meansOf(const Places& all, const QString& sound)
{
    QMap<double, QVector<double>> values;
    for (int i = 0; i < all.runs.size(); ++i) {
        if (soundOf(all.runs[i]) == sound) {
            values[all.places[i]].append(all.runs[i].data.threshold);
        }
    }
    QVector<QPointF> means;
    for (auto place = values.cbegin(); place != values.cend(); ++place) {
        means.append({place.key(), geometricMeanOf(place.value())});
    }
    return means;
}

void drawColumn(QPainter& painter, const QRectF& outer, const Places& all, CurveAxis over)
{
    QVector<double> thresholds;
    for (const Run& run : all.runs) {
        thresholds.append(run.data.threshold);
    }
    PlotArea area(painter, outer, placeAxis(all.places, over),
        axisOfValues("threshold: " + adaptedQuantity(all.runs.constFirst().data), thresholds));
    area.drawFrame("");
    QStringList sounds;
    for (int i = 0; i < all.runs.size(); ++i) {
        const Run& run = all.runs[i];
        if (!sounds.contains(soundOf(run))) {
            sounds.append(soundOf(run));
            area.drawLine(meansOf(all, soundOf(run)), penOf(run));
        }
        area.drawMarks({{all.places[i], thresholds[i]}}, markOf(run), penOf(run).color());
    }
    drawKey(painter, area.inside(), keyOfRuns());
}

} // namespace

bool hasLearningCurve(const Subject& subject, CurveAxis over)
{
    return !placesOf(subject.runs, over).runs.isEmpty();
}

void drawLearning(QPainter& painter, const QSize& size, const Subject& subject, CurveAxis over)
{
    const QRectF below = drawHeading(painter, size, "Subject " + onOneLine(subject.name),
        "Thresholds of the runs; lines: geometric means");
    drawLearningPlots(painter, below, subject, over);
}

void drawLearningPlots(
    QPainter& painter, const QRectF& outer, const Subject& subject, CurveAxis over)
{
    const QVector<QVector<Run>> columns = byParameter(placesOf(subject.runs, over).runs);
    const qreal width = outer.width() / std::max(1, columns.size());
    for (int i = 0; i < columns.size(); ++i) {
        drawColumn(painter, QRectF(outer.left() + i * width, outer.top(), width, outer.height()),
            placesOf(columns[i], over), over);
    }
}
