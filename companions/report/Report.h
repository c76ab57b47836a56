// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/OutputFile.h"
#include "report/ReportOptions.h"
#include "report/Run.h"

#include <QSet>

class QTextStream;

/// Reads the results files that the options name, and writes the tables and pictures. What is wrong
/// with a file becomes one line of the errors, "file:line: what", and the file is left out.
/// Pictures need a QGuiApplication.
class Report {
public:
    Report(ReportOptions options, QTextStream& output, QTextStream& errors);

    /// Reads and writes everything.
    /// @return whether every file could be used and everything was written
    bool make();

private:
    void checkOutputs();
    OutputFile csvFile(const QString& path, const QString& headings) const;
    void findFiles();
    void makeFolder();
    void readFile(const QString& path);
    void noteLongRun(const Run& run);
    void plot(const Run& run);
    void writeTables();
    void writeCsv(const OutputFile& file, const QString& text);
    void writeSummary();
    void writeFits();
    void complain(const QString& what);
    QString picturePath(const QString& name);

    ReportOptions m_options;
    QTextStream& m_output;
    QTextStream& m_errors;
    QStringList m_paths;
    QVector<Run> m_runs;
    SubjectFits m_fits;
    QSet<QString> m_pictureNames;
    bool m_isGood = true;
};
