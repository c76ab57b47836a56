// SPDX-License-Identifier: GPL-3.0-or-later
// The application with its own settings, ended after its first painting.
#include "FirstPaint.h"
#include "app/MainWindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    const QApplication application(argc, argv);
    MainWindow window;
    const FirstPaint firstPaint(window);
    window.show();
    return QApplication::exec();
}
