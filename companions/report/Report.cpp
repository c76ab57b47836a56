// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/Report.h"

#include "output/OutputFile.h"
#include "plots/PictureFile.h"
#include "report/FitPicture.h"
#include "report/FitTable.h"
#include "report/ResultsSearch.h"
#include "report/RunPicture.h"
#include "report/RunTable.h"
#include "report/SubjectPicture.h"
#include "report/Texts.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <utility>

Report::Report(ReportOptions options, QTextStream& output, QTextStream& errors)
    : m_options(std::move(options))
    , m_output(output)
    , m_errors(errors)
{
}

bool Report::make()
{
    checkOutputs();
    findFiles();
    makeFolder();
    for (const QString& path : qAsConst(m_paths)) {
        readFile(path);
    }
    if (!m_runs.isEmpty()) {
        writeTables();
    }
    m_output.flush();
    if (m_output.status() != QTextStream::Ok) {
        complain("standard output: cannot be written");
    }
    m_errors.flush();
    return m_isGood;
}

void Report::findFiles()
{
    const ResultsFiles files = resultsFiles(m_options.inputs);
    m_paths = files.paths;
    for (const QString& complaint : files.complaints) {
        complain(complaint);
    }
}

void Report::makeFolder()
{
    if (!m_options.plotFolder.isEmpty() && !QDir().mkpath(m_options.plotFolder)) {
        complain(m_options.plotFolder + ": the folder cannot be made");
        m_options.plotFolder.clear();
    }
}

void Report::readFile(const QString& path)
{
    Run run;
    run.path = path;
    run.data.nReversals = m_options.nReversals;
    run.data.nReversalsToCalculate = m_options.nLast;
    const Complaint complaint = readRun(run);
    if (!complaint.text.isEmpty()) {
        complain((complaint.line > 0 ? path + ':' + QString::number(complaint.line) : path) + ": "
            + complaint.text);
        return;
    }
    noteLongRun(run);
    if (!m_options.plotFolder.isEmpty()) {
        plot(run);
    }
    if (m_options.fits.isAsked) {
        m_fits.add(run);
    }
    run.data.records.clear(); // the tables need the results only
    m_runs.append(run);
}

// The application would have ended the run there: it was made with another number of reversals.
void Report::noteLongRun(const Run& run)
{
    if (run.data.reversalCount > run.data.nReversals) {
        const int line
            = run.reversalTrials[run.data.nReversals - 1] + 2; // after the header, from 1
        m_errors << onOneLine(run.path) << ':' << line << ": note: the run goes on after reversal "
                 << run.data.nReversals << ", to " << run.data.reversalCount << '\n';
    }
}

void Report::plot(const Run& run)
{
    QString name = QFileInfo(run.path).fileName();
    if (name.endsWith(".txt")) {
        name.chop(4);
    }
    const QString error = writePicture(
        picturePath(name), runPictureSize,
        [&run](QPainter& painter, const QSize& size) { drawRun(painter, size, run); },
        m_options.isForced);
    if (!error.isEmpty()) {
        complain(error);
    }
}

// Files of the same name in different folders, and subjects, get pictures of their own.
QString Report::picturePath(const QString& name)
{
    QString unique = name;
    for (int i = 2; m_pictureNames.contains(unique); ++i) {
        unique = name + '-' + QString::number(i);
    }
    m_pictureNames.insert(unique);
    return m_options.plotFolder + '/' + unique + '.' + m_options.format;
}

void Report::writeTables()
{
    if (m_options.csvPath == "-") {
        m_output << runCsv(m_runs);
    } else {
        m_output << runTable(m_runs);
    }
    if (!m_options.csvPath.isEmpty() && m_options.csvPath != "-") {
        writeCsv(csvFile(m_options.csvPath, runCsvHeadings()), runCsv(m_runs));
    }
    if (m_options.hasSummary) {
        writeSummary();
    }
    if (m_options.fits.isAsked) {
        writeFits();
    }
}

// What cannot be written is said before hours of reading, and the rest is done nevertheless.
void Report::checkOutputs()
{
    const auto check = [this](QString& path, const QString& headings) {
        const QString obstacle
            = path.isEmpty() || path == "-" ? QString() : outputObstacle(csvFile(path, headings));
        if (!obstacle.isEmpty()) {
            complain(obstacle);
            path.clear();
        }
    };
    check(m_options.csvPath, runCsvHeadings());
    check(m_options.fits.csvPath, fitCsvHeadings());
}

OutputFile Report::csvFile(const QString& path, const QString& headings) const
{
    return {path, OutputFile::Kind::table, headings.toUtf8(), m_options.isForced};
}

void Report::writeCsv(const OutputFile& file, const QString& text)
{
    const QString error = writeOutput(file, text.toUtf8());
    if (!error.isEmpty()) {
        complain(error);
    }
}

void Report::writeSummary()
{
    const QVector<Subject> subjects = bySubject(m_runs);
    for (const Subject& subject : subjects) {
        if (m_options.csvPath != "-") {
            m_output << summaryPage(subject);
        }
        if (!m_options.plotFolder.isEmpty()) {
            const QString error = writePicture(
                picturePath(subject.name + "_summary"), subjectPictureSize,
                [&subject](
                    QPainter& painter, const QSize& size) { drawSubject(painter, size, subject); },
                m_options.isForced);
            if (!error.isEmpty()) {
                complain(error);
            }
        }
    }
}

void Report::writeFits()
{
    const FitOptions& options = m_options.fits;
    const QVector<SubjectFit> fits = m_fits.made(options, [](double) {});
    if (m_options.csvPath != "-") {
        m_output << fitTable(fits, options);
    }
    if (!options.csvPath.isEmpty()) {
        writeCsv(csvFile(options.csvPath, fitCsvHeadings()), fitCsv(fits, options));
    }
    for (const SubjectFit& fit : fits) {
        if (m_options.plotFolder.isEmpty()) {
            break;
        }
        const QString error = writePicture(
            picturePath(fitName(fit)), fitPictureSize,
            [&fit](QPainter& painter, const QSize& size) { drawFit(painter, size, fit); },
            m_options.isForced);
        if (!error.isEmpty()) {
            complain(error);
        }
    }
}

void Report::complain(const QString& what)
{
    m_errors << onOneLine(what) << '\n';
    m_isGood = false;
}
