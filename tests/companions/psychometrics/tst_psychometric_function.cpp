// SPDX-License-Identifier: GPL-3.0-or-later
// The functions that simulated listeners answer by, at known points.
#include "companions/psychometrics/Fits.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

namespace {

constexpr double knownThreshold = 0.056;

// The factor in the Gaussian function has six digits, and Phi's slope there is 0.36.
constexpr double gaussianTolerance = 0.36 * 0.5e-6;

void addListeners()
{
    QTest::addColumn<PsychometricFunction>("listener");
    QTest::newRow("logistic") << logisticListener(knownThreshold, 2.5);
    QTest::newRow("steep logistic") << logisticListener(knownThreshold, 0.1);
    QTest::newRow("Weibull") << weibullListener(knownThreshold, 1.5);
    QTest::newRow("steep Weibull") << weibullListener(knownThreshold, 4);
    QTest::newRow("Gaussian") << gaussianListener(knownThreshold, 1);
    QTest::newRow("steep Gaussian") << gaussianListener(knownThreshold, 3);
}

} // namespace

class TestPsychometricFunction : public QuietTest {
    Q_OBJECT

private slots:
    void probability_isTwoThirds_atTheThreshold_data() { addListeners(); }
    void probability_isTwoThirds_atTheThreshold()
    {
        QFETCH(PsychometricFunction, listener);
        QVERIFY(
            std::abs(listener.probabilityRight(knownThreshold) - 2.0 / 3.0) < gaussianTolerance);
    }

    void probability_isChanceOrCertainty_atTheEnds_data() { addListeners(); }
    void probability_isChanceOrCertainty_atTheEnds()
    {
        QFETCH(PsychometricFunction, listener);
        QCOMPARE(listener.probabilityRight(0.0), 0.5);
        QCOMPARE(listener.probabilityRight(qInf()), 1.0);
        QVERIFY(std::isnan(listener.probabilityRight(std::nan(""))));
    }

    void logistic_isThreeQuarters_atItsMiddle()
    {
        const double middle = knownThreshold * std::pow(10.0, 2.5 * std::log(2.0) / 20.0);
        const PsychometricFunction listener = logisticListener(knownThreshold, 2.5);
        QCOMPARE(listener.probabilityRight(middle), 0.75);
        QCOMPARE(listener.probabilityRight(middle * std::pow(10.0, 2.5 / 20.0)),
            0.5 + 0.5 / (1.0 + std::exp(-1.0)));
    }

    void weibull_growsWithThePowerBeta()
    {
        const PsychometricFunction listener = weibullListener(knownThreshold, 2.0);
        // Twice the value is four times the exponent: (2/3)^4 of the range is missing.
        QCOMPARE(listener.probabilityRight(2 * knownThreshold), 1.0 - 0.5 * 16.0 / 81.0);
    }

    void gaussian_isTheNormalDistribution_ofThePowerK()
    {
        // Phi(1) and Phi(2) by their tabulated values.
        const double phi1 = 0.84134474606854294859;
        const double phi2 = 0.97724986805182079279;
        QCOMPARE(gaussianListener(0.430727, 1).probabilityRight(1.0), phi1);
        QCOMPARE(gaussianListener(0.430727, 1).probabilityRight(2.0), phi2);
        const double value = knownThreshold * std::sqrt(1 / 0.430727);
        QCOMPARE(gaussianListener(knownThreshold, 2).probabilityRight(value), phi1);
    }

    void constant_isTheSame_forEveryDeviant()
    {
        QCOMPARE(constantListener(0.7).probabilityRight(0.0), 0.7);
        QCOMPARE(constantListener(0.7).probabilityRight(1.0), 0.7);
        QVERIFY(std::isnan(constantListener(0.7).threshold));
    }

    // lambda is what is missing of 1: 0.5 + (0.5 - lambda) F with F the function from 0 to 1.
    void lapseRate_isWhatTheUpperAsymptoteLacks()
    {
        QCOMPARE(logisticListener(knownThreshold, 2.5, 0.1).probabilityRight(qInf()), 0.9);
        QCOMPARE(weibullListener(knownThreshold, 2.5, 0.02).probabilityRight(qInf()), 0.98);
        QCOMPARE(weibullListener(knownThreshold, 2.5, 0.1).probabilityRight(0.0), 0.5);
        QCOMPARE(gaussianListener(knownThreshold, 1, 0.5).probabilityRight(qInf()), 0.5);
        QCOMPARE(constantListener(1.0, 0.2).probabilityRight(0.0), 0.8);
        // F is 1/3 at the threshold.
        QCOMPARE(logisticListener(knownThreshold, 2.5, 0.06).probabilityRight(knownThreshold),
            0.5 + (0.5 - 0.06) / 3.0);
        QCOMPARE(weibullListener(knownThreshold, 1.5, 0.06).probabilityRight(knownThreshold),
            0.5 + (0.5 - 0.06) / 3.0);
    }

    void fraction_isTheGeneratorsUpperBits()
    {
        std::mt19937_64 generator(5489); // its 10000th number is in the C++ standard
        generator.discard(9999);
        QCOMPARE(nextFraction(generator), double(9981545732273789042U >> 11U) / 9007199254740992.0);
    }
};

QUORIN_GUILESS_TEST(TestPsychometricFunction);
#include "tst_psychometric_function.moc"
