// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "procedure/Records.h"
#include "support/Files.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"

#include <QDir>
#include <QTemporaryDir>

/// What Qt says of a file without a name.
constexpr auto unnamedFile = "QFSFileEngine::open: No file name specified";

/// A window with the trials of a finished run and a folder of its own to save them in.
class SavedRun {
public:
    SavedRun()
        : data(MainWindowProbe::data(window))
    {
        data.outputDir = folder.path();
        data.fileName = "run.txt";
        data.records = {answered(true, 0.5, 734), answered(false, 0.25, 65)};
    }

    /// Saves the run, the dialog being answered by a path; cancelled when it is empty.
    void save(const QString& path)
    {
        if (path.isEmpty()) {
            boxes.cancelFile();
        } else {
            boxes.chooseFile(path);
        }
        window.writeDataToTxt();
    }

    QString path(const QString& name) const { return folder.filePath(name); }

    /// The names of all that is in the folder.
    QStringList names() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// The bytes of the file for the two trials.
    static QByteArray expectedBytes()
    {
        return "modulation depth (%)\tstimulus position\tresponse position\tcorrectness\treaction "
               "time (ms)\r\n50.000000\t2\t2\t1\t734\r\n25.000000\t2\t3\t0\t65\r\n";
    }

    QTemporaryDir folder;
    MainWindow window;
    Data& data;
    ModalBoxes boxes;
};
