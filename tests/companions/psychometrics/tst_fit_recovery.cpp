// SPDX-License-Identifier: GPL-3.0-or-later
// Fits recover the functions that simulated listeners answered by.
#include "companions/psychometrics/Fits.h"
#include "companions/simulate/Simulations.h"
#include "statistics/Spread.h"
#include "support/QuietTest.h"

#include <cmath>
#include <map>

namespace {

constexpr int nListeners = 60;
constexpr int nRunsEach = 10;

std::vector<FitLevel> answersOf(const Simulation& simulation, int listener)
{
    std::map<double, FitLevel> levels;
    Data data = preparedRun(simulation);
    for (int i = 0; i < nRunsEach; ++i) {
        simulateRun(data, simulation, listener * nRunsEach + i);
        for (const Record& record : qAsConst(data.records)) {
            FitLevel& level = levels[record.value];
            level.decibels = 20.0 * std::log10(record.value);
            ++level.nTrials;
            level.nCorrect += record.correctness ? 1 : 0;
        }
    }
    std::vector<FitLevel> inOrder;
    inOrder.reserve(levels.size());
    for (const auto& [value, level] : levels) {
        inOrder.push_back(level);
    }
    return inOrder;
}

} // namespace

class TestFitRecovery : public QuietTest {
    Q_OBJECT

private slots:
    void listeners_areFoundAgain_data()
    {
        addColumns<PsychometricFunction, FitShape>("listener", "shape");
        addRow("logistic", logisticListener(depthThreshold, 2.5), FitShape::logistic);
        addRow("logistic, lapses", logisticListener(depthThreshold, 2.5, 0.03), FitShape::logistic);
        addRow("Weibull", weibullListener(depthThreshold, 2.0), FitShape::weibull);
        addRow("Weibull, lapses", weibullListener(depthThreshold, 2.0, 0.03), FitShape::weibull);
        addRow("Gauss, of a logistic listener", logisticListener(depthThreshold, 2.5),
            FitShape::gauss);
    }

    // Ten runs of 14 reversals each. The mean over the listeners may be off by 4.5 of its standard
    // errors and by what fits of adaptive answers are off, which makes slopes too steep.
    void listeners_areFoundAgain()
    {
        QFETCH(PsychometricFunction, listener);
        QFETCH(FitShape, shape);
        constexpr double thresholdBiasDb = 0.15;
        constexpr double slopeBias = 0.15;
        const Simulation simulation = simulationOf(listener);
        std::vector<double> errorsDb;
        std::vector<double> slopeRatios;
        for (int i = 0; i < nListeners; ++i) {
            const PsychometricFit fit
                = psychometricFit(answersOf(simulation, i), shape, fittedLapses);
            const double value = std::pow(10.0, fit.function.decibelsAt(0.75) / 20.0);
            // The same point and slope of what the listener answered by, by differences.
            const double p = listener.probabilityRight(value);
            const double above = listener.probabilityRight(value * std::pow(10.0, 0.05 / 20.0));
            const double slope = (above - p) / 0.05;
            errorsDb.push_back((p - 0.75) / slope);
            slopeRatios.push_back(std::log(fit.function.slope() / slope));
        }
        const double error = meanOf(errorsDb);
        const double slope = meanOf(slopeRatios);
        qInfo("threshold %+.3f dB off, slope by ln %+.3f", error, slope);
        const double root = std::sqrt(nListeners);
        QVERIFY(std::abs(error) < thresholdBiasDb + 4.5 * standardDeviationOf(errorsDb) / root);
        QVERIFY(std::abs(slope) < slopeBias + 4.5 * standardDeviationOf(slopeRatios) / root);
    }
};

QUORIN_GUILESS_TEST(TestFitRecovery);
#include "tst_fit_recovery.moc"
