// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "session/OutputFileName.h"

#include <QLineEdit>

void MainWindow::updateFileName()
{
    data.fileName = composedFileName(data);
    lineEditFileName->setText(data.fileName);
}
