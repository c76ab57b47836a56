// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulate/SimulateOptions.h"

#include "plots/PictureFile.h"
#include "session/AdaptedParameter.h"
#include "simulate/OptionReader.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QThread>

#include <algorithm>

namespace {

constexpr int mostReversals = 10000;
constexpr int mostRuns = 10000000;
constexpr int mostTrials = 10000000;
constexpr int mostThreads = 256;
constexpr double mostMs = 3600000.0;
constexpr double largest = 1e6; // of thresholds, slopes and carriers: beyond any sense

void addListenerOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"listener", "logistic, weibull, gaussian or constant. Default: logistic.", "kind",
            "logistic"},
        {"threshold",
            "Value of the deviant, as a fraction, at which the listener is right in 2 of 3 trials. "
            "Default: 0.056234 for the depth, 0.002 for the frequency.",
            "fraction"},
        {"slope",
            "Of the logistic function, its scale in dB (default 2.5); of the Weibull function, "
            "beta (1.5); of the Gaussian function, k (1).",
            "number"},
        {"probability", "Of a constant listener's right answers. Default: 0.5.", "share"},
        {"lapse",
            "Lapse rate lambda, 0 to 0.5: the listener is right in at most 1 - lambda of the "
            "trials. Default: 0.",
            "share"},
    });
}

void addProcedureOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"parameter", "What is adapted: depth or frequency. Default: depth.", "name", "depth"},
        {"start",
            "Value that the deviant starts from, as a fraction. Default: 0.5 for the depth, 0.05 "
            "for the frequency.",
            "fraction"},
        {"reversals", "Number of reversals that ends a run. Default: 14.", "number"},
        {"last", "Reversals to calculate the threshold from, the last ones. Default: 8.", "number"},
        {"carrier", "Carrier frequency of the standard. Default: 1000.", "Hz"},
        {"sound", "Length of a sound. Default: 600.", "ms"},
        {"silence", "Silent interval between sounds. Default: 1000.", "ms"},
        {"reaction", "Reaction time of every answer. Default: 500.", "ms"},
    });
}

void addRunOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"runs", "Experiments to simulate. Default: 1000.", "number"},
        {"seed", "Seed of all that is random. Default: 1.", "number"},
        {"max-trials", "Trials after which a run without an end is cut. Default: 10000.", "number"},
        {"threads", "Default: as many as the machine runs at a time.", "number"},
        {"sweep", "Table of the figures over a range of numbers of reversals.", "from:to[:step]"},
        {"track",
            "Save the first run as a results file. With a folder: under the name that the "
            "application would give.",
            "file"},
        {"tracks", "Save that many runs, in a folder. Default: 1.", "number"},
        {"subject", "Subject code in the names of files in a folder. Default: SIM.", "code"},
        {"plot", "Draw the thresholds and some tracks: .png, .svg or .pdf.", "file"},
    });
}

PsychometricFunction readListener(
    const QCommandLineParser& parser, OptionReader& reader, double defaultThreshold)
{
    const double lapseRate = reader.number("lapse", 0.0, 0.5, 0.0);
    const double threshold = reader.positiveNumber("threshold", largest, defaultThreshold);
    const auto slope
        = [&reader](double fallback) { return reader.positiveNumber("slope", largest, fallback); };
    const QString kind = parser.value("listener");
    if (kind != "constant" && parser.isSet("probability")) {
        reader.fail("--probability is for a constant listener only");
    }
    if (kind == "logistic") {
        return logisticListener(threshold, slope(2.5), lapseRate);
    }
    if (kind == "weibull") {
        return weibullListener(threshold, slope(1.5), lapseRate);
    }
    if (kind == "gaussian") {
        return gaussianListener(threshold, slope(1.0), lapseRate);
    }
    if (kind != "constant") {
        reader.fail("--listener is logistic, weibull, gaussian or constant, not \"" + kind + '"');
    }
    if (parser.isSet("threshold") || parser.isSet("slope")) {
        reader.fail("a constant listener has no --threshold and no --slope");
    }
    return constantListener(reader.number("probability", 0.0, 1.0, 0.5), lapseRate);
}

int readMainParameter(const QCommandLineParser& parser, OptionReader& reader)
{
    const QString name = parser.value("parameter");
    if (name != "depth" && name != "frequency") {
        reader.fail("--parameter is depth or frequency, not \"" + name + '"');
    }
    return name == "frequency" ? carrierFrequencyParameter : modulationDepthParameter;
}

Simulation readSimulation(const QCommandLineParser& parser, OptionReader& reader)
{
    Simulation simulation = {};
    simulation.mainParameter = readMainParameter(parser, reader);
    const bool isDepth = simulation.mainParameter == modulationDepthParameter;
    simulation.listener = readListener(parser, reader, isDepth ? 0.056234 : 0.002);
    const AdaptedParameter& adapted = *adaptedParameter(simulation.mainParameter);
    simulation.startValue = reader.positiveNumber("start", adapted.ceiling, adapted.start);
    simulation.nReversals = reader.count("reversals", 1, mostReversals, 14);
    const int most = parser.isSet("sweep") ? mostReversals : simulation.nReversals;
    simulation.nReversalsToCalculate = reader.count("last", 1, most, std::min(8, most));
    simulation.nRuns = reader.count("runs", 1, mostRuns, 1000);
    simulation.seed = reader.seed("seed", 1);
    simulation.mostTrials = reader.count("max-trials", 1, mostTrials, 10000);
    simulation.standardCarrier = reader.positiveNumber("carrier", largest, 1000.0);
    simulation.soundMs = reader.number("sound", 0.0, mostMs, 600.0);
    simulation.silenceMs = reader.number("silence", 0.0, mostMs, 1000.0);
    simulation.reactionMs = reader.number("reaction", 0.0, mostMs, 500.0);
    return simulation;
}

QVector<int> readSweep(const QCommandLineParser& parser, OptionReader& reader)
{
    if (!parser.isSet("sweep")) {
        return {};
    }
    for (const char* option : {"reversals", "track", "plot"}) {
        if (parser.isSet(option)) {
            reader.fail(QString("--sweep and --%1 do not go together").arg(option));
        }
    }
    QVector<int> numbers;
    const QStringList parts = parser.value("sweep").split(':');
    for (const QString& part : parts) {
        bool isNumber = false;
        const int number = part.toInt(&isNumber);
        numbers.append(isNumber && number <= mostReversals ? number : 0);
    }
    if (numbers.size() == 2) {
        numbers.append(1);
    }
    if (numbers.size() != 3 || numbers[0] < 1 || numbers[1] < numbers[0] || numbers[2] < 1) {
        reader.fail(QString("--sweep is from:to or from:to:step, whole numbers from 1 to %1, not "
                            "\"%2\"")
                        .arg(mostReversals)
                        .arg(parser.value("sweep")));
        return {};
    }
    QVector<int> swept;
    for (int n = numbers[0]; n <= numbers[1]; n += numbers[2]) {
        swept.append(n);
    }
    return swept;
}

TrackTarget readTrack(const QCommandLineParser& parser, OptionReader& reader, int nRuns)
{
    const QString path = parser.value("track");
    const QString subject = parser.isSet("subject") ? parser.value("subject") : QString("SIM");
    if (parser.isSet("track") && path.isEmpty()) {
        reader.fail("--track wants the name of a file or a folder");
    }
    for (const char* option : {"tracks", "subject"}) {
        if (parser.isSet(option) && !QFileInfo(path).isDir()) {
            reader.fail(QString("--%1 wants a --track that is an existing folder").arg(option));
        }
    }
    if (subject.contains('/')) {
        reader.fail("--subject becomes part of a file's name and cannot hold a /");
    }
    return {path, subject, reader.count("tracks", 1, nRuns, 1)};
}

QString readPlotPath(const QCommandLineParser& parser, OptionReader& reader)
{
    QString path = parser.value("plot");
    if (parser.isSet("plot") && !pictureNameError(path).isEmpty()) {
        reader.fail("--plot: " + pictureNameError(path));
    }
    return path;
}

} // namespace

SimulateOptions simulateOptions(const QStringList& arguments, QString& errorText)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Simulates experiments with listeners drawn from a psychometric function, by the "
        "application's own staircase, and prints what thresholds they would give.");
    addListenerOptions(parser);
    addProcedureOptions(parser);
    addRunOptions(parser);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const bool isParsed = parser.parse(arguments);
    if (isParsed && parser.isSet(help)) {
        parser.showHelp();
    }
    if (isParsed && parser.isSet(version)) {
        parser.showVersion();
    }
    OptionReader reader(parser);
    if (!isParsed) {
        reader.fail(parser.errorText());
    }
    if (!parser.positionalArguments().isEmpty()) {
        reader.fail("unknown argument: " + parser.positionalArguments().constFirst());
    }
    const Simulation simulation = readSimulation(parser, reader);
    SimulateOptions options = {simulation, readSweep(parser, reader),
        reader.count(
            "threads", 1, mostThreads, qBound(1, QThread::idealThreadCount(), mostThreads)),
        readTrack(parser, reader, simulation.nRuns), readPlotPath(parser, reader)};
    errorText = reader.errorText();
    return options;
}
