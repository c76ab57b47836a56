// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ReportBench.h"
#include "companions/session/RecordedRun.h"
#include "record/RecordWriter.h"
#include "report/Rescue.h"
#include "report/RunCollection.h"
#include "support/ModalBoxes.h"

#include <QTextStream>

// A run's files in a folder of their own.
struct RunFiles {
    QString name; ///< without its ending
    QByteArray record;
    QByteArray results;
};

// Six reversals, of which the threshold averages four.
inline RunFiles recordedRun(const QString& answers)
{
    RecordedRun run;
    type(*run.window, "lineEditNReversals", "6");
    type(*run.window, "lineEditNReversalsToCalc", "4");
    run.play(answers);
    run.recorder.flush();
    const QString name = run.recorder.recordName().chopped(int(qstrlen(".jsonl")));
    return {name, run.content(), contentOf(run.path(name + ".txt"))};
}

inline const RunFiles& recordedRun()
{
    static const RunFiles files = recordedRun("ccwwccwcwc");
    return files;
}

inline RunFiles abandonedRun()
{
    RecordedRun run;
    run.play("cw");
    ModalBoxes boxes;
    boxes.answerNext(QMessageBox::Yes);
    Probe::subjectWindow(*run.window)->close();
    const QString name = run.recorder.recordName().chopped(int(qstrlen(".jsonl")));
    return {name, run.content(), {}};
}

inline QByteArray upToLine(const QByteArray& bytes, int nLines)
{
    int end = 0;
    for (int i = 0; i < nLines; ++i)
        end = bytes.indexOf('\n', end) + 1;
    return bytes.left(end);
}

// The record with another value in a field of an answer's line.
inline QByteArray withAnswer(
    const QByteArray& record, int trial, const QString& key, const QJsonValue& value)
{
    QByteArray changed;
    for (const QByteArray& line : record.split('\n')) {
        QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object["event"] == "answer" && object["trial"] == trial)
            object.insert(key, value);
        changed += line.isEmpty() ? QByteArray() : lineBytes(object);
    }
    return changed;
}

/// What readRuns makes of files.
struct Reading {
    QVector<Run> runs;
    QStringList told;
    bool isGood;
};

class Folder {
public:
    QString put(const QString& name, const QByteArray& bytes) const
    {
        QDir(m_folder.path()).mkpath(QFileInfo(name).path());
        fillFile(path(name), bytes);
        return path(name);
    }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    Reading read(
        const QStringList& names = {"."}, bool isUnchecked = false, const RunRule& rule = {}) const
    {
        RunDemand demand;
        for (const QString& name : names)
            demand.inputs.append(path(name));
        demand.isUnchecked = isUnchecked;
        demand.rule = rule;
        QString text;
        QTextStream stream(&text);
        Messages messages(stream, false);
        Reading reading {readRuns(demand, messages), {}, messages.isGood()};
        flagRuns(reading.runs);
        reading.told = told(text);
        return reading;
    }

    Reading rescue(const QString& name, bool isUnchecked = false) const
    {
        QString text;
        QTextStream stream(&text);
        Messages messages(stream, false);
        const bool isGood = rescueRecords({path(name)}, isUnchecked, stream, messages);
        return {{}, told(text), isGood};
    }

private:
    // The folder's name is left out.
    QStringList told(QString text) const
    {
        return text.replace(m_folder.path() + "/./", "")
            .replace(m_folder.path() + '/', "")
            .split('\n', Qt::SkipEmptyParts);
    }

    QTemporaryDir m_folder;
};
