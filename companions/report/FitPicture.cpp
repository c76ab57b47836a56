// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a fitted psychometric function over the answers that it was fitted to.
#include "report/FitPicture.h"

#include "plots/PlotArea.h"
#include "report/FitTable.h"
#include "report/PlotParts.h"
#include "report/Texts.h"
#include "session/Units.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

using namespace quorin;

namespace {

constexpr qreal lineWidth = 1.75;

struct Bin {
    double decibels = 0.0; // mean over the trials
    int nTrials = 0;
    int nCorrect = 0;
};

std::vector<Bin> binsOf(const std::vector<FitLevel>& levels)
{
    std::map<double, Bin> bins;
    for (const FitLevel& level : levels) {
        if (std::isfinite(level.decibels)) {
            Bin& bin = bins[std::round(level.decibels)];
            bin.decibels += level.decibels * level.nTrials;
            bin.nTrials += level.nTrials;
            bin.nCorrect += level.nCorrect;
        }
    }
    std::vector<Bin> inOrder;
    for (auto& [place, bin] : bins) {
        bin.decibels /= bin.nTrials;
        inOrder.push_back(bin);
    }
    return inOrder;
}

Axis valueAxis(const SubjectFit& fit, const std::vector<Bin>& bins)
{
    QVector<double> values;
    for (const Bin& bin : bins) {
        values.append(fit.inUnit(bin.decibels));
    }
    return Axis::covering(fit.quantity, Axis::Scale::logarithmic, values);
}

void drawBins(
    QPainter& painter, const PlotArea& area, const SubjectFit& fit, const std::vector<Bin>& bins)
{
    constexpr double largestRadius = 14.0;
    int most = 1;
    for (const Bin& bin : bins) {
        most = std::max(most, bin.nTrials);
    }
    painter.save();
    painter.setClipRect(area.inside());
    painter.setPen(QPen(correctColor, 1));
    QColor fill = correctColor;
    fill.setAlphaF(0.35);
    painter.setBrush(fill);
    for (const Bin& bin : bins) {
        const double radius = largestRadius * std::sqrt(static_cast<double>(bin.nTrials) / most);
        const double share = inPercent(static_cast<double>(bin.nCorrect) / bin.nTrials);
        painter.drawEllipse(area.at({fit.inUnit(bin.decibels), share}), radius, radius);
    }
    painter.restore();
}

void drawFunction(PlotArea& area, const SubjectFit& fit, const Axis& x)
{
    constexpr int nPoints = 300;
    QVector<QPointF> curve;
    for (int i = 0; i <= nPoints; ++i) {
        const double value = x.min() * std::pow(x.max() / x.min(), double(i) / nPoints);
        const double decibels = 20.0 * std::log10(value / fit.unitsAtZeroDb);
        curve.append({value, inPercent(fit.fit.function.probabilityRight(decibels))});
    }
    area.drawLine(curve, QPen(reversalColor, lineWidth));
    area.drawLineAtY(inPercent(0.5), QPen(trackColor, 1, Qt::DashLine));
}

void drawThresholds(PlotArea& area, const SubjectFit& fit)
{
    QVector<QPointF> thresholds;
    for (size_t i = 0; i < fitTargets.size(); ++i) {
        const double share = inPercent(fitTargets[i]);
        const FitInterval& interval = fit.precision.thresholds[i];
        area.drawLine({{fit.inUnit(interval.low), share}, {fit.inUnit(interval.high), share}},
            QPen(wrongColor, 2 * lineWidth));
        thresholds.append({fit.inUnit(fit.fit.function.decibelsAt(fitTargets[i])), share});
    }
    area.drawMarks(thresholds, PlotArea::Mark::cross, reversalColor);
}

QString textOf(const SubjectFit& fit)
{
    const FittedFunction& function = fit.fit.function;
    return QString("%1, %2, %3;   runs: %4;   trials: %5;   %6 function, lapse rate %7%8")
        .arg(fit.mainParameter, fit.sound, fit.sessionType)
        .arg(fit.nRuns)
        .arg(fit.nTrials)
        .arg(shapeName(function.shape))
        .arg(function.lapseRate, 0, 'f', 3)
        .arg(fit.fit.isAtLimit ? ", not held by the answers" : "");
}

} // namespace

QString fitName(const SubjectFit& fit)
{
    return QStringList {fit.subject, fit.mainParameter, fit.sound, fit.sessionType, "fit"}.join(
        '_');
}

void drawFit(QPainter& painter, const QSize& size, const SubjectFit& fit)
{
    const QRectF below
        = drawHeading(painter, size, "Subject " + onOneLine(fit.subject), textOf(fit));
    const std::vector<Bin> bins = binsOf(fit.levels);
    const Axis x = valueAxis(fit, bins);
    PlotArea area(painter, below, x, Axis("right answers (%)", Axis::Scale::linear, -4, 104));
    area.drawFrame("");
    drawBins(painter, area, fit, bins);
    drawFunction(area, fit, x);
    drawThresholds(area, fit);
    drawKey(painter, area.inside(),
        {{"\u25cf shares in bins of 1 dB, area: trials", correctColor},
            {"\u00d7 at 66.7, 70.7 and 75 %", reversalColor},
            {"\u2501 95 % interval", wrongColor}});
}
