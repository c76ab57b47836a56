// SPDX-License-Identifier: GPL-3.0-or-later
// What a picture of simulated runs tells of them.
#include "simulate/PlotHeading.h"

#include "plots/PlotArea.h"
#include "simulate/SimulationReport.h"

#include <QPainter>

QRectF drawPlotHeading(
    QPainter& painter, const QSize& size, const Simulation& simulation, const QStringList& swept)
{
    constexpr qreal margin = 18;
    constexpr qreal lineHeight = 20;
    const QRectF line(margin, margin / 2, size.width() - 2 * margin, lineHeight);
    painter.save();
    QFont font = painter.font();
    font.setPixelSize(PlotArea::textPixels);
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.drawText(
        line, Qt::AlignLeft | Qt::AlignVCenter, "Listener: " + listenerText(simulation.listener));
    painter.drawText(line.translated(0, lineHeight), Qt::AlignLeft | Qt::AlignVCenter,
        QString("Rule: %1, from %2 %3;   %4 runs, seed %5, subject %6")
                .arg(ruleText(simulation))
                .arg(simulation.startValue * shownPerFraction(simulation))
                .arg(shownUnit(simulation))
                .arg(runCount(simulation))
                .arg(simulation.seed)
                .arg(simulation.subCode)
            + (swept.isEmpty() ? QString() : ";   first of a sweep over " + swept.join(", ")));
    painter.restore();
    return QRectF(QPointF(), QSizeF(size)).adjusted(0, 2 * lineHeight + margin / 2, 0, 0);
}
