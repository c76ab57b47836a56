// SPDX-License-Identifier: GPL-3.0-or-later
// What quorin-simulate prints.
#include "simulate/SimulationReport.h"

#include "session/AdaptedParameter.h"
#include "session/Units.h"

#include <QTextStream>

#include <cmath>

using namespace quorin;

namespace {

constexpr int nameWidth = 20;
constexpr int columnWidth = 12;
constexpr double minutesPerHour = 60.0;

QString significant(double value)
{
    constexpr int digits = 5;
    return std::isnan(value) ? "-" : QString::number(value, 'g', digits);
}

QString fixed(double value, int decimals)
{
    return std::isnan(value) ? "-" : QString::number(value, 'f', decimals);
}

QString column(const QString& text)
{
    return text.rightJustified(columnWidth);
}

QString signedDb(double value)
{
    return (value > 0 ? "+" : "") + fixed(value, 2);
}

// Figures of one simulation, each with the warning behind it that its runs ask for.
class FigureLines {
public:
    FigureLines(QTextStream& stream, const QString& warning)
        : m_stream(stream)
        , m_warning(warning.isEmpty() ? QString() : "   " + warning)
    {
    }

    void heading(const QString& name, const QString& columns)
    {
        m_stream << name.leftJustified(nameWidth) << columns << '\n';
    }
    void figure(const QString& name, const QString& columns)
    {
        m_stream << name.leftJustified(nameWidth) << columns << m_warning << '\n';
    }

private:
    QTextStream& m_stream;
    QString m_warning;
};

void writeThresholds(
    FigureLines& lines, const Simulation& simulation, const RunStatistics& statistics)
{
    const Distribution& thresholds = statistics.thresholds;
    const Distribution& decibels = statistics.decibels;
    const auto write = [&](const QString& name, double value, double valueDb) {
        lines.figure(name,
            column(significant(value)) + column(significant(value * shownPerFraction(simulation)))
                + column(fixed(valueDb, 2)));
    };
    const double root = std::sqrt(thresholds.size());
    lines.heading("threshold", column("fraction") + column(shownUnit(simulation)) + column("dB"));
    write("  mean", thresholds.mean(), decibels.mean());
    write("  standard error", thresholds.standardDeviation() / root,
        decibels.standardDeviation() / root);
    write("  SD", thresholds.standardDeviation(), decibels.standardDeviation());
    for (const double share : {0.025, 0.05, 0.25, 0.5, 0.75, 0.95, 0.975}) {
        write("  " + significant(inPercent(share)) + " % quantile", thresholds.quantile(share),
            decibels.quantile(share));
    }
}

void writeTrials(FigureLines& lines, const Simulation& simulation, const RunStatistics& statistics)
{
    const Distribution& trials = statistics.trials;
    const auto write = [&](const QString& name, double nTrials) {
        lines.figure(
            name, column(fixed(nTrials, 2)) + column(fixed(minutesOf(simulation, nTrials), 2)));
    };
    const int nRuns = simulation.runsAveraged;
    lines.heading(nRuns == 1 ? QString("a run") : QString("%1 runs together").arg(nRuns),
        column("trials") + column("minutes"));
    write("  mean", trials.mean());
    write("  SD", trials.standardDeviation());
    write("  shortest", trials.quantile(0));
    write("  95 % quantile", trials.quantile(0.95));
    write("  longest", trials.quantile(1));
}

QString reactionText(const Simulation& simulation)
{
    const QString mean = significant(simulation.reactionMs) + " ms";
    return simulation.reactionSdMs > 0.0
        ? mean + " (SD " + significant(simulation.reactionSdMs) + " ms)"
        : mean;
}

QString sizeText(const SampleSize& size)
{
    if (std::isnan(size.power)) {
        return "-";
    }
    return size.n > 0 ? QString::number(size.n) : QString("> %1").arg(mostSampled);
}

// Sample size, power, minutes of a listener and hours of all of nListeners.
QString studyColumns(const SampleSize& size, double minutesEach, int groups)
{
    const double hours = size.n > 0 ? size.n * groups * minutesEach / minutesPerHour : std::nan("");
    return column(sizeText(size)) + column(fixed(inPercent(size.power), 1))
        + column(fixed(minutesEach, 1)) + column(fixed(hours, 1));
}

} // namespace

QString listenerText(const PsychometricFunction& listener)
{
    const QString lapses = ", lapse rate " + significant(listener.lapseRate);
    const QString rest
        = significant(listener.slope) + ", threshold " + significant(listener.threshold) + lapses;
    switch (listener.kind) {
    case PsychometricFunction::Kind::logistic:
        return "logistic, slope (dB) " + rest;
    case PsychometricFunction::Kind::weibull:
        return "Weibull, slope (beta) " + rest;
    case PsychometricFunction::Kind::gaussian:
        return "Gaussian, slope (k) " + rest;
    case PsychometricFunction::Kind::constant:
        break;
    }
    return "constant, probability " + significant(listener.probability) + lapses;
}

QString ruleText(const Simulation& simulation)
{
    return QString("%1 reversals, the last %2 averaged")
        .arg(simulation.nReversals)
        .arg(simulation.nReversalsToCalculate);
}

QString cutWarning(double shareCut)
{
    constexpr int digits = 3;
    return shareCut > 0.0
        ? "biased: " + QString::number(inPercent(shareCut), 'g', digits) + " % cut"
        : QString();
}

void writeSettings(QTextStream& stream, const Simulation& simulation)
{
    FigureLines lines(stream, {});
    lines.figure("listener", listenerText(simulation.listener));
    lines.figure("main parameter",
        QString(adaptedParameter(simulation.mainParameter)->name) + " of a "
            + (simulation.soundType == noiseCarrier ? "noise" : "sinusoid") + ", from "
            + significant(simulation.startValue) + " ("
            + significant(simulation.startValue * shownPerFraction(simulation)) + ' '
            + shownUnit(simulation) + ')');
    lines.figure("timing",
        QString("sounds %1 ms, silence %2 ms, answers after %3: %4 s a trial")
            .arg(significant(simulation.soundMs), significant(simulation.silenceMs),
                reactionText(simulation), fixed(secondsPerTrial(simulation), 2)));
    lines.figure("runs",
        QString("%1%2, seed %3, subject %4, at most %5 trials each")
            .arg(simulation.nRuns)
            .arg(simulation.runsAveraged == 1
                    ? QString()
                    : QString(" experiments, means of %1").arg(simulation.runsAveraged))
            .arg(simulation.seed)
            .arg(simulation.subCode)
            .arg(simulation.mostTrials));
}

void writeStatistics(
    QTextStream& stream, const Simulation& simulation, const RunStatistics& statistics)
{
    FigureLines lines(stream, cutWarning(statistics.shareCut()));
    lines.heading("rule", ruleText(simulation));
    stream << '\n';
    writeThresholds(lines, simulation, statistics);
    lines.figure("bias (dB)", column(signedDb(biasDb(statistics, simulation.listener))));
    stream << '\n';
    writeTrials(lines, simulation, statistics);
    lines.figure("correct (%)", column(fixed(inPercent(statistics.shareCorrect), 2)));
    lines.heading("cut runs", column(QString::number(statistics.nCut)));
}

void writeSweepHeader(QTextStream& stream, const Sweep& sweep)
{
    const Simulation& simulation = sweep.simulations.constFirst().simulation;
    stream << "\nthresholds in " << shownUnit(simulation)
           << "; the settings above are those of the first row\n";
    for (const QString& option : sweep.options) {
        stream << column(option);
    }
    for (const char* name :
        {"averaged", "mean", "SD", "SD (dB)", "bias (dB)", "trials", "minutes", "cut runs"}) {
        stream << column(name);
    }
    stream << '\n';
}

void writeSweepRow(
    QTextStream& stream, const SweptSimulation& swept, const RunStatistics& statistics)
{
    const Simulation& simulation = swept.simulation;
    const double unit = shownPerFraction(simulation);
    const double nTrials = statistics.trials.mean();
    const QString warning = cutWarning(statistics.shareCut());
    for (const QString& value : swept.values) {
        stream << column(value);
    }
    stream << column(QString::number(simulation.nReversalsToCalculate))
           << column(significant(statistics.thresholds.mean() * unit))
           << column(significant(statistics.thresholds.standardDeviation() * unit))
           << column(fixed(statistics.decibels.standardDeviation(), 2))
           << column(signedDb(biasDb(statistics, simulation.listener))) << column(fixed(nTrials, 2))
           << column(fixed(minutesOf(simulation, nTrials), 2))
           << column(QString::number(statistics.nCut))
           << (warning.isEmpty() ? QString() : "   " + warning) << '\n';
}

void writeDetection(QTextStream& stream, const Simulation& simulation, const Comparison& comparison,
    const Detection& detection)
{
    const QString warning = cutWarning(detection.shareCut);
    const double minutes = minutesOf(simulation, detection.trialsPerRun);
    const double second = simulation.listener.threshold * comparison.ratio;
    FigureLines(stream, {}).heading("rule", ruleText(simulation));
    stream << QString("\nthresholds of %1 and %2 (%3 dB) in two conditions; Student's t tests of "
                      "dB,\ntwo-sided at 5 %, power 80 %; a run takes %4 trials, %5 minutes%6\n\n")
                  .arg(significant(simulation.listener.threshold), significant(second),
                      signedDb(20.0 * std::log10(comparison.ratio)),
                      fixed(detection.trialsPerRun, 1), fixed(minutes, 1),
                      warning.isEmpty() ? QString() : "   " + warning);
    stream << "one listener: runs in each condition, power (%), minutes in all\n"
           << column(sizeText(detection.runs)) << column(fixed(inPercent(detection.runs.power), 1))
           << column(fixed(detection.runs.n > 0 ? 2 * detection.runs.n * minutes : std::nan(""), 1))
           << (warning.isEmpty() ? QString() : "   " + warning) << "\n\n";
    stream << QString("listeners whose thresholds have an SD of %1 dB: a group for each condition, "
                      "or one for both\n")
                  .arg(significant(comparison.listenerSdDb))
           << column("runs each") << column("a group of") << column("power (%)")
           << column("minutes") << column("hours") << column("one group") << column("power (%)")
           << column("minutes") << column("hours") << '\n';
    for (const StudySize& study : detection.studies) {
        stream << column(QString::number(study.nRuns))
               << studyColumns(study.groups, study.nRuns * minutes, 2)
               << studyColumns(study.pairs, 2 * study.nRuns * minutes, 1)
               << (warning.isEmpty() ? QString() : "   " + warning) << '\n';
    }
}
