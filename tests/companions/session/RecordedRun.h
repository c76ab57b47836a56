// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainWindow.h"
#include "drivers/RunDriver.h"
#include "session/FlightRecorder.h"
#include "support/Files.h"
#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

/// A window with a recorder beside it, whose runs are driven without sound. The sounds last 10 ms,
/// and a run ends after two reversals, the last of which is the threshold.
class RecordedRun {
public:
    explicit RecordedRun(uint seed = 1, const QStringList& otherFolders = {})
        : window(makeWindow(seed))
        , recorder(*window, folder.path(), seed, otherFolders)
        , driver(*window)
    {
        type(*window, "lineEditStdDuration", "10");
        type(*window, "lineEditDevDuration", "10");
        type(*window, "lineEditNReversals", "2");
        type(*window, "lineEditNReversalsToCalc", "1");
        type(*window, "lineEditSubCode", "S/07");
    }

    /// Opens a run and answers its trials: 'c' is correct, any other character wrong.
    void play(const QString& answers)
    {
        driver.begin();
        for (const QChar character : answers) {
            driver.playTrial();
            driver.answerRightly(character == 'c');
        }
        QCoreApplication::processEvents();
    }

    /// Presses "Done" after a run.
    void dismiss() const { buttonOf(*Probe::subjectWindow(*window), "pushButtonDone")->click(); }

    QString path(const QString& name) const { return folder.filePath(name); }
    QString recordPath() const { return path(recorder.recordName()); }
    QByteArray content() const { return contentOf(recordPath()); }

    /// The lines that are on the disk.
    QVector<QJsonObject> lines() const { return linesIn(content()); }

    static QVector<QJsonObject> linesIn(const QByteArray& content)
    {
        QVector<QJsonObject> objects;
        QByteArrayList all = content.split('\n');
        all.removeLast(); // what follows the last line's end
        for (const QByteArray& line : qAsConst(all)) {
            objects.append(QJsonDocument::fromJson(line).object());
        }
        return objects;
    }

    /// The names of all that is in the folder.
    QStringList names() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }

    QTemporaryDir folder;
    std::unique_ptr<MainWindow> window;
    FlightRecorder recorder;
    RunDriver driver;

private:
    static std::unique_ptr<MainWindow> makeWindow(uint seed)
    {
        qsrand(seed);
        return std::make_unique<MainWindow>();
    }
};
