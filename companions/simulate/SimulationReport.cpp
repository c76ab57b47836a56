// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulate/SimulationReport.h"

#include "session/AdaptedParameter.h"
#include "session/Units.h"

#include <QTextStream>

#include <cmath>

namespace {

constexpr int nameWidth = 20;
constexpr int columnWidth = 12;
constexpr double secondsPerMinute = 60.0;

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

void writeLine(QTextStream& stream, const QString& name, const QString& text)
{
    stream << name.leftJustified(nameWidth) << text << '\n';
}

double minutes(const Simulation& simulation, double nTrials)
{
    return nTrials * secondsPerTrial(simulation) / secondsPerMinute;
}

void writeThresholds(
    QTextStream& stream, const Simulation& simulation, const Distribution& thresholds)
{
    const auto write = [&](const QString& name, double value) {
        writeLine(stream, name,
            column(significant(value)) + column(significant(value * shownPerFraction(simulation))));
    };
    writeLine(stream, "threshold", column("fraction") + column(shownUnit(simulation)));
    write("  mean", thresholds.mean());
    write("  standard error", thresholds.standardDeviation() / std::sqrt(thresholds.size()));
    write("  SD", thresholds.standardDeviation());
    for (const double share : {0.025, 0.05, 0.25, 0.5, 0.75, 0.95, 0.975}) {
        write("  " + significant(inPercent(share)) + " % quantile", thresholds.quantile(share));
    }
}

} // namespace

void writeSettings(QTextStream& stream, const Simulation& simulation)
{
    writeLine(stream, "listener", listenerText(simulation.listener));
    writeLine(stream, "main parameter",
        QString(adaptedParameter(simulation.mainParameter)->name) + ", from "
            + significant(simulation.startValue) + " ("
            + significant(simulation.startValue * shownPerFraction(simulation)) + ' '
            + shownUnit(simulation) + ')');
    writeLine(stream, "timing",
        QString("sounds %1 ms, silence %2 ms, answers after %3 ms: %4 s a trial")
            .arg(significant(simulation.soundMs), significant(simulation.silenceMs),
                significant(simulation.reactionMs), fixed(secondsPerTrial(simulation), 2)));
    writeLine(stream, "runs",
        QString("%1, seed %2, at most %3 trials each")
            .arg(simulation.nRuns)
            .arg(simulation.seed)
            .arg(simulation.mostTrials));
}

void writeStatistics(
    QTextStream& stream, const Simulation& simulation, const RunStatistics& statistics)
{
    const Distribution& trials = statistics.trials;
    writeLine(stream, "reversals",
        QString("%1, the last %2 averaged")
            .arg(simulation.nReversals)
            .arg(simulation.nReversalsToCalculate));
    stream << '\n';
    writeThresholds(stream, simulation, statistics.thresholds);
    writeLine(stream, "bias (dB)", column(signedDb(biasDb(statistics, simulation.listener))));
    stream << '\n';
    writeLine(stream, "a run", column("trials") + column("minutes"));
    const auto write = [&](const QString& name, double nTrials) {
        writeLine(stream, name,
            column(fixed(nTrials, 2)) + column(fixed(minutes(simulation, nTrials), 2)));
    };
    write("  mean", trials.mean());
    write("  SD", trials.standardDeviation());
    write("  shortest", trials.quantile(0));
    write("  95 % quantile", trials.quantile(0.95));
    write("  longest", trials.quantile(1));
    writeLine(stream, "correct (%)", column(fixed(inPercent(statistics.shareCorrect), 2)));
    writeLine(stream, "cut runs", column(QString::number(statistics.nCut)));
}

void writeSweepHeader(QTextStream& stream, const Simulation& simulation)
{
    stream << "\nthresholds in " << shownUnit(simulation) << '\n';
    for (const char* name :
        {"reversals", "averaged", "mean", "SD", "bias (dB)", "trials", "minutes", "cut runs"}) {
        stream << column(name);
    }
    stream << '\n';
}

void writeSweepRow(
    QTextStream& stream, const Simulation& simulation, const RunStatistics& statistics)
{
    const double unit = shownPerFraction(simulation);
    const double nTrials = statistics.trials.mean();
    stream << column(QString::number(simulation.nReversals))
           << column(QString::number(simulation.nReversalsToCalculate))
           << column(significant(statistics.thresholds.mean() * unit))
           << column(significant(statistics.thresholds.standardDeviation() * unit))
           << column(signedDb(biasDb(statistics, simulation.listener))) << column(fixed(nTrials, 2))
           << column(fixed(minutes(simulation, nTrials), 2))
           << column(QString::number(statistics.nCut)) << '\n';
}
