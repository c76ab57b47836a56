// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of one simulation: its thresholds, and the tracks of its first runs.
#include "simulate/SimulationPlot.h"

#include "plots/PictureFile.h"
#include "plots/PlotArea.h"
#include "session/AdaptedParameter.h"
#include "simulate/PlotHeading.h"
#include "simulate/SimulationReport.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int mostTracks = 5;
constexpr int longestTrack = 1000; // trials that are drawn of a run without an end
constexpr qreal lineWidth = 1.75;

struct Histogram {
    double begin;
    double binWidth;
    QVector<double> counts;
};

// Bins of two interquartile ranges by the cube root of the size: Freedman and Diaconis (1981),
// Z. Wahrscheinlichkeitstheorie verw. Gebiete 57, 453-476.
int binCount(const Distribution& values)
{
    constexpr int mostBins = 100;
    const double range = values.quantile(1) - values.quantile(0);
    const double iqr = values.quantile(0.75) - values.quantile(0.25);
    const double bins = std::ceil(range * std::cbrt(values.size()) / (2 * iqr));
    return bins >= 1 ? static_cast<int>(std::min<double>(bins, mostBins)) : 1;
}

Histogram histogram(const Distribution& values)
{
    // Thresholds that are all the same have a bar too.
    constexpr double leastShare = 0.01;
    constexpr double leastRange = 1e-12;
    const int nBins = binCount(values);
    const double begin = values.quantile(0);
    const double range = std::max({values.quantile(1) - begin, begin * leastShare, leastRange});
    Histogram result = {begin, range / nBins, QVector<double>(nBins, 0.0)};
    for (const double value : values.sorted()) {
        const int bin = static_cast<int>((value - begin) / result.binWidth);
        result.counts[std::min(bin, nBins - 1)] += 1;
    }
    return result;
}

QPen dashed(const QColor& color)
{
    return {color, lineWidth, Qt::DashLine};
}

QString histogramTitle(const Simulation& simulation, const RunStatistics& statistics)
{
    const QString warning = cutWarning(statistics.shareCut());
    const int nMeans = statistics.thresholds.size();
    return (simulation.runsAveraged == 1 ? QString("Thresholds of %1 runs").arg(nMeans)
                                         : QString("Means of the thresholds of %1 runs, %2 times")
                                               .arg(simulation.runsAveraged)
                                               .arg(nMeans))
        + (warning.isEmpty() ? QString() : ", " + warning);
}

void drawDistribution(QPainter& painter, const QRectF& outer, const Simulation& simulation,
    const RunStatistics& statistics)
{
    const double unit = shownPerFraction(simulation);
    const QString title = "threshold (" + shownUnit(simulation) + ')';
    if (statistics.thresholds.size() == 0) {
        PlotArea(painter, outer, Axis(title, Axis::Scale::linear, 0, 1),
            Axis("runs", Axis::Scale::linear, 0, 1))
            .drawFrame("No run ended");
        return;
    }
    const Histogram bins = histogram(statistics.thresholds);
    const double end = bins.begin + bins.counts.size() * bins.binWidth;
    const double target = simulation.listener.threshold;
    const double most = *std::max_element(bins.counts.cbegin(), bins.counts.cend());
    PlotArea plot(painter, outer,
        Axis::covering(title, Axis::Scale::linear,
            {bins.begin * unit, end * unit, (std::isnan(target) ? end : target) * unit}),
        Axis(simulation.runsAveraged == 1 ? "runs" : "experiments", Axis::Scale::linear, 0,
            most * 1.08));
    plot.drawFrame(histogramTitle(simulation, statistics));
    for (int i = 0; i < bins.counts.size(); ++i) {
        const double left = bins.begin + i * bins.binWidth;
        plot.drawBar(
            left * unit, (left + bins.binWidth) * unit, bins.counts[i], QColor(120, 160, 205));
    }
    const double mean = statistics.thresholds.mean() * unit;
    const QColor meanColor(20, 60, 130);
    plot.drawLineAtX(mean, QPen(meanColor, lineWidth));
    QVector<QPair<QString, QColor>> legend {
        {"\u2014 mean " + QString::number(mean, 'g', 4), meanColor}};
    if (!std::isnan(target)) {
        plot.drawLineAtX(target * unit, dashed(Qt::red));
        legend.append(
            {"- - listener's threshold " + QString::number(target * unit, 'g', 4), Qt::red});
    }
    plot.drawLegend(legend);
}

QVector<QPointF> trackOf(const Data& data, double unit)
{
    QVector<QPointF> track;
    for (const Record& record : data.records) {
        track.append({double(track.size() + 1), record.value * unit});
    }
    return track;
}

void drawTracks(QPainter& painter, const QRectF& outer, const Simulation& simulation)
{
    static const QVector<QColor> colors {{0, 114, 178}, {213, 94, 0}, {0, 158, 115},
        {204, 121, 167}, {120, 120, 120}}; // told apart by the colour-blind too
    const double unit = shownPerFraction(simulation);
    Simulation drawn = simulation;
    drawn.mostTrials = std::min(simulation.mostTrials, longestTrack);
    Data data = preparedRun(drawn);
    QVector<QVector<QPointF>> tracks;
    QVector<double> xs;
    QVector<double> ys {simulation.listener.threshold * unit};
    for (int i = 0; i < std::min(runCount(simulation), mostTracks); ++i) {
        simulateRun(data, drawn, i);
        tracks.append(trackOf(data, unit));
        for (const QPointF& point : qAsConst(tracks.last())) {
            xs.append(point.x());
            ys.append(point.y());
        }
    }
    PlotArea plot(painter, outer, Axis::covering("trial", Axis::Scale::linear, xs),
        Axis::covering(adaptedParameter(simulation.mainParameter)->columnHeading,
            Axis::Scale::logarithmic, ys));
    plot.drawFrame(tracks.size() == 1 ? QString("Track of the first run")
                                      : QString("Tracks of the first %1 runs").arg(tracks.size()));
    for (int i = 0; i < tracks.size(); ++i) {
        plot.drawLine(tracks[i], QPen(colors[i], lineWidth));
    }
    plot.drawLineAtY(simulation.listener.threshold * unit, dashed(Qt::red));
}

} // namespace

QString writeSimulationPlot(const QString& path, const Simulation& simulation,
    const RunStatistics& statistics, bool isForced)
{
    constexpr QSize pictureSize(900, 800);
    return writePicture(
        path, pictureSize,
        [&](QPainter& painter, const QSize& size) {
            const QRectF below = drawPlotHeading(painter, size, simulation);
            const QSizeF half(below.width(), below.height() / 2.0);
            drawDistribution(painter, QRectF(below.topLeft(), half), simulation, statistics);
            drawTracks(painter,
                QRectF(below.left(), below.center().y(), half.width(), half.height()), simulation);
        },
        isForced);
}
