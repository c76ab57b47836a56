// SPDX-License-Identifier: GPL-3.0-or-later
#include "report/ReportOptions.h"

#include "report/FitOptionReader.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int mostReversals = 100000;
const auto formats = {"png", "svg", "pdf"};

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription("Reports the runs that Quorin Lab saved: threshold, reaction "
                                     "times and share of correct answers of each.");
    parser.addOptions({
        {{"h", "help"}, "Show this help."},
        {{"v", "version"}, "Show the version."},
        {"reversals", "The runs ended after <n> reversals. Default: 14.", "n", "14"},
        {"last", "The threshold is the mean of the last <n> of them. Default: 8.", "n", "8"},
        {"csv", "Write a row a run to <file>; - is standard output, then without the tables.",
            "file"},
        {"plot", "Draw a picture a run into <folder>, which is made if it is missing.", "folder"},
        {"format", "Format of the pictures: png, svg or pdf. Default: png.", "format", "png"},
        {"force",
            "Replace tables and pictures that a companion of Quorin Lab wrote. Any other file "
            "is never replaced."},
        {"summary", "Add a page over all runs of each subject; with --plot also a picture of it."},
    });
    addFitOptions(parser);
    parser.addPositionalArgument(
        "inputs", "Results files, or folders that are searched for *.txt.", "file|folder...");
}

QString countError(const QCommandLineParser& parser, const QString& option, int& count)
{
    bool isNumber = false;
    count = parser.value(option).toInt(&isNumber);
    return isNumber && count >= 1 && count <= mostReversals
        ? QString()
        : QString("--%1 must be 1 to %2, not \"%3\"")
              .arg(option)
              .arg(mostReversals)
              .arg(parser.value(option));
}

QString otherError(const QCommandLineParser& parser)
{
    if (std::find(formats.begin(), formats.end(), parser.value("format")) == formats.end()) {
        return "--format is png, svg or pdf, not \"" + parser.value("format") + '"';
    }
    for (const QString& option : {QString("csv"), QString("plot")}) {
        if (parser.isSet(option) && parser.value(option).isEmpty()) {
            return "--" + option + " needs a name";
        }
    }
    return parser.positionalArguments().isEmpty() ? "no files or folders are given" : QString();
}

QString firstError(const QCommandLineParser& parser, ReportOptions& options)
{
    for (const QString& error : {countError(parser, "reversals", options.nReversals),
             countError(parser, "last", options.nLast), otherError(parser),
             readFitOptions(parser, options.fits)}) {
        if (!error.isEmpty()) {
            return error;
        }
    }
    return {};
}

} // namespace

ReportOptions reportOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    ReportOptions options;
    const bool isParsed = parser.parse(arguments);
    if (parser.isSet("help")) {
        options.request = ReportOptions::help;
        options.text = parser.helpText();
        return options;
    }
    if (parser.isSet("version")) {
        options.request = ReportOptions::version;
        options.text = QCoreApplication::applicationName() + ' '
            + QCoreApplication::applicationVersion() + '\n';
        return options;
    }
    options.text = isParsed ? firstError(parser, options) : parser.errorText();
    options.request = options.text.isEmpty() ? ReportOptions::report : ReportOptions::nothing;
    options.nLast = std::min(options.nLast, options.nReversals);
    options.csvPath = parser.value("csv");
    options.plotFolder = parser.value("plot");
    options.format = parser.value("format");
    options.isForced = parser.isSet("force");
    options.hasSummary = parser.isSet("summary");
    options.inputs = parser.positionalArguments();
    return options;
}
