// SPDX-License-Identifier: GPL-3.0-or-later
// Another program: a red window at the place that its four arguments give (left, top,
// width, height).
#include <QApplication>
#include <QWidget>

#include <cstdlib>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 5) {
        return EXIT_FAILURE;
    }
    QWidget window;
    window.setWindowTitle("Another program");
    window.setPalette(Qt::red);
    window.setGeometry(
        std::atoi(argv[1]), std::atoi(argv[2]), std::atoi(argv[3]), std::atoi(argv[4]));
    window.show();
    return QApplication::exec();
}
