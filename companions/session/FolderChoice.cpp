// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that asks where a session records.
#include "session/FolderChoice.h"

#include <QDir>
#include <QFileDialog>

QString chosenFolder()
{
    return QFileDialog::getExistingDirectory(nullptr, "Choose the folder for the records",
        QDir::homePath(), QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog);
}
