// SPDX-License-Identifier: GPL-3.0-or-later
// Five empty charts in a window of the application's size; a second argument gives raster windows.
#include "FirstPaint.h"

#include <QApplication>
#include <QGridLayout>
#include <QScreen>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets, argc > 2);
    const QApplication application(argc, argv);
    QWidget window;
    QGridLayout grid(&window);
    constexpr int nCharts = 5;
    for (int i = 0; i < nCharts; ++i) {
        auto* const view = new QtCharts::QChartView(new QtCharts::QChart);
        view->setRenderHint(QPainter::Antialiasing);
        const bool isLast = i == nCharts - 1;
        grid.addWidget(view, i / 2, i % 2, 1, isLast ? 2 : 1);
    }
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    window.resize(screen.width() * 8 / 10, screen.height() * 9 / 10);
    const FirstPaint firstPaint(window);
    window.show();
    return QApplication::exec();
}
