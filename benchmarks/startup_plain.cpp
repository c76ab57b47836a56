// SPDX-License-Identifier: GPL-3.0-or-later
// What the application's charts show, by plain calls of Qt Charts, in a raster window as large. The
// second argument is the file that startup_charts has written.
#include "FirstPaint.h"
#include "PlainCharts.h"

#include <QApplication>
#include <QDataStream>
#include <QFile>

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    const QApplication application(argc, argv);
    QFile file(QCoreApplication::arguments().value(2));
    file.open(QIODevice::ReadOnly);
    QDataStream stream(&file);
    QRect geometry;
    QVector<ChartContents> charts;
    stream >> geometry >> charts;
    if (stream.status() != QDataStream::Ok) {
        return 2;
    }
    PlainCharts plain(geometry, charts);
    const FirstPaint firstPaint(plain.window());
    plain.window().show();
    return QApplication::exec();
}
