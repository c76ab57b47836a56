// SPDX-License-Identifier: GPL-3.0-or-later
// The trials of each subject and condition, and the psychometric functions fitted to them.
#include "report/SubjectFits.h"

#include "report/Units.h"
#include "session/AdaptedParameter.h"
#include "session/Units.h"

#include <cmath>

using namespace quorin;

namespace {

double unitsAtZeroDb(int mainParameter)
{
    return adaptedParameter(mainParameter)->isOfCarrier ? 1.0 : inPercent(1.0);
}

} // namespace

double SubjectFit::inUnit(double decibels) const
{
    return unitsAtZeroDb * std::pow(10.0, decibels / dbPerDecade);
}

void SubjectFits::add(const Run& run)
{
    const Data& data = run.data;
    Answers& answers
        = m_answers[{subjectLabel(run), data.mainParameter, soundOf(run), sessionTypeOf(run)}];
    ++answers.nRuns;
    for (const Record& record : data.records) {
        if (!std::isfinite(record.value) || record.value <= 0.0) {
            continue; // no value in dB
        }
        FitLevel& level = answers.levels[record.value];
        level.decibels = dbPerDecade * std::log10(record.value / unitsAtZeroDb(data.mainParameter));
        ++level.nTrials;
        level.nCorrect += record.correctness ? 1 : 0;
    }
}

QVector<SubjectFit> SubjectFits::made(
    const FitOptions& options, const std::function<void(double)>& fitDone) const
{
    QVector<SubjectFit> fits;
    for (auto it = m_answers.cbegin(); it != m_answers.cend(); ++it) {
        if (it->levels.empty()) {
            continue;
        }
        const auto& [subject, mainParameter, sound, sessionType] = it.key();
        SubjectFit fit = {subject, adaptedParameter(mainParameter)->name, sound, sessionType,
            adaptedParameter(mainParameter)->unit, adaptedParameter(mainParameter)->columnHeading,
            unitsAtZeroDb(mainParameter), it->nRuns, 0, {}, {}, {}};
        for (const auto& [value, level] : it->levels) {
            fit.nTrials += level.nTrials;
            fit.levels.push_back(level);
        }
        fit.fit = psychometricFit(fit.levels, options.shape, options.lapses);
        fit.precision = fitPrecision(
            fit.levels, fit.fit, options.lapses, options.nSamples, options.seed, [&](int nSamples) {
                const double ofThis = static_cast<double>(nSamples) / options.nSamples;
                fitDone((fits.size() + ofThis) / m_answers.size());
            });
        fits.append(fit);
    }
    return fits;
}
