// SPDX-License-Identifier: GPL-3.0-or-later
// Sizes of studies against R's power of t tests.
#include "statistics/SampleSize.h"
#include "support/QuietTest.h"

#include <cmath>
#include <gsl/gsl_cdf.h>
#include <map>

namespace {

// Values as normal as a thousand of them can be.
std::vector<double> normalValues(double mean)
{
    constexpr int n = 1000;
    std::vector<double> values;
    values.reserve(n);
    for (int i = 0; i < n; ++i) {
        values.push_back(mean + gsl_cdf_ugaussian_Pinv((i + 0.5) / n));
    }
    return values;
}

// 4.5 standard errors of a share of 0.8 in 2000 studies.
constexpr double powerTolerance = 0.041;

void compare(const SampleSize& size, const std::map<int, double>& powers)
{
    const auto found = powers.find(size.n);
    QVERIFY2(found != powers.end(), qPrintable(QString::number(size.n)));
    QVERIFY(std::abs(size.power - found->second) < powerTolerance);
    QVERIFY(size.power >= 0.8);
}

} // namespace

class TestSampleSize : public QuietTest {
    Q_OBJECT

private slots:
    // R 4.2.2, power.t.test(n, delta, sd = 1): 17 values a group have 80 % for a difference of 1,
    // and 64 for one of 0.5.
    void groups_areThoseThatRAsksFor()
    {
        compare(groupsNeeded(normalValues(0), normalValues(1), 1),
            {{16, 0.7813965}, {17, 0.8070359}, {18, 0.83004}});
        compare(groupsNeeded(normalValues(0.5), normalValues(0), 1),
            {{60, 0.7752644}, {61, 0.7820732}, {62, 0.7887065}, {63, 0.7951673}, {64, 0.8014586},
                {65, 0.8075836}, {66, 0.8135453}, {67, 0.8193469}, {68, 0.8249914}});
    }

    // The same with type = "paired": 10.
    void pairs_areThoseThatRAsksFor()
    {
        compare(
            pairsNeeded(normalValues(1), 1), {{9, 0.7480155}, {10, 0.8030962}, {11, 0.8475297}});
    }

    void noNumber_isEnough_withoutADifference()
    {
        const SampleSize size = pairsNeeded(normalValues(0), 1);
        QCOMPARE(size.n, 0);
        QVERIFY(size.power < 0.1);
    }

    void sizes_areTheSame_forOneSeed()
    {
        const std::vector<double> first = normalValues(0);
        const std::vector<double> second = normalValues(1);
        QCOMPARE(groupsNeeded(first, second, 7).power, groupsNeeded(first, second, 7).power);
    }
};

QUORIN_GUILESS_TEST(TestSampleSize);
#include "tst_sample_size.moc"
