// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a run: its results, the save dialog and the results file.
#include "app/MainWindow.h"
#include "procedure/ResultsFormat.h"
#include "procedure/RunResults.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QTextStream>

namespace {

// Line ends are written as they are; on Windows the Text flag would double their carriage return.
#ifdef Q_OS_WIN
constexpr QIODevice::OpenMode writeMode = QIODevice::WriteOnly;
#else
constexpr QIODevice::OpenMode writeMode = QIODevice::WriteOnly | QIODevice::Text;
#endif

bool writeResultsFile(const QString& path, const Data& data)
{
    QFile file(path);
    if (!file.open(writeMode)) {
        return false;
    }
    QTextStream stream(&file);
    writeResults(stream, data);
    stream.flush();
    const bool isWritten = stream.status() == QTextStream::Ok && file.flush();
    file.close();
    return isWritten && file.error() == QFileDevice::NoError;
}

} // namespace

void MainWindow::computeResults()
{
    computeRunResults(data);
}

// The record's folder becomes the whole chosen path. Where the folder of that path is missing, a
// folder is made at the path itself: no file can be written there, and the warning follows.
void MainWindow::writeDataToTxt()
{
    QString filter("Text files (*.txt)");
    const QString path
        = QFileDialog::getSaveFileName(this, "Save a file", data.outputDir + "/" + data.fileName,
            "All files (*.*);; Text files (*.txt)", &filter, QFileDialog::DontConfirmOverwrite);
    const QFileInfo chosen(path);
    const QDir folder = chosen.dir();
    data.outputDir = chosen.filePath();
    data.fileName = chosen.fileName();
    if (!folder.exists()) {
        folder.mkpath(data.outputDir);
    }
    if (!writeResultsFile(path, data)) {
        QMessageBox::warning(this, "Warning",
            "could not open file for writing \r\n" + data.outputDir + data.fileName,
            QMessageBox::Ok);
    }
}
