// SPDX-License-Identifier: GPL-3.0-or-later
// Fitted psychometric functions as a table and as comma-separated values.
#include "report/FitTable.h"

#include "report/Csv.h"
#include "report/Texts.h"
#include "session/Units.h"

#include <cmath>

namespace {

constexpr int tableDecimals = 3; // of lapse rates
constexpr int csvDecimals = 6;

QString rounded(double number)
{
    constexpr int significantDigits = 4;
    return std::isnan(number) ? "-" : QString::number(number, 'g', significantDigits);
}

QString range(double low, double high)
{
    return rounded(low) + " to " + rounded(high);
}

QString asRate(double rate, int decimals)
{
    return QString::number(rate, 'f', decimals);
}

QString lapsesText(const LapseLimits& lapses)
{
    return lapses.least < lapses.most
        ? QString("lapse rate fitted from %1 to %2").arg(lapses.least).arg(lapses.most)
        : QString("lapse rate %1").arg(lapses.least);
}

QStringList figureRow(const SubjectFit& fit)
{
    const FittedFunction& function = fit.fit.function;
    QStringList row {onOneLine(fit.subject), fit.mainParameter, fit.sound, fit.sessionType,
        QString::number(fit.nTrials)};
    for (const double target : fitTargets) {
        row.append(rounded(fit.inUnit(function.decibelsAt(target))));
    }
    row << fit.unit << rounded(inPercent(function.slope()))
        << asRate(function.lapseRate, tableDecimals) << rounded(fit.fit.deviance)
        << rounded(fit.precision.devianceProbability)
        << (fit.fit.isAtLimit ? "not held by the answers" : "");
    return row;
}

QStringList intervalRow(const SubjectFit& fit)
{
    const FitPrecision& precision = fit.precision;
    QStringList row {"", "", "", "", ""};
    for (const FitInterval& interval : precision.thresholds) {
        row.append(range(fit.inUnit(interval.low), fit.inUnit(interval.high)));
    }
    row << "" << range(inPercent(precision.slope.low), inPercent(precision.slope.high))
        << asRate(precision.lapseRate.low, tableDecimals) + " to "
            + asRate(precision.lapseRate.high, tableDecimals)
        << ""
        << ""
        << "";
    return row;
}

QStringList csvRow(const SubjectFit& fit, const FitOptions& options)
{
    const FittedFunction& function = fit.fit.function;
    const FitPrecision& precision = fit.precision;
    QStringList row {fit.subject, fit.mainParameter, fit.sound, fit.sessionType, fit.unit,
        QString::number(fit.nRuns), QString::number(fit.nTrials),
        QString::number(fit.levels.size()), shapeName(function.shape)};
    for (size_t i = 0; i < fitTargets.size(); ++i) {
        row << csvNumber(fit.inUnit(function.decibelsAt(fitTargets[i])))
            << csvNumber(fit.inUnit(precision.thresholds[i].low))
            << csvNumber(fit.inUnit(precision.thresholds[i].high));
    }
    row << csvNumber(inPercent(function.slope())) << csvNumber(inPercent(precision.slope.low))
        << csvNumber(inPercent(precision.slope.high)) << asRate(function.lapseRate, csvDecimals)
        << asRate(precision.lapseRate.low, csvDecimals)
        << asRate(precision.lapseRate.high, csvDecimals) << csvNumber(function.middleDb)
        << csvNumber(function.spreadDb) << csvNumber(fit.fit.deviance)
        << csvNumber(precision.devianceProbability) << (fit.fit.isAtLimit ? "1" : "0")
        << QString::number(options.nSamples) << QString::number(options.seed);
    return row;
}

} // namespace

QString shapeName(FitShape shape)
{
    switch (shape) {
    case FitShape::logistic:
        return "logistic";
    case FitShape::weibull:
        return "Weibull";
    case FitShape::gauss:
        break;
    }
    return "Gauss";
}

QString fitTable(const QVector<SubjectFit>& fits, const FitOptions& options)
{
    constexpr int nLeft = 4;
    QVector<QStringList> rows {
        {"subject", "main parameter", "sound", "session", "trials", "at 66.7 %", "at 70.7 %",
            "at 75 %", "unit", "slope (%/dB)", "lapse rate", "deviance", "p", ""}};
    for (const SubjectFit& fit : fits) {
        rows.append(figureRow(fit));
        rows.append(intervalRow(fit));
    }
    const QString title
        = QString("\nFits: %1 function of the value in dB, guess rate 0.5, %2; below each, 95 % "
                  "intervals of %3 bootstrap samples, seed %4\n\n")
              .arg(shapeName(options.shape), lapsesText(options.lapses))
              .arg(options.nSamples)
              .arg(options.seed);
    return title + alignedTable(rows, nLeft);
}

QString fitCsvHeadings()
{
    return "subject,main_parameter,sound,session_type,unit,runs,trials,levels,shape,"
           "threshold_667,threshold_667_low,threshold_667_high,"
           "threshold_707,threshold_707_low,threshold_707_high,"
           "threshold_750,threshold_750_low,threshold_750_high,"
           "slope_percent_per_db,slope_low,slope_high,lapse_rate,lapse_rate_low,lapse_rate_high,"
           "middle_db,spread_db,deviance,deviance_p,at_limit,samples,seed";
}

QString fitCsv(const QVector<SubjectFit>& fits, const FitOptions& options)
{
    QString csv = fitCsvHeadings() + '\n';
    for (const SubjectFit& fit : fits) {
        csv += csvLine(csvRow(fit, options));
    }
    return csv;
}
