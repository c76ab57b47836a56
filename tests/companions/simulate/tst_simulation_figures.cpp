// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of simulated runs, and the texts and tables that hold them.
#include "companions/simulate/Simulations.h"
#include "output/ProgressBar.h"
#include "simulate/SimulationReport.h"
#include "simulate/SimulationTables.h"
#include "support/QuietTest.h"

#include <cmath>

using namespace quorin;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// Two runs that ended and one that was cut.
std::vector<RunOutcome> threeOutcomes()
{
    return {{0.06, 40, 30, 14}, {notANumber, 100, 90, 3}, {0.08, 60, 30, 14}};
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

    void meanOfRuns_isAnExperimentsThreshold()
    {
        const RunStatistics statistics = runStatistics(
            {{0.06, 40, 30, 14}, {0.08, 60, 30, 14}, {0.02, 10, 5, 14}, {notANumber, 90, 80, 3}},
            2);
        QCOMPARE(statistics.nExperiments, 2);
        QCOMPARE(statistics.nCut, 1);
        QCOMPARE(statistics.shareCut(), 0.5);
        QCOMPARE(statistics.thresholds.sorted(), std::vector<double>({0.07}));
        QCOMPARE(statistics.decibels.mean(), 20.0 * std::log10(0.07));
        QCOMPARE(statistics.trials.mean(), 100.0);
        QCOMPARE(statistics.shareCorrect, 145.0 / 200.0);
    }

    void spread_isAlsoOneOfDecibels()
    {
        const RunStatistics statistics = runStatistics({{0.01, 1, 1, 14}, {1.0, 1, 1, 14}});
        QCOMPARE(statistics.decibels.mean(), -20.0);
        QCOMPARE(statistics.decibels.standardDeviation(), 20.0 * std::sqrt(2.0));
    }

    void report_holdsTheFigures_withAWarningBesideWhatCutRunsBias()
    {
        const Simulation simulation = simulationOf(logisticListener(0.07, 2.5));
        const QString text = written([&](QTextStream& stream) {
            writeSettings(stream, simulation);
            writeStatistics(stream, simulation, runStatistics(threeOutcomes()));
        });
        const QString expected
            = "listener            logistic, slope (dB) 2.5, threshold 0.07, lapse rate 0\n"
              "main parameter      modulation depth of a noise, from 0.5 (50 %)\n"
              "timing              sounds 600 ms, silence 1000 ms, answers after 500 ms: 7.50 s a "
              "trial\n"
              "runs                2000, seed 1, subject SIM, at most 10000 trials each\n"
              "rule                14 reversals, the last 8 averaged\n"
              "\n"
              "threshold               fraction           %          dB\n"
              "  mean                      0.07           7      -23.19   biased: 33.3 % cut\n"
              "  standard error            0.01           1        1.25   biased: 33.3 % cut\n"
              "  SD                    0.014142      1.4142        1.77   biased: 33.3 % cut\n"
              "  2.5 % quantile          0.0605        6.05      -24.37   biased: 33.3 % cut\n"
              "  5 % quantile             0.061         6.1      -24.31   biased: 33.3 % cut\n"
              "  25 % quantile            0.065         6.5      -23.81   biased: 33.3 % cut\n"
              "  50 % quantile             0.07           7      -23.19   biased: 33.3 % cut\n"
              "  75 % quantile            0.075         7.5      -22.56   biased: 33.3 % cut\n"
              "  95 % quantile            0.079         7.9      -22.06   biased: 33.3 % cut\n"
              "  97.5 % quantile         0.0795        7.95      -22.00   biased: 33.3 % cut\n"
              "bias (dB)                   0.00   biased: 33.3 % cut\n"
              "\n"
              "a run                     trials     minutes\n"
              "  mean                     50.00        6.25   biased: 33.3 % cut\n"
              "  SD                       14.14        1.77   biased: 33.3 % cut\n"
              "  shortest                 40.00        5.00   biased: 33.3 % cut\n"
              "  95 % quantile            59.00        7.38   biased: 33.3 % cut\n"
              "  longest                  60.00        7.50   biased: 33.3 % cut\n"
              "correct (%)                75.00   biased: 33.3 % cut\n"
              "cut runs                       1\n";
        QCOMPARE(text, expected);
    }

    void table_hasALinePerSimulation()
    {
        Simulation simulation = simulationOf(gaussianListener(0.07, 1), carrierFrequencyParameter);
        simulation.standardCarrier = 2000;
        const SweptSimulation swept {{"14", "0.2"}, simulation};
        const QString text = written([&](QTextStream& stream) {
            writeSweepHeader(stream, {{"reversals", "start"}, {swept}});
            writeSweepRow(stream, swept, runStatistics({{0.06, 40, 30, 14}, {0.08, 60, 30, 14}}));
            writeSweepRow(stream, swept, runStatistics({{notANumber, 10, 10, 0}}));
        });
        const QString expected
            = "\nthresholds in Hz; the settings above are those of the first row\n"
              "   reversals       start    averaged        mean          SD     SD (dB)   bias (dB)"
              "      trials     minutes    cut runs\n"
              "          14         0.2           8         140      28.284        1.77        0.00"
              "       50.00        6.25           0\n"
              "          14         0.2           8           -           -           -           -"
              "           -           -           1   biased: 100 % cut\n";
        QCOMPARE(text, expected);
    }

    void runs_areRowsOfATable()
    {
        Simulation simulation = simulationOf(logisticListener(0.07, 2.5));
        QCOMPARE(runHeadings(simulation),
            QString("run,threshold,threshold_percent,threshold_db,trials,correct,reversals,minutes,"
                    "cut"));
        int nDone = 0;
        const auto count = [&nDone](int nRuns) { nDone = nRuns; };
        QCOMPARE(runRows(simulation, {{0.1, 40, 30, 14}, {notANumber, 100, 90, 3}}, count),
            QByteArray("1,0.1,10,-20,40,30,14,5,0\n2,,,,100,90,3,12.5,1\n"));
        QCOMPARE(nDone, 2);
        simulation = simulationOf(logisticListener(0.002, 2.5), carrierFrequencyParameter);
        QVERIFY(runHeadings(simulation).contains(",threshold_hz,"));
        QCOMPARE(runRows(simulation, {{0.002, 40, 30, 14}}, count).split(',')[2], QByteArray("2"));
    }

    void figures_areRowsOfATable()
    {
        QCOMPARE(summaryHeadings({{"reaction-sd", "last"}, {}}),
            "reaction_sd,last," + summaryHeadings(Sweep()));
        const Simulation simulation = simulationOf(logisticListener(0.1, 2.5));
        const RunStatistics statistics
            = runStatistics({{0.1, 40, 30, 14}, {0.1, 60, 30, 14}, {notANumber, 100, 40, 2}});
        QCOMPARE(summaryRow({"4"}, simulation, statistics),
            QString("4,3,0.1,0,0.1,-20,0,0,50,14.14213562,6.25,0.5,0.3333333333\n"));
    }

    void studies_areTold()
    {
        const Simulation simulation = simulationOf(logisticListener(0.05, 2.5));
        const Detection found {{5, 0.812}, {{1, {20, 0.8}, {0, 0.3}}}, 40.0, 0.0};
        const QString text = written([&](QTextStream& stream) {
            writeDetection(stream, simulation, {2.0, 3.0}, found);
        });
        const QString expected
            = "rule                14 reversals, the last 8 averaged\n"
              "\nthresholds of 0.05 and 0.1 (+6.02 dB) in two conditions; Student's t tests of "
              "dB,\n"
              "two-sided at 5 %, power 80 %; a run takes 40.0 trials, 5.0 minutes\n"
              "\n"
              "one listener: runs in each condition, power (%), minutes in all\n"
              "           5        81.2        50.0\n"
              "\n"
              "listeners whose thresholds have an SD of 3 dB: a group for each condition, or one "
              "for "
              "both\n"
              "   runs each  a group of   power (%)     minutes       hours   one group   power (%)"
              "     minutes       hours\n"
              "           1          20        80.0         5.0         3.3      > 1000        30.0"
              "        10.0           -\n";
        QCOMPARE(text, expected);
    }

    void studies_haveAWarningBesideTheirFigures_whenRunsWereCut()
    {
        const Simulation simulation = simulationOf(logisticListener(0.05, 2.5));
        const Detection found {{0, notANumber}, {{1, {20, 0.8}, {20, 0.8}}}, 40.0, 0.015};
        const QString text = written([&](QTextStream& stream) {
            writeDetection(stream, simulation, {2.0, 3.0}, found);
        });
        const QString warning = "   biased: 1.5 % cut\n";
        QVERIFY(text.contains("a run takes 40.0 trials, 5.0 minutes" + warning));
        QVERIFY(text.contains("           -           -           -" + warning));
        QCOMPARE(text.count(warning), 3);
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

QUORIN_GUILESS_TEST(TestSimulationFigures);
#include "tst_simulation_figures.moc"
