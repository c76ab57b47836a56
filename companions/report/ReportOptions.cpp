// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of quorin-report.
#include "report/ReportOptions.h"

#include "report/FitOptionReader.h"
#include "report/GroupTable.h"

#include <QCommandLineParser>

#include <algorithm>

namespace {

const auto formats = {"png", "svg", "pdf"};

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription("Reports the runs that Quorin Lab saved: threshold, reaction "
                                     "times and share of correct answers of each.");
    addHelpOptions(parser);
    parser.addOptions({
        {"reversals", "Use the first <n> reversals of each run. Default: all that its file has.",
            "n"},
        {"last",
            "The threshold is the mean of the last <n> of them. Default: 8, or all if there are "
            "fewer.",
            "n"},
        {"carrier", "The standard's carrier frequency, of which differences are a share.", "Hz"},
        {"rescue", "Make a results file of the answered trials of each record, beside it."},
        {"unchecked", "Read files too that depart from the rule; their rows are marked."},
        {"csv", "Write a row a run to <file>; - is standard output, then without the tables.",
            "file"},
        {"trials", "Write a row a trial over all runs to <file>; - is as with --csv.", "file"},
        {"plot", "Draw a picture a run into <folder>, which is made if it is missing.", "folder"},
        {"format", "Format of the pictures: png, svg or pdf. Default: png.", "format", "png"},
        {"force",
            "Replace tables and pictures that a companion of Quorin Lab wrote. Any other file "
            "is never replaced."},
        {"summary",
            "Add a page over all runs of each subject; with --plot also a picture of it and "
            "its learning curve."},
        {"by", "Add means over subjects by <keys>: subject, parameter, sound, type, session.",
            "keys"},
        {"over", "Learning curves go over: session or date. Default: session.", "axis", "session"},
        {"html", "Write a page with all tables and pictures to <file>.", "file"},
    });
    addFitOptions(parser);
    parser.addPositionalArgument("inputs",
        "Results files, records of runs, or folders that are searched for *.txt and *.jsonl. Names "
        "that begin with - come after --.",
        "file|folder...");
}

QString countError(
    const QCommandLineParser& parser, const QString& option, std::optional<int>& count)
{
    constexpr int mostReversals = 100000;
    if (!parser.isSet(option)) {
        return {};
    }
    bool isNumber = false;
    count = parser.value(option).toInt(&isNumber);
    return isNumber && *count >= 1 && *count <= mostReversals
        ? QString()
        : QString("--%1 must be 1 to %2, not \"%3\"")
              .arg(option)
              .arg(mostReversals)
              .arg(parser.value(option));
}

QString ruleError(const RunRule& rule)
{
    return rule.nLast && rule.nReversals && *rule.nLast > *rule.nReversals
        ? QString("--last must be 1 to the number of reversals, %1, not \"%2\"")
              .arg(*rule.nReversals)
              .arg(*rule.nLast)
        : QString();
}

QString carrierError(const QCommandLineParser& parser, std::optional<double>& carrier)
{
    constexpr double most = 1e6;
    if (!parser.isSet("carrier")) {
        return {};
    }
    bool isNumber = false;
    carrier = parser.value("carrier").toDouble(&isNumber);
    return isNumber && *carrier > 0.0 && *carrier <= most
        ? QString()
        : "--carrier must be above 0 and at most 1000000 Hz, not \"" + parser.value("carrier")
            + '"';
}

QString outputError(const QCommandLineParser& parser)
{
    if (std::find(formats.begin(), formats.end(), parser.value("format")) == formats.end()) {
        return "--format is png, svg or pdf, not \"" + parser.value("format") + '"';
    }
    for (const char* option : {"csv", "trials", "plot", "html"}) {
        if (parser.isSet(option) && parser.value(option).isEmpty()) {
            return QString("--%1 needs a name").arg(option);
        }
    }
    return parser.value("csv") == "-" && parser.value("trials") == "-"
        ? QString("--csv and --trials do not go to standard output together")
        : QString();
}

QString groupError(const QCommandLineParser& parser, QStringList& keys)
{
    if (!parser.isSet("by")) {
        return {};
    }
    keys = parser.value("by").split(',');
    for (const QString& key : qAsConst(keys)) {
        if (!groupKeys().contains(key) || keys.count(key) > 1) {
            return QString("--by is a list of %1, each once, not \"%2\"")
                .arg(groupKeys().join(", "), parser.value("by"));
        }
    }
    return {};
}

QString curveError(const QCommandLineParser& parser, CurveAxis& over)
{
    const QString axis = parser.value("over");
    over = axis == "date" ? CurveAxis::date : CurveAxis::session;
    return axis == "date" || axis == "session" ? QString()
                                               : "--over is session or date, not \"" + axis + '"';
}

QString rescueError(const QCommandLineParser& parser)
{
    if (!parser.isSet("rescue")) {
        return {};
    }
    const QStringList options = parser.optionNames();
    for (const QString& option : options) {
        if (option != "rescue" && option != "unchecked") {
            return QString("--rescue goes with --unchecked alone, not with --%1").arg(option);
        }
    }
    return {};
}

QString inputError(const QCommandLineParser& parser)
{
    return parser.positionalArguments().isEmpty() ? "no files or folders are given" : QString();
}

QString mistakeIn(const QCommandLineParser& parser, ReportOptions& options)
{
    options.csvPath = parser.value("csv");
    options.htmlPath = parser.value("html");
    options.trialsPath = parser.value("trials");
    options.plotFolder = parser.value("plot");
    options.format = parser.value("format");
    options.isForced = parser.isSet("force");
    options.hasSummary = parser.isSet("summary");
    options.isRescue = parser.isSet("rescue");
    options.runs.isUnchecked = parser.isSet("unchecked");
    options.runs.inputs = parser.positionalArguments();
    RunRule& rule = options.runs.rule;
    for (const QString& error :
        {countError(parser, "reversals", rule.nReversals), countError(parser, "last", rule.nLast),
            ruleError(rule), carrierError(parser, options.carrier), outputError(parser),
            groupError(parser, options.groupKeys), curveError(parser, options.curves),
            readFitOptions(parser, options.fits), rescueError(parser), inputError(parser)}) {
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
    options.answer
        = answerTo(arguments, parser, [&parser, &options] { return mistakeIn(parser, options); });
    return options;
}
