// SPDX-License-Identifier: GPL-3.0-or-later
// The options that tell what is simulated.
#include "simulate/SimulationReader.h"

#include "output/OptionReader.h"
#include "session/AdaptedParameter.h"

#include <QCommandLineParser>

#include <algorithm>

using namespace quorin;

namespace {

constexpr int mostReversals = 10000;
constexpr int mostRuns = 10000000;
constexpr int mostAveraged = 1000;
constexpr int mostTrials = 10000000;
constexpr double mostMs = 3600000.0;
constexpr double mostLapses = 0.5;
constexpr double largest = 1e6; // of thresholds, slopes and carriers: beyond any sense

// The default of one main parameter, or of both.
QString defaultText(double (*figure)(const Simulation&))
{
    const double ofDepth = figure(defaultSimulation(modulationDepthParameter));
    const double ofFrequency = figure(defaultSimulation(carrierFrequencyParameter));
    return ofDepth == ofFrequency ? QString(" Default: %1.").arg(ofDepth)
                                  : QString(" Default: %1 for the depth, %2 for the frequency.")
                                        .arg(ofDepth)
                                        .arg(ofFrequency);
}

void addListenerOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"listener", "logistic, weibull, gaussian or constant. Default: logistic.", "kind",
            "logistic"},
        {"threshold",
            "Value of the deviant, as a fraction, at which the listener is right in 2 of 3 trials, "
            "lapses apart."
                + defaultText([](const Simulation& s) { return s.listener.threshold; }),
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
        {"reaction",
            "Mean reaction time." + defaultText([](const Simulation& s) { return s.reactionMs; }),
            "ms"},
        {"reaction-sd",
            "Standard deviation of the reaction times, which are log-normal; 0: all are alike. "
            "Default: 0.",
            "ms"},
    });
}

void addProcedureOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"parameter", "What is adapted: depth or frequency. Default: depth.", "name", "depth"},
        {"sound-type",
            "Carrier, which the names of files tell: sinusoid or noise. Default: noise for the "
            "depth, sinusoid for the frequency.",
            "name"},
        {"start",
            "Value that the deviant starts from, as a fraction."
                + defaultText([](const Simulation& s) { return s.startValue; }),
            "fraction"},
        {"reversals", "Number of reversals that ends a run." + defaultText([](const Simulation& s) {
             return double(s.nReversals);
         }),
            "number"},
        {"last",
            "Reversals to calculate the threshold from, the last ones."
                + defaultText([](const Simulation& s) { return double(s.nReversalsToCalculate); }),
            "number"},
        {"mean-of", "Runs of an experiment, whose thresholds are averaged. Default: 1.", "number"},
        {"carrier", "Carrier frequency of the standard." + defaultText([](const Simulation& s) {
             return s.standardCarrier;
         }),
            "Hz"},
        {"sound", "Length of a sound." + defaultText([](const Simulation& s) { return s.soundMs; }),
            "ms"},
        {"silence", "Silent interval between sounds." + defaultText([](const Simulation& s) {
             return s.silenceMs;
         }),
            "ms"},
    });
}

void addRandomOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"runs", "Experiments to simulate. Default: 1000.", "number"},
        {"seed", "Seed of all that is random. Default: 1.", "number"},
        {"subject",
            "Subject code, in the names of files in a folder; subjects of one seed have other "
            "runs. Default: SIM.",
            "code"},
        {"max-trials", "Trials after which a run without an end is cut. Default: 10000.", "number"},
    });
}

PsychometricFunction readListener(OptionReader& reader, const PsychometricFunction& usual)
{
    const double lapseRate = reader.number("lapse", 0.0, mostLapses, usual.lapseRate);
    const double threshold = reader.positiveNumber("threshold", largest, usual.threshold);
    const auto slope
        = [&reader](double fallback) { return reader.positiveNumber("slope", largest, fallback); };
    const QString kind = reader.value("listener");
    if (kind != "constant" && reader.isSet("probability")) {
        reader.fail("--probability is for a constant listener only");
    }
    if (kind == "logistic") {
        return logisticListener(threshold, slope(usual.slope), lapseRate);
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
    if (reader.isSet("threshold") || reader.isSet("slope")) {
        reader.fail("a constant listener has no --threshold and no --slope");
    }
    return constantListener(reader.number("probability", 0.0, 1.0, 0.5), lapseRate);
}

int readMainParameter(OptionReader& reader)
{
    const QString name = reader.value("parameter");
    if (name != "depth" && name != "frequency") {
        reader.fail("--parameter is depth or frequency, not \"" + name + '"');
    }
    return name == "frequency" ? carrierFrequencyParameter : modulationDepthParameter;
}

int readSoundType(OptionReader& reader, const Simulation& usual)
{
    if (!reader.isSet("sound-type")) {
        return usual.soundType;
    }
    const QString name = reader.value("sound-type");
    if (name != "sinusoid" && name != "noise") {
        reader.fail("--sound-type is sinusoid or noise, not \"" + name + '"');
    }
    if (name == "noise" && usual.mainParameter == carrierFrequencyParameter) {
        reader.fail("--sound-type noise does not go with --parameter frequency: noise has none");
    }
    return name == "noise" ? noiseCarrier : sinusoidCarrier;
}

QString readSubject(OptionReader& reader, const Simulation& usual)
{
    if (!reader.isSet("subject")) {
        return usual.subCode;
    }
    QString code = reader.value("subject");
    if (code.contains('/')) {
        reader.fail("--subject becomes part of a file's name and cannot hold a /: " + code);
    }
    return code;
}

void readReversals(OptionReader& reader, Simulation& simulation)
{
    simulation.nReversals = reader.count("reversals", 1, mostReversals, simulation.nReversals);
    const int most = reader.isSwept("reversals") ? mostReversals : simulation.nReversals;
    const int last
        = reader.count("last", 1, most, std::min(simulation.nReversalsToCalculate, most));
    simulation.nReversalsToCalculate = std::min(last, simulation.nReversals);
}

void readTimes(OptionReader& reader, Simulation& simulation)
{
    simulation.soundMs = reader.number("sound", 0.0, mostMs, simulation.soundMs);
    simulation.silenceMs = reader.number("silence", 0.0, mostMs, simulation.silenceMs);
    simulation.reactionMs = reader.number("reaction", 0.0, mostMs, simulation.reactionMs);
    simulation.reactionSdMs = reader.number("reaction-sd", 0.0, mostMs, simulation.reactionSdMs);
    if (simulation.reactionSdMs > 0.0 && simulation.reactionMs == 0.0) {
        reader.fail("--reaction-sd wants a --reaction above 0");
    }
}

} // namespace

void addSimulationOptions(QCommandLineParser& parser)
{
    addListenerOptions(parser);
    addProcedureOptions(parser);
    addRandomOptions(parser);
}

Simulation readSimulation(OptionReader& reader)
{
    Simulation simulation = defaultSimulation(readMainParameter(reader));
    simulation.listener = readListener(reader, simulation.listener);
    simulation.soundType = readSoundType(reader, simulation);
    simulation.startValue = reader.positiveNumber(
        "start", adaptedParameter(simulation.mainParameter)->ceiling, simulation.startValue);
    readReversals(reader, simulation);
    simulation.nRuns = reader.count("runs", 1, mostRuns, simulation.nRuns);
    simulation.runsAveraged = reader.count("mean-of", 1, mostAveraged, simulation.runsAveraged);
    if (simulation.runsAveraged > mostRuns / simulation.nRuns) {
        reader.fail(QString("--runs times --mean-of must be at most %1").arg(mostRuns));
    }
    simulation.seed = reader.seed("seed", simulation.seed);
    simulation.subCode = readSubject(reader, simulation);
    simulation.mostTrials = reader.count("max-trials", 1, mostTrials, simulation.mostTrials);
    simulation.standardCarrier
        = reader.positiveNumber("carrier", largest, simulation.standardCarrier);
    readTimes(reader, simulation);
    return simulation;
}

QStringList numericOptions()
{
    return {"threshold", "slope", "probability", "lapse", "reaction", "reaction-sd", "start",
        "reversals", "last", "mean-of", "carrier", "sound", "silence", "runs", "seed",
        "max-trials"};
}
