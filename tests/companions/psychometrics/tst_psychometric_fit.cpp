// SPDX-License-Identifier: GPL-3.0-or-later
// Fits against figures from R and against those that can be written down.
#include "companions/psychometrics/Fits.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(std::vector<double>)

namespace {

constexpr LapseLimits noLapses {0.0, 0.0};

// Both searches end where the likelihood is flat to the last digits: half of them are lost there.
constexpr double searchTolerance = 2e-5;
constexpr double devianceTolerance = 1e-8;

bool areClose(double value, double expected, double tolerance)
{
    if (std::abs(value - expected) < tolerance) {
        return true;
    }
    qWarning("%.10g is not %.10g", value, expected);
    return false;
}

// Made up for the comparison with R.
std::vector<FitLevel> comparedLevels()
{
    return {{-38, 6, 3}, {-36, 14, 8}, {-34, 22, 12}, {-32, 30, 17}, {-30, 40, 24}, {-28, 44, 31},
        {-26, 38, 29}, {-24, 30, 26}, {-22, 22, 20}, {-20, 14, 13}, {-16, 40, 39}, {-10, 60, 58}};
}

std::vector<FitLevel> exactLevels()
{
    return {{0, 10, 6}, {10, 10, 9}};
}

FitPrecision precisionOf(const std::vector<FitLevel>& levels, const LapseLimits& lapses,
    std::uint64_t seed, int nSamples = 100)
{
    return fitPrecision(levels, psychometricFit(levels, FitShape::logistic, lapses), lapses,
        nSamples, seed, [](int) {});
}

} // namespace

class TestPsychometricFit : public QuietTest {
    Q_OBJECT

private slots:
    // m, s, lambda, thresholds at 2/3, sqrt(1/2) and 3/4, slope and deviance: R 4.2.2, optim() by
    // Nelder and Mead to 1e-16, then nlm(), on the same likelihood.
    void fit_isTheOneThatRFinds_data()
    {
        addColumns<FitShape, LapseLimits, std::vector<double>>("shape", "lapses", "expected");
        const LapseLimits fixed {0.02, 0.02};
        const auto row = [](const char* name, FitShape shape, const LapseLimits& lapses,
                             const std::vector<double>& expected) {
            QTest::newRow(name) << shape << lapses << expected;
        };
        row("logistic", FitShape::logistic, noLapses,
            {-26.410930186, 4.34295870622, 0, -29.4212397685, -27.9160849773, -26.410930186,
                0.0287822216272, 3.8589442112});
        row("logistic, lapses", FitShape::logistic, fixed,
            {-26.8657800121, 2.8298061145, 0.02, -28.6521567461, -27.6463709003, -26.6298262253,
                0.0423321110422, 0.788078136997});
        row("logistic, fitted lapses", FitShape::logistic, fittedLapses,
            {-26.9877614356, 2.65431412422, 0.0280202786747, -28.5945288558, -27.6407644583,
                -26.6722301479, 0.044297340488, 0.570433475388});
        row("Weibull", FitShape::weibull, noLapses,
            {-22.5331974293, 9.26644193575, 0, -30.8982041164, -28.3327153879, -25.9294681266,
                0.0187004673791, 9.3272956977});
        row("Weibull, lapses", FitShape::weibull, fixed,
            {-24.9307659173, 4.41500538451, 0.02, -28.6927897807, -27.4537246215, -26.2858353346,
                0.0383266945583, 1.25688932716});
        row("Weibull, fitted lapses", FitShape::weibull, fittedLapses,
            {-25.2343889593, 4.14343294617, 0.0319849532107, -28.6338691102, -27.4606003477,
                -26.3500944059, 0.0401960462175, 0.677846475962});
        row("Gauss", FitShape::gauss, noLapses,
            {-26.2908012182, 8.04402041367, 0, -29.7555804064, -28.0340955002, -26.2908012182,
                0.024797443311, 5.34655298741});
        row("Gauss, lapses", FitShape::gauss, fixed,
            {-26.8578360836, 4.76639883341, 0.02, -28.7302244155, -27.6806434321, -26.6088147168,
                0.0401206728158, 0.927046670027});
        row("Gauss, fitted lapses", FitShape::gauss, fittedLapses,
            {-27.0099122321, 4.4774861113, 0.0296358871278, -28.6828881167, -27.6823375709,
                -26.6559719046, 0.0417785250563, 0.573223725678});
    }

    void fit_isTheOneThatRFinds()
    {
        QFETCH(FitShape, shape);
        QFETCH(LapseLimits, lapses);
        QFETCH(std::vector<double>, expected);
        const PsychometricFit fit = psychometricFit(comparedLevels(), shape, lapses);
        const FittedFunction& function = fit.function;
        const std::vector<double> found {function.middleDb, function.spreadDb, function.lapseRate,
            function.decibelsAt(fitTargets[0]), function.decibelsAt(fitTargets[1]),
            function.decibelsAt(fitTargets[2]), function.slope()};
        for (size_t i = 0; i < found.size(); ++i) {
            QVERIFY(areClose(found[i], expected[i], searchTolerance));
        }
        QVERIFY(areClose(fit.deviance, expected.back(), devianceTolerance));
        QVERIFY(!fit.isAtLimit);
    }

    // Of two levels a function of two parameters takes both shares: F is 0.2 and 0.8.
    void fit_takesBothShares_ofTwoLevels()
    {
        const PsychometricFit fit = psychometricFit(exactLevels(), FitShape::logistic, noLapses);
        QVERIFY(areClose(fit.function.middleDb, 5.0, searchTolerance));
        QVERIFY(areClose(fit.function.spreadDb, 5.0 / std::log(4.0), searchTolerance));
        QVERIFY(fit.deviance < devianceTolerance);
    }

    void probability_isHalfWayToTheAsymptote_atTheMiddle()
    {
        const FittedFunction logistic {FitShape::logistic, -20, 2, 0.04};
        QCOMPARE(logistic.probabilityRight(-20), 0.73);
        QCOMPARE(logistic.probabilityRight(1e4), 0.96);
        QCOMPARE(logistic.probabilityRight(-INFINITY), 0.5);
        const FittedFunction gauss {FitShape::gauss, -20, 2, 0.04};
        QCOMPARE(gauss.probabilityRight(-20), 0.73);
        QCOMPARE(gauss.probabilityRight(-18), 0.5 + 0.46 * 0.84134474606854294859);
        const FittedFunction weibull {FitShape::weibull, -20, 2, 0.0};
        QCOMPARE(weibull.probabilityRight(-20), 1.0 - 0.5 * std::exp(-1.0));
        QCOMPARE(weibull.probabilityRight(-INFINITY), 0.5);
    }

    void threshold_isWhereTheShareIsReached_lapsesIncluded()
    {
        for (const FitShape shape : {FitShape::logistic, FitShape::weibull, FitShape::gauss}) {
            const FittedFunction function {shape, -20, 3, 0.05};
            for (const double target : fitTargets) {
                QCOMPARE(function.probabilityRight(function.decibelsAt(target)), target);
            }
            QVERIFY(std::isnan(function.decibelsAt(0.96)));
            QVERIFY(std::isnan(function.decibelsAt(0.5)));
        }
    }

    // The logistic function is steepest at its middle: (0.5 - lambda) / 4 s.
    void slope_isThatAtThreeQuarters()
    {
        QCOMPARE((FittedFunction {FitShape::logistic, 3, 2, 0.0}.slope()), 0.0625);
        QCOMPARE((FittedFunction {FitShape::gauss, 3, 2, 0.0}.slope()),
            0.25 / std::sqrt(8.0 * std::atan(1.0)));
        // Half of F is reached where exp(z) = ln 2.
        QCOMPARE((FittedFunction {FitShape::weibull, 3, 2, 0.0}.slope()), 0.125 * std::log(2.0));
    }

    void fit_isAtTheLimit_whenTheAnswersDoNotHoldIt()
    {
        const std::vector<FitLevel> step {{-20, 30, 15}, {-10, 30, 30}};
        QVERIFY(psychometricFit(step, FitShape::logistic, noLapses).isAtLimit);
        const std::vector<FitLevel> allRight {{-20, 30, 30}, {-10, 30, 30}};
        QVERIFY(psychometricFit(allRight, FitShape::gauss, fittedLapses).isAtLimit);
    }

    void levelOfValueZero_isAnsweredByChance()
    {
        std::vector<FitLevel> levels = exactLevels();
        levels.push_back({-std::numeric_limits<double>::infinity(), 10, 5});
        const PsychometricFit fit = psychometricFit(levels, FitShape::weibull, noLapses);
        QVERIFY(fit.deviance < devianceTolerance);
    }

    void intervals_areThoseOfTheSeed_andHoldTheFit()
    {
        const std::vector<FitLevel> levels = comparedLevels();
        const FitPrecision precision = precisionOf(levels, fittedLapses, 1);
        QCOMPARE(precisionOf(levels, fittedLapses, 1).slope.low, precision.slope.low);
        QVERIFY(precisionOf(levels, fittedLapses, 2).slope.low != precision.slope.low);
        const double expected[] = {-28.5945, -27.6408, -26.6722};
        for (size_t i = 0; i < fitTargets.size(); ++i) {
            QVERIFY(precision.thresholds[i].low < expected[i]);
            QVERIFY(precision.thresholds[i].high > expected[i]);
        }
        QVERIFY(precision.lapseRate.low >= 0.0 && precision.lapseRate.high <= 0.06);
        // 12 levels and three parameters: a deviance of 0.57 is among the smallest.
        QVERIFY(precision.devianceProbability > 0.95);
    }

    // With 10000 trials a level the shares' own standard errors give the intervals: for the middle
    // of the logistic function through both, half of the sum of sigma_i / (F_i (1 - F_i)) s apiece.
    void intervals_haveTheirAsymptoticWidth_forManyTrials()
    {
        constexpr int nTrials = 10000;
        const std::vector<FitLevel> levels {{0, nTrials, 6000}, {10, nTrials, 9000}};
        const FitPrecision precision = precisionOf(levels, noLapses, 1, 1000);
        const auto error = [](double p, double f) {
            return 2.0 * std::sqrt(p * (1 - p) / nTrials) / (f * (1 - f));
        };
        // m = 10 a / (a - b) with the logits a = -b = -ln 4 of F: its derivatives are 10 b and 10 a
        // over (a - b)^2.
        const double rate = 10.0 * std::log(4.0) / std::pow(2.0 * std::log(4.0), 2.0);
        const double sd = rate * std::hypot(error(0.6, 0.2), error(0.9, 0.8));
        const FitInterval& middle = precision.thresholds[2];
        // The quantiles of 1000 samples have a standard error of 6 % of this width's half.
        constexpr double quantileTolerance = 0.14;
        QVERIFY(areClose((middle.high - middle.low) / (2 * 1.959964 * sd), 1.0, quantileTolerance));
    }

    void samples_areCounted()
    {
        const std::vector<FitLevel> levels = exactLevels();
        int last = 0;
        fitPrecision(levels, psychometricFit(levels, FitShape::gauss, noLapses), noLapses, 7, 1,
            [&last](int nSamples) { QCOMPARE(nSamples, ++last); });
        QCOMPARE(last, 7);
    }
};

QUORIN_GUILESS_TEST(TestPsychometricFit);
#include "tst_psychometric_fit.moc"
