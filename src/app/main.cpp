// SPDX-License-Identifier: GPL-3.0-or-later
// The program: the main window and its event loop.
#include "app/MainWindow.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    // Nothing is drawn by OpenGL here; without this the first window loads its drivers.
    QCoreApplication::setAttribute(Qt::AA_ForceRasterWidgets);
    QApplication application(argc, argv);
    MainWindow window;
    window.show();
    return QApplication::exec();
}
