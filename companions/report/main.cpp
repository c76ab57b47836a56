// SPDX-License-Identifier: GPL-3.0-or-later
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
        return output.status() == QTextStream::Ok ? success : somethingIsWrong;
    case ReportOptions::nothing:
        errors << "quorin-report: " << options.text << "\nTry quorin-report --help.\n";
        return wrongUsage;
    case ReportOptions::report:
        break;
    }
    return Report(options, output, errors).make() ? success : somethingIsWrong;
}

} // namespace

int main(int argc, char* argv[])
{
    // Names of files are UTF-8 in any locale, as the results files' folders may be.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    // Qt's own warnings, such as one of a missing runtime folder, would stand between the errors.
    QLoggingCategory::setFilterRules("default.warning=false");
    drawWithoutDisplay();
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName("quorin-report");
    QCoreApplication::setApplicationVersion(QUORIN_VERSION);

    QFile standardOutput;
    QFile standardError;
    standardOutput.open(STDOUT_FILENO, QIODevice::WriteOnly);
    standardError.open(STDERR_FILENO, QIODevice::WriteOnly | QIODevice::Unbuffered);
    QTextStream output(&standardOutput);
    QTextStream errors(&standardError);
    return answered(reportOptions(QCoreApplication::arguments()), output, errors);
}
