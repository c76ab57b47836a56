// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-report: what runs tell, as tables, pictures and pages.
#include "plots/PictureFile.h"
#include "report/Report.h"

#include <QFile>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTextCodec>
#include <QTextStream>

#include <unistd.h>

namespace {

constexpr int success = 0;
constexpr int somethingIsWrong = 1;
constexpr int wrongUsage = 2;

int answered(const ReportOptions& options, QTextStream& output, QTextStream& errors)
{
    switch (options.request) {
    case ReportOptions::help:
    case ReportOptions::version:
        output << options.text;
        output.flush();
        if (output.status() != QTextStream::Ok) {
            errors << "quorin-report: standard output: cannot be written\n";
            return somethingIsWrong;
        }
        return success;
    case ReportOptions::nothing:
        errors << "quorin-report: " << options.text << '\n';
        return wrongUsage;
    case ReportOptions::report:
        break;
    }
    const bool isTerminal = ::isatty(STDERR_FILENO) != 0;
    return Report(options, output, errors, isTerminal).make() ? success : somethingIsWrong;
}

} // namespace

int main(int argc, char* argv[])
{
    // Names of files are UTF-8 in any locale, as the results files' folders may be.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Qt's own warnings, such as one of a missing runtime folder, would stand between the errors.
    QLoggingCategory::setFilterRules("default.warning=false");
    drawWithoutDisplay();
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    // Qt would take options of its own, such as -platform, from the command line.
    int one = 1;
    QGuiApplication application(one, argv);
    QCoreApplication::setApplicationName("quorin-report");
    QCoreApplication::setApplicationVersion(QUORIN_VERSION);

    QFile standardOutput;
    QFile standardError;
    standardOutput.open(STDOUT_FILENO, QIODevice::WriteOnly);
    standardError.open(STDERR_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
    QTextStream output(&standardOutput);
    QTextStream errors(&standardError);
    return answered(reportOptions(arguments), output, errors);
}
