// SPDX-License-Identifier: GPL-3.0-or-later
// Writes to a file what the application's charts show when it has started.
#include "PlainCharts.h"
#include "app/MainWindow.h"

#include <QApplication>
#include <QDataStream>
#include <QSaveFile>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    MainWindow window;
    window.show();
    QCoreApplication::processEvents();
    QSaveFile file(QCoreApplication::arguments().value(1));
    file.open(QIODevice::WriteOnly);
    QDataStream stream(&file);
    stream << window.geometry() << chartsOf(window);
    return file.commit() ? 0 : 2;
}
