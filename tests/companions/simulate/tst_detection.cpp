// SPDX-License-Identifier: GPL-3.0-or-later
// How large studies of simulated listeners must be.
#include "companions/simulate/Simulations.h"
#include "simulate/Detection.h"
#include "support/QuietTest.h"

#include <cmath>
#include <gsl/gsl_cdf.h>
#include <map>

namespace {

Detection found(double ratio, double listenerSdDb)
{
    Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
    simulation.nRuns = 300;
    return detection(simulation, {ratio, listenerSdDb}, [](double) {});
}

} // namespace

class TestDetection : public QuietTest {
    Q_OBJECT

private slots:
    void largerRatio_needsFewerRunsAndListeners()
    {
        const Detection small = found(1.26, 3.0);
        const Detection large = found(2.0, 3.0);
        QVERIFY(large.runs.n < small.runs.n);
        QCOMPARE(small.studies.size(), 6);
        for (int i = 0; i < 6; ++i) {
            QVERIFY(large.studies[i].groups.n < small.studies[i].groups.n);
            QVERIFY(large.studies[i].pairs.n <= small.studies[i].pairs.n);
            // In pairs each listener is compared with the same listener.
            QVERIFY(small.studies[i].pairs.n < small.studies[i].groups.n);
        }
        QVERIFY(small.studies[5].pairs.n < small.studies[0].pairs.n);
        QCOMPARE(small.shareCut, 0.0);
    }

    void spreadOfListeners_asksForLargerGroups()
    {
        const Detection alike = found(1.5, 0.0);
        const Detection unlike = found(1.5, 6.0);
        QVERIFY(unlike.studies[5].groups.n > 2 * alike.studies[5].groups.n);
        QCOMPARE(alike.runs.n, unlike.runs.n);
    }

    void cutRuns_areLeftOut_andTold()
    {
        Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        simulation.nRuns = 20;
        simulation.mostTrials = 1;
        const Detection none = detection(simulation, {2.0, 3.0}, [](double) {});
        QCOMPARE(none.shareCut, 1.0);
        QCOMPARE(none.runs.n, 0);
        QVERIFY(std::isnan(none.runs.power));
        QVERIFY(none.studies.isEmpty());
    }
};

QUORIN_GUILESS_TEST(TestDetection);
#include "tst_detection.moc"
