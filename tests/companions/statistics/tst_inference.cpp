// SPDX-License-Identifier: GPL-3.0-or-later
// Estimates and tests against figures of R 4.2.2. What R was asked stands beside each.
#include "statistics/Inference.h"
#include "support/QuietTest.h"

#include <cmath>

namespace {

// R printed 15 digits; quantiles and probabilities of both libraries are good to some 12.
constexpr double tolerance = 1e-11;

bool isLike(double value, double reference)
{
    return std::abs(value - reference) <= tolerance * std::abs(reference);
}

} // namespace

class TestInference : public QuietTest {
    Q_OBJECT

private slots:
    void meanEstimate_isThatOfR()
    {
        // x <- 20 * log10(c(5.2, 6.1, 4.4, 7.3) / 100); mean(x); sd(x); sd(x) / 2; t.test(x)
        QVector<double> levels;
        for (const double percent : {5.2, 6.1, 4.4, 7.3}) {
            levels.append(20 * std::log10(percent / 100));
        }
        const MeanEstimate estimate = meanEstimate(levels);
        QCOMPARE(estimate.n, 4);
        QVERIFY(isLike(estimate.mean, -24.959456423739));
        QVERIFY(isLike(estimate.deviation, 1.8826199773712));
        QVERIFY(isLike(estimate.error, 0.941309988685602));
        QVERIFY(isLike(estimate.low, -27.9551249193581));
        QVERIFY(isLike(estimate.high, -21.9637879281198));
    }

    void meanEstimate_hasNoSpread_forOneValue()
    {
        const MeanEstimate one = meanEstimate({5.0});
        QCOMPARE(one.mean, 5.0);
        QVERIFY(std::isnan(one.deviation) && std::isnan(one.error));
        QVERIFY(std::isnan(one.low) && std::isnan(one.high));
        QCOMPARE(meanEstimate({}).n, 0);
        QVERIFY(std::isnan(meanEstimate({}).mean));
    }

    void binomialTail_isThatOfR()
    {
        // binom.test(k, 40, alternative = "greater")$p.value
        QVERIFY(isLike(binomialUpperTail(27, 40, 0.5), 0.0192386541421002));
        QVERIFY(isLike(binomialUpperTail(25, 40, 0.5), 0.0769299720814162));
        QCOMPARE(binomialUpperTail(0, 40, 0.5), 1.0);
        QCOMPARE(binomialUpperTail(3, 3, 0.5), 0.125);
    }

    void evenSplit_isThatOfR()
    {
        // binom.test(k, 12)$p.value
        QVERIFY(isLike(evenSplitProbability(9, 12), 0.14599609375));
        QVERIFY(isLike(evenSplitProbability(10, 12), 0.03857421875));
        QVERIFY(isLike(evenSplitProbability(2, 12), 0.03857421875));
        QCOMPARE(evenSplitProbability(6, 12), 1.0);
        QCOMPARE(evenSplitProbability(0, 0), 1.0);
    }

    void trend_isThatOfR()
    {
        // y <- c(3.1, 2.7, 3.3, 2.2, 2.6, 1.9, 2.4, 1.5); summary(lm(y ~ seq_along(y)))
        const Trend trend = trendOf({3.1, 2.7, 3.3, 2.2, 2.6, 1.9, 2.4, 1.5});
        QVERIFY(isLike(trend.slope, -0.196428571428571));
        QVERIFY(isLike(trend.probability, 0.0158578835105886));
    }

    void trend_isNone_withoutOneToSee()
    {
        QCOMPARE(trendOf({}).probability, 1.0);
        QCOMPARE(trendOf({1.0, 2.0}).probability, 1.0);
        QCOMPARE(trendOf({2.0, 2.0, 2.0, 2.0}).probability, 1.0);
        QCOMPARE(trendOf({2.0, 3.0, 4.0, std::nan("")}).probability, 1.0);
    }

    void stranger_isThatOfR()
    {
        // o <- c(4.1, 5, 4.6, 5.3); t <- (8.2 - mean(o)) / (sd(o) * sqrt(1 + 1 / 4));
        // 2 * pt(-abs(t), 3)
        const QVector<double> probabilities = strangerProbabilities({4.1, 5.0, 8.2, 4.6, 5.3});
        QCOMPARE(probabilities.size(), 5);
        QVERIFY(isLike(probabilities[2], 0.00954502881900154));
        QVERIFY(std::isnan(strangerProbabilities({8.2, 4.1})[0]));
        const QVector<double> alike = strangerProbabilities({8.2, 4.1, 4.1, 4.1});
        QVERIFY(std::isnan(alike[0]));
        QVERIFY(!std::isnan(alike[1]));
        QCOMPARE(strangerProbabilities({}), QVector<double>());
    }

    void outliers_areThoseOfR()
    {
        // l <- log(z); which(abs(l - median(l)) > 3 * mad(l)): 6 and 7, counted from 1
        QCOMPARE(outliersOf({600, 700, 650, 720, 580, 3000, 90, 640}), QVector<int>({5, 6}));
        QCOMPARE(outliersOf({}), QVector<int>());
        QCOMPARE(outliersOf({0, -1}), QVector<int>());
        QCOMPARE(outliersOf({500, 500, 500, 9000}), QVector<int>()); // most are alike
    }
};

QUORIN_GUILESS_TEST(TestInference);
#include "tst_inference.moc"
