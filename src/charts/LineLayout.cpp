// SPDX-License-Identifier: GPL-3.0-or-later
#include "charts/LineLayout.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSignalBlocker>
#include <QtCharts/QLineSeries>

QT_CHARTS_USE_NAMESPACE

LineLayout& LineLayout::of(QLineSeries* series)
{
    auto* const layout = series->findChild<LineLayout*>(QString(), Qt::FindDirectChildrenOnly);
    return layout != nullptr ? *layout : *new LineLayout(series);
}

LineLayout::LineLayout(QLineSeries* series)
    : QObject(series)
    , m_series(series)
{
}

void LineLayout::replaceNow(const QVector<QPointF>& points)
{
    QCoreApplication::removePostedEvents(this, QEvent::User);
    m_series->replace(points);
}

// At high priority the layout comes before what the new ranges have posted: painting would show the
// axes without the line, and then all once more.
void LineLayout::replaceLater(const QVector<QPointF>& points)
{
    const QSignalBlocker unheard(m_series);
    m_series->replace(points);
    QCoreApplication::removePostedEvents(this, QEvent::User);
    QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::HighEventPriority);
}

void LineLayout::customEvent(QEvent* /*event*/)
{
    emit m_series->pointsReplaced();
}
