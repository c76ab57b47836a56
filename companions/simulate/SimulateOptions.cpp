// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of quorin-simulate.
#include "simulate/SimulateOptions.h"

#include "output/OptionReader.h"
#include "plots/PictureFile.h"
#include "simulate/SimulationReader.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QThread>

namespace {

constexpr int mostThreads = 256;
constexpr double mostListenerSdDb = 40.0;
constexpr double usualListenerSdDb = 3.0;
constexpr double mostRatio = 100.0;

void addOutputOptions(QCommandLineParser& parser)
{
    addHelpOptions(parser);
    parser.addOptions({
        {"detect",
            "How many runs and listeners a study needs that sees thresholds differ by this ratio "
            "between two conditions, with 80 % power at 5 %.",
            "ratio"},
        {"listener-sd", "With --detect: SD of the listeners' thresholds. Default: 3.", "dB"},
        {"threads", "Default: as many as the machine runs at a time.", "number"},
        {"track",
            "Save the first run as a results file. With a folder: under the name that the "
            "application would give.",
            "file"},
        {"tracks", "Save that many runs, in a folder. Default: 1.", "number"},
        {"csv", "Write a row a run.", "file"},
        {"summary-csv", "Write the figures as a row, with --sweep a row a simulation.", "file"},
        {"plot",
            "Draw the thresholds and some tracks, with --sweep bias and spread against trials and "
            "minutes: .png, .svg or .pdf.",
            "file"},
        {"force",
            "Replace tables and pictures that a companion of Quorin Lab wrote. Any other file is "
            "never replaced."},
    });
}

void refuseTogether(const QCommandLineParser& parser, OptionReader& reader, const QString& option,
    const QStringList& others)
{
    for (const QString& other : others) {
        if (parser.isSet(option) && parser.isSet(other)) {
            reader.fail(QString("--%1 and --%2 do not go together").arg(option, other));
        }
    }
}

TrackTarget readTrack(const QCommandLineParser& parser, OptionReader& reader, int nRuns)
{
    const QString path = parser.value("track");
    if (parser.isSet("tracks") && !QFileInfo(path).isDir()) {
        reader.fail("--tracks wants a --track that is an existing folder, not \"" + path + '"');
    }
    return {path, reader.count("tracks", 1, nRuns, 1)};
}

QString readPath(const QCommandLineParser& parser, OptionReader& reader, const QString& option)
{
    QString path = parser.value(option);
    if (parser.isSet(option) && path.isEmpty()) {
        reader.fail("--" + option + " needs a name");
    }
    return path;
}

void readDetection(const QCommandLineParser& parser, OptionReader& reader, SimulateOptions& options)
{
    options.isDetection = parser.isSet("detect");
    if (!options.isDetection && parser.isSet("listener-sd")) {
        reader.fail("--listener-sd goes with --detect only");
    }
    const double ratio = reader.number("detect", 1.0 / mostRatio, mostRatio, mostRatio);
    if (ratio == 1.0) {
        reader.fail("--detect must be a ratio other than 1, not \"" + parser.value("detect") + '"');
    }
    options.comparison
        = {ratio, reader.number("listener-sd", 0.0, mostListenerSdDb, usualListenerSdDb)};
    if (options.isDetection && parser.value("listener") == "constant") {
        reader.fail("--detect wants a --listener with a threshold, not \"constant\"");
    }
    if (options.isDetection && options.simulation.nRuns < 2) {
        reader.fail("--detect wants --runs of at least 2, not \"1\"");
    }
}

void readOutputs(const QCommandLineParser& parser, OptionReader& reader, SimulateOptions& options)
{
    options.nThreads = reader.count(
        "threads", 1, mostThreads, qBound(1, QThread::idealThreadCount(), mostThreads));
    readPath(parser, reader, "track");
    options.track = readTrack(parser, reader, options.simulation.nRuns);
    options.csvPath = readPath(parser, reader, "csv");
    options.summaryCsvPath = readPath(parser, reader, "summary-csv");
    options.plotPath = parser.value("plot");
    if (parser.isSet("plot") && !pictureNameError(options.plotPath).isEmpty()) {
        reader.fail("--plot: " + pictureNameError(options.plotPath));
    }
    options.isForced = parser.isSet("force");
}

QString mistakeIn(const QCommandLineParser& parser, SimulateOptions& options)
{
    OptionReader reader(parser);
    if (!parser.positionalArguments().isEmpty()) {
        reader.fail("unknown argument: " + parser.positionalArguments().constFirst());
    }
    refuseTogether(parser, reader, "sweep", {"detect", "track", "csv"});
    refuseTogether(parser, reader, "detect", {"track", "csv", "summary-csv", "plot", "mean-of"});
    options.sweep = readSweep(parser, reader);
    options.simulation = options.sweep.simulations.isEmpty()
        ? readSimulation(reader)
        : options.sweep.simulations.constFirst().simulation;
    readDetection(parser, reader, options);
    readOutputs(parser, reader, options);
    return reader.errorText();
}

} // namespace

SimulateOptions simulateOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Simulates experiments with listeners drawn from a psychometric function, by the "
        "application's own staircase, and prints what thresholds they would give.");
    addSimulationOptions(parser);
    addSweepOption(parser);
    addOutputOptions(parser);
    SimulateOptions options;
    options.answer
        = answerTo(arguments, parser, [&parser, &options] { return mistakeIn(parser, options); });
    return options;
}
