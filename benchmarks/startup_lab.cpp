// SPDX-License-Identifier: GPL-3.0-or-later
#include "FirstPaint.h"
#include "app/MainWindow.h"

#include <QApplication>

// The application, ended after its first painting.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    MainWindow window;
    const FirstPaint firstPaint(window);
    window.show();
    return QApplication::exec();
}
