// SPDX-License-Identifier: GPL-3.0-or-later
// A whole report: the runs are read, then tables, summaries and pictures are written.
#include "report/Report.h"

#include "plots/PictureFile.h"
#include "report/FitPicture.h"
#include "report/FitTable.h"
#include "report/GroupTable.h"
#include "report/HtmlPage.h"
#include "report/LevelTable.h"
#include "report/RunCsv.h"
#include "report/RunFlags.h"
#include "report/RunPicture.h"
#include "report/RunTable.h"
#include "report/SubjectPicture.h"
#include "report/TrialsCsv.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

#include <utility>

using namespace quorin;

namespace {

constexpr auto standardOutput = "-";

OutputFile tableFile(const QString& path, const QString& headings, bool isForced)
{
    return {path, OutputFile::Kind::table, headings.toUtf8(), isForced};
}

QString firstLine(const QString& text)
{
    return text.left(text.indexOf('\n'));
}

QString pictureName(const QString& fileName)
{
    for (const char* ending : {".txt", ".jsonl"}) {
        if (fileName.endsWith(ending)) {
            return fileName.chopped(static_cast<int>(qstrlen(ending)));
        }
    }
    return fileName;
}

} // namespace

Report::Report(ReportOptions options, QTextStream& output, QTextStream& errors, bool isTerminal)
    : m_options(std::move(options))
    , m_output(output)
    , m_messages(errors, isTerminal)
{
}

bool Report::make()
{
    checkOutputs();
    m_runs = readRuns(m_options.runs, m_messages);
    makeFolder();
    if (!m_runs.isEmpty()) {
        flagRuns(m_runs);
        fit();
        writeTables();
        writePictures();
        writePage();
    }
    m_output.flush();
    if (m_output.status() != QTextStream::Ok) {
        m_messages.complain("standard output: cannot be written");
    }
    return m_messages.isGood();
}

// Reading may take long: files that cannot be written are reported before it. The rest is done.
void Report::checkOutputs()
{
    checkTable(m_options.csvPath, firstLine(runCsv({})));
    checkTable(m_options.trialsPath, firstLine(trialsCsv({}, {})));
    checkTable(m_options.fits.csvPath, fitCsvHeadings());
    if (!m_options.htmlPath.isEmpty()) {
        checkFile(pageFile(), m_options.htmlPath);
    }
}

void Report::checkTable(QString& path, const QString& headings)
{
    if (!path.isEmpty() && path != standardOutput) {
        checkFile(tableFile(path, headings, m_options.isForced), path);
    }
}

void Report::checkFile(const OutputFile& file, QString& path)
{
    const QString obstacle = outputObstacle(file);
    if (!obstacle.isEmpty()) {
        m_messages.complain(obstacle);
        path.clear();
    }
}

void Report::makeFolder()
{
    if (!m_options.plotFolder.isEmpty() && !QDir().mkpath(m_options.plotFolder)) {
        m_messages.complain(m_options.plotFolder + ": the folder cannot be made");
        m_options.plotFolder.clear();
    }
}

bool Report::isOutputATable() const
{
    return m_options.csvPath == standardOutput || m_options.trialsPath == standardOutput;
}

void Report::writeTables()
{
    if (!isOutputATable()) {
        m_output << runTable(m_runs) << levelTable(m_runs);
        if (m_options.hasSummary) {
            m_output << summaryPages(m_runs);
        }
        if (!m_options.groupKeys.isEmpty()) {
            m_output << groupTable(m_runs, m_options.groupKeys);
        }
    }
    writeFits();
    writeTable(m_options.csvPath, runCsv(m_runs, m_options.carrier));
    if (!m_options.trialsPath.isEmpty()) {
        writeTable(m_options.trialsPath, trialsCsv(m_runs, m_options.carrier));
    }
}

void Report::fit()
{
    if (!m_options.fits.isAsked) {
        return;
    }
    SubjectFits answers;
    for (const Run& run : qAsConst(m_runs)) {
        answers.add(run);
    }
    constexpr int whole = 1000;
    m_messages.begin();
    m_fits = answers.made(m_options.fits,
        [this](double share) { m_messages.progress(static_cast<int>(share * whole), whole); });
    m_messages.end();
}

void Report::writeFits()
{
    if (m_fits.isEmpty()) {
        return;
    }
    if (!isOutputATable()) {
        m_output << fitTable(m_fits, m_options.fits);
    }
    writeTable(m_options.fits.csvPath, fitCsv(m_fits, m_options.fits));
}

void Report::writeTable(const QString& path, const QString& csv)
{
    if (path == standardOutput) {
        m_output << csv;
    } else if (!path.isEmpty()) {
        const QString error
            = writeOutput(tableFile(path, firstLine(csv), m_options.isForced), csv.toUtf8());
        if (!error.isEmpty()) {
            m_messages.complain(error);
        }
    }
}

void Report::writePictures()
{
    if (m_options.plotFolder.isEmpty()) {
        return;
    }
    m_messages.begin();
    for (int i = 0; i < m_runs.size(); ++i) {
        m_messages.progress(i, m_runs.size());
        const Run& run = m_runs[i];
        plot(pictureName(run.fileName), runPictureSize,
            [&run](QPainter& painter, const QSize& size) { drawRun(painter, size, run); });
    }
    const QVector<Subject> subjects = m_options.hasSummary ? bySubject(m_runs) : QVector<Subject>();
    for (const Subject& subject : subjects) {
        plot(subject.pictureName + "_summary", subjectPictureSize,
            [&subject](
                QPainter& painter, const QSize& size) { drawSubject(painter, size, subject); });
        if (hasLearningCurve(subject, m_options.curves)) {
            plot(subject.pictureName + "_learning", learningPictureSize,
                [&](QPainter& painter, const QSize& size) {
                    drawLearning(painter, size, subject, m_options.curves);
                });
        }
    }
    for (const SubjectFit& fit : qAsConst(m_fits)) {
        plot(fitName(fit), fitPictureSize,
            [&fit](QPainter& painter, const QSize& size) { drawFit(painter, size, fit); });
    }
    m_messages.end();
}

OutputFile Report::pageFile() const
{
    return {m_options.htmlPath, OutputFile::Kind::marked, {}, m_options.isForced};
}

void Report::writePage()
{
    if (m_options.htmlPath.isEmpty()) {
        return;
    }
    PageParts parts;
    parts.curves = m_options.curves;
    parts.fits = m_fits;
    parts.fitOptions = m_options.fits;
    parts.progress = [this](int done, int total) { m_messages.progress(done, total); };
    m_messages.begin();
    const QString error = writeOutput(pageFile(), htmlPage(m_runs, parts));
    m_messages.end();
    if (!error.isEmpty()) {
        m_messages.complain(error);
    }
}

void Report::plot(const QString& name, const QSize& size,
    const std::function<void(QPainter& painter, const QSize& size)>& draw)
{
    const QString error = writePicture(picturePath(name), size, draw, m_options.isForced);
    if (!error.isEmpty()) {
        m_messages.complain(error);
    }
}

// Files of the same name in different folders, and subjects, get pictures of their own. A subject's
// code in a record may have slashes, which must not lead into other folders.
QString Report::picturePath(const QString& name)
{
    const QString plain = QString(name).replace('/', '_');
    QString unique = plain;
    for (int i = 2; m_pictureNames.contains(unique); ++i) {
        unique = plain + '-' + QString::number(i);
    }
    m_pictureNames.insert(unique);
    return m_options.plotFolder + '/' + unique + '.' + m_options.format;
}
