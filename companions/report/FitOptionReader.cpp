// SPDX-License-Identifier: GPL-3.0-or-later
// The options of the fits of psychometric functions.
#include "report/FitOptionReader.h"

#include <QCommandLineParser>

namespace {

constexpr double mostLapses = 0.06;
constexpr int mostSamples = 100000;

QString shapeError(const QString& name, FitShape& shape)
{
    if (name == "logistic") {
        shape = FitShape::logistic;
    } else if (name == "weibull") {
        shape = FitShape::weibull;
    } else if (name == "gauss") {
        shape = FitShape::gauss;
    } else {
        return "--fit is logistic, weibull or gauss, not \"" + name + '"';
    }
    return {};
}

QString lapseError(const QString& text, LapseLimits& lapses)
{
    if (text == "fitted") {
        return {};
    }
    bool isNumber = false;
    const double rate = text.toDouble(&isNumber);
    if (!isNumber || !(rate >= 0.0 && rate <= mostLapses)) {
        return QString(R"(--fit-lapse must be "fitted" or a number from 0 to %1, not "%2")")
            .arg(QString::number(mostLapses), text);
    }
    lapses = {rate, rate};
    return {};
}

QString samplesError(const QString& text, int& nSamples)
{
    bool isNumber = false;
    nSamples = text.toInt(&isNumber);
    return isNumber && nSamples >= 1 && nSamples <= mostSamples
        ? QString()
        : QString("--fit-samples must be 1 to %1, not \"%2\"").arg(mostSamples).arg(text);
}

QString seedError(const QString& text, quint64& seed)
{
    bool isNumber = false;
    seed = text.toULongLong(&isNumber);
    return isNumber ? QString() : "--fit-seed must be 0 to 2^64 - 1, not \"" + text + '"';
}

} // namespace

void addFitOptions(QCommandLineParser& parser)
{
    parser.addOptions({
        {"fit",
            "Fit a psychometric function to all trials of each subject and condition: logistic, "
            "weibull or gauss; with --plot also a picture of it.",
            "shape"},
        {"fit-lapse", "Lapse rate of the fits: 0 to 0.06, or fitted. Default: fitted.", "rate",
            "fitted"},
        {"fit-samples", "Samples of the bootstrap intervals. Default: 1000.", "n", "1000"},
        {"fit-seed", "Seed of the bootstrap. Default: 1.", "n", "1"},
        {"fit-csv", "Write a row a fit to <file>.", "file"},
    });
}

QString readFitOptions(const QCommandLineParser& parser, FitOptions& options)
{
    options.isAsked = parser.isSet("fit");
    options.csvPath = parser.value("fit-csv");
    for (const QString& option :
        {QString("fit-lapse"), QString("fit-samples"), QString("fit-seed"), QString("fit-csv")}) {
        if (!options.isAsked && parser.isSet(option)) {
            return "--" + option + " goes with --fit only";
        }
    }
    if (parser.isSet("fit-csv") && options.csvPath.isEmpty()) {
        return "--fit-csv needs a name";
    }
    const QStringList errors {
        options.isAsked ? shapeError(parser.value("fit"), options.shape) : QString(),
        lapseError(parser.value("fit-lapse"), options.lapses),
        samplesError(parser.value("fit-samples"), options.nSamples),
        seedError(parser.value("fit-seed"), options.seed)};
    for (const QString& error : errors) {
        if (!error.isEmpty()) {
            return error;
        }
    }
    return {};
}
