// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/OutputFile.h"
#include "report/Messages.h"
#include "report/ReportOptions.h"
#include "report/Run.h"

#include <QSet>
#include <QSize>

#include <functional>

class QPainter;
class QTextStream;

/// Reads the results files that the options name, and writes the tables and pictures. What is wrong
/// with a file becomes one line of the errors, "file:line: what", and the file is left out.
/// Pictures need a QGuiApplication.
class Report {
public:
    /// @param isTerminal whether the errors go to a terminal, which shows the progress
    Report(
        ReportOptions options, QTextStream& output, QTextStream& errors, bool isTerminal = false);

    /// Reads and writes everything.
    /// @return whether every file could be used and everything was written
    bool make();

private:
    void checkOutputs();
    void checkTable(QString& path, const QString& headings);
    void checkFile(const OutputFile& file, QString& path);
    OutputFile pageFile() const;
    void makeFolder();
    void writeTables();
    void writeTable(const QString& path, const QString& csv);
    void fit();
    void writeFits();
    void writePictures();
    void writePage();
    void plot(const QString& name, const QSize& size,
        const std::function<void(QPainter& painter, const QSize& size)>& draw);
    QString picturePath(const QString& name);
    bool isOutputATable() const;

    ReportOptions m_options;
    QTextStream& m_output;
    Messages m_messages;
    QVector<Run> m_runs;
    QVector<SubjectFit> m_fits;
    QSet<QString> m_pictureNames;
};
