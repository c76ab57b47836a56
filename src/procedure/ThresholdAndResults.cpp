// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainWindow.h"
#include "procedure/RunResults.h"

void MainWindow::computeResults()
{
    computeRunResults(data);
}
