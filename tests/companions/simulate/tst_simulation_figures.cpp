// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/simulate/Simulations.h"
#include "output/ProgressBar.h"
#include "simulate/SimulationReport.h"
#include "support/QuietTest.h"

#include <QTest>
#include <QTextStream>

#include <cmath>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Two runs that ended and one that was cut.
std::vector<RunOutcome> threeOutcomes()
{
    return {{0.06, 40, 30}, {notANumber, 100, 90}, {0.08, 60, 30}};
}

template <typename Write> QString written(const Write& write)
{
    QString text;
    QTextStream stream(&text);
    write(stream);
    stream.flush();
    return text;
}

} // namespace

class TestSimulationFigures : public QuietTest {
    Q_OBJECT

private slots:
    void mean_andDeviation_areThoseOfASample()
    {
        const Distribution distribution({4, 1, 2, notANumber, 5});
        QCOMPARE(distribution.size(), 4);
        QCOMPARE(distribution.mean(), 3.0);
        QCOMPARE(distribution.standardDeviation(), std::sqrt(10.0 / 3.0));
        QCOMPARE(distribution.sorted(), std::vector<double>({1, 2, 4, 5}));
    }

    void quantile_isLinear_betweenTheValues()
    {
        const Distribution distribution({4, 1, 2, 5});
        QCOMPARE(distribution.quantile(0.0), 1.0);
        QCOMPARE(distribution.quantile(0.25), 1.75);
        QCOMPARE(distribution.quantile(0.5), 3.0);
        QCOMPARE(distribution.quantile(1.0), 5.0);
    }

    void figures_areNan_withoutEnoughValues()
    {
        QCOMPARE(Distribution({7}).mean(), 7.0);
        QVERIFY(std::isnan(Distribution({7}).standardDeviation()));
        QVERIFY(std::isnan(Distribution({notANumber}).mean()));
        QVERIFY(std::isnan(Distribution({}).quantile(0.5)));
    }

    void cutRuns_countInTheShareCorrectOnly()
    {
        const RunStatistics statistics = runStatistics(threeOutcomes());
        QCOMPARE(statistics.nCut, 1);
        QCOMPARE(statistics.thresholds.mean(), 0.07);
        QCOMPARE(statistics.trials.mean(), 50.0);
        QCOMPARE(statistics.shareCorrect, 0.75);
    }

    void bias_isTheMeanThresholdsRatio_inDecibels()
    {
        const RunStatistics statistics = runStatistics(threeOutcomes());
        QCOMPARE(biasDb(statistics, logisticListener(0.007, 2.5)), 20.0);
        QVERIFY(std::isnan(biasDb(statistics, constantListener(0.5))));
    }

    void report_holdsTheFigures()
    {
        const Simulation simulation = simulationOf(logisticListener(0.07, 2.5));
        const QString text = written([&](QTextStream& stream) {
            writeSettings(stream, simulation);
            writeStatistics(stream, simulation, runStatistics(threeOutcomes()));
        });
        const QString expected
            = "listener            logistic, slope (dB) 2.5, threshold 0.07, lapse rate 0\n"
              "main parameter      modulation depth, from 0.5 (50 %)\n"
              "timing              sounds 600 ms, silence 1000 ms, answers after 500 ms: 7.50 s a "
              "trial\n"
              "runs                2000, seed 1, at most 10000 trials each\n"
              "reversals           14, the last 8 averaged\n"
              "\n"
              "threshold               fraction           %\n"
              "  mean                      0.07           7\n"
              "  standard error            0.01           1\n"
              "  SD                    0.014142      1.4142\n"
              "  2.5 % quantile          0.0605        6.05\n"
              "  5 % quantile             0.061         6.1\n"
              "  25 % quantile            0.065         6.5\n"
              "  50 % quantile             0.07           7\n"
              "  75 % quantile            0.075         7.5\n"
              "  95 % quantile            0.079         7.9\n"
              "  97.5 % quantile         0.0795        7.95\n"
              "bias (dB)                   0.00\n"
              "\n"
              "a run                     trials     minutes\n"
              "  mean                     50.00        6.25\n"
              "  SD                       14.14        1.77\n"
              "  shortest                 40.00        5.00\n"
              "  95 % quantile            59.00        7.38\n"
              "  longest                  60.00        7.50\n"
              "correct (%)                75.00\n"
              "cut runs                       1\n";
        QCOMPARE(text, expected);
    }

    void table_hasALinePerSimulation()
    {
        Simulation simulation = simulationOf(gaussianListener(0.07, 1), carrierFrequencyParameter);
        simulation.standardCarrier = 2000;
        const QString text = written([&](QTextStream& stream) {
            writeSweepHeader(stream, simulation);
            writeSweepRow(stream, simulation, runStatistics(threeOutcomes()));
            simulation.listener = constantListener(1);
            writeSweepRow(stream, simulation, runStatistics({{notANumber, 10, 10}}));
        });
        const QString expected
            = "\nthresholds in Hz\n"
              "   reversals    averaged        mean          SD   bias (dB)      trials     minutes"
              "    cut runs\n"
              "          14           8         140      28.284        0.00       50.00        6.25"
              "           1\n"
              "          14           8           -           -           -           -           -"
              "           1\n";
        QCOMPARE(text, expected);
    }

    void bar_isDrawn_afterASecondOnATerminal()
    {
        const QString early = written([](QTextStream& stream) {
            ProgressBar bar(stream, true);
            bar.show(1, 4, 999);
            bar.clear();
        });
        QCOMPARE(early, QString());
        const QString late = written([](QTextStream& stream) {
            ProgressBar bar(stream, true);
            bar.show(1, 4, 1000);
            bar.clear();
            bar.clear();
        });
        QCOMPARE(late, "\r[" + QString(10, '#') + QString(30, '.') + "]  25 %\r\x1b[K");
    }

    void bar_isNotDrawn_withoutATerminal()
    {
        const QString text = written([](QTextStream& stream) {
            ProgressBar bar(stream, false);
            bar.show(1, 4, 5000);
            bar.clear();
        });
        QCOMPARE(text, QString());
    }
};

QTEST_GUILESS_MAIN(TestSimulationFigures)
#include "tst_simulation_figures.moc"
