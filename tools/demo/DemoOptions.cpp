// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of the demonstration.
#include "demo/DemoOptions.h"

#include "session/Data.h"

#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>

using namespace quorin;

namespace {

void addOptions(QCommandLineParser& parser)
{
    const QString reversals = QString::number(Data().nReversals);
    parser.addOptions({
        {"output",
            "Leave results, pictures and sound in <folder>. Default: a new one here, "
            "demo-<date>-<time>.",
            "folder", QDateTime::currentDateTime().toString("'demo'-yyyyMMdd-HHmmss")},
        {"seed", "Seed of the listener's answers. Default: 20.", "number", "20"},
        {"parameter",
            "What is adapted: depth (of modulated noise) or frequency (of a tone). Default: depth.",
            "name", "depth"},
        {"reversals", "Reversals that end the run, 1 to 100. Default: " + reversals + '.', "number",
            reversals},
    });
    parser.addHelpOption();
}

QString firstError(const QCommandLineParser& parser)
{
    constexpr int mostReversals = 100;
    bool isNumber = false;
    parser.value("seed").toULongLong(&isNumber);
    if (!isNumber) {
        return "the seed must be a whole number, not " + parser.value("seed");
    }
    const int reversals = parser.value("reversals").toInt(&isNumber);
    if (!isNumber || reversals < 1 || reversals > mostReversals) {
        return "the reversals must be 1 to 100, not " + parser.value("reversals");
    }
    if (parser.value("parameter") != "depth" && parser.value("parameter") != "frequency") {
        return "the parameter is depth or frequency, not " + parser.value("parameter");
    }
    if (!parser.positionalArguments().isEmpty()) {
        return "unknown argument: " + parser.positionalArguments().constFirst();
    }
    return {};
}

} // namespace

DemoOptions demoOptions(const QStringList& arguments, QString& errorText)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Runs a whole experiment in Quorin Lab's own windows, with a listener who hears the sounds "
        "on a virtual sound card and presses the buttons.");
    addOptions(parser);
    parser.process(arguments);
    errorText = firstError(parser);
    return {QDir(parser.value("output")).absolutePath(), parser.value("seed").toULongLong(),
        parser.value("parameter") == "frequency" ? carrierFrequencyParameter
                                                 : modulationDepthParameter,
        parser.value("reversals").toInt()};
}
