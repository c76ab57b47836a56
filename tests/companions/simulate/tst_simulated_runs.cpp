// SPDX-License-Identifier: GPL-3.0-or-later
// Simulated runs against the known figures of the staircase.
#include "companions/psychometrics/Fits.h"
#include "companions/simulate/Simulations.h"
#include "procedure/SilentRun.h"
#include "simulate/RunStatistics.h"
#include "support/WindowTest.h"

#include <cmath>

using namespace quorin;

namespace {

// Figures of the staircase, each with 4.5 standard errors of a mean over 2000 runs.
struct Expected {
    double threshold;
    double thresholdError;
    double trials;
    double trialsError;
};

bool areEqual(const std::vector<RunOutcome>& a, const std::vector<RunOutcome>& b)
{
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(), [](const RunOutcome& one, const RunOutcome& other) {
            return one.threshold == other.threshold && one.nTrials == other.nTrials
                && one.nCorrect == other.nCorrect;
        });
}

} // namespace

Q_DECLARE_METATYPE(Expected)

class TestSimulatedRuns : public WindowTest {
    Q_OBJECT

private slots:
    void means_areThoseOfTheStaircase_data()
    {
        addColumns<Simulation, Expected>("simulation", "expected");
        QTest::newRow("logistic, depth") << simulationOf(logisticListener(depthThreshold, 2.5))
                                         << Expected {0.05956, 0.00150, 40.11, 0.53};
        QTest::newRow("Gaussian, frequency") << simulationOf(gaussianListener(0.002, 1),
            carrierFrequencyParameter) << Expected {0.002599, 0.000099, 44.96, 0.58};
        QTest::newRow("chance, depth")
            << simulationOf(constantListener(0.5)) << Expected {0.8113, 0.0147, 29.00, 0.53};
    }

    void means_areThoseOfTheStaircase()
    {
        QFETCH(Simulation, simulation);
        QFETCH(Expected, expected);
        const RunStatistics statistics = runStatistics(outcomesOf(simulation));
        const double threshold = statistics.thresholds.mean();
        const double trials = statistics.trials.mean();
        qInfo("threshold %.6f, trials %.3f", threshold, trials);
        QCOMPARE(statistics.nCut, 0);
        QVERIFY(std::abs(threshold - expected.threshold) < expected.thresholdError);
        QVERIFY(std::abs(trials - expected.trials) < expected.trialsError);
    }

    void trials_takeTheirClosedForm_forAConstantListener_data()
    {
        addColumns<double, int>("p", "nReversals");
        QTest::newRow("0.5") << 0.5 << 14;
        QTest::newRow("2/3") << 2.0 / 3.0 << 14;
        QTest::newRow("0.9") << 0.9 << 14;
        QTest::newRow("0.1") << 0.1 << 14;
        QTest::newRow("many reversals") << 0.75 << 40;
    }

    // A streak of right answers lasts 1 / (1 - p) trials and one of wrong answers 1 / p, with
    // variances p / (1 - p)^2 and (1 - p) / p^2; the run ends one trial into the last streak.
    void trials_takeTheirClosedForm_forAConstantListener()
    {
        QFETCH(double, p);
        QFETCH(int, nReversals);
        Simulation simulation = simulationOf(constantListener(p));
        simulation.nReversals = nReversals;
        const RunStatistics statistics = runStatistics(outcomesOf(simulation));
        const double half = nReversals / 2.0;
        const double mean = 1 + half / p + half / (1 - p);
        const double variance = half * (1 - p) / (p * p) + half * p / ((1 - p) * (1 - p));
        const double tolerance = 4.5 * std::sqrt(variance / simulation.nRuns);
        QVERIFY(std::abs(statistics.trials.mean() - mean) < tolerance);
    }

    void twoOfThreeAnswersAreRight_inTheLongRun_data()
    {
        QTest::addColumn<PsychometricFunction>("listener");
        QTest::newRow("logistic") << logisticListener(depthThreshold, 2.5);
        QTest::newRow("Weibull") << weibullListener(depthThreshold, 1.5);
        QTest::newRow("Gaussian") << gaussianListener(depthThreshold, 1);
        QTest::newRow("lapses") << logisticListener(depthThreshold, 2.5, 0.05);
    }

    // Of n trials with net steps of d dB in all, n / 3 - d / 3 are wrong: the value stays within
    // some 40 dB of where it began, of 40000 trials that is a share of 0.0004.
    void twoOfThreeAnswersAreRight_inTheLongRun()
    {
        QFETCH(PsychometricFunction, listener);
        Simulation simulation = simulationOf(listener);
        simulation.nReversals = 1000000;
        simulation.mostTrials = 40000;
        Data data = preparedRun(simulation);
        const RunOutcome outcome = simulateRun(data, simulation, 0);
        QCOMPARE(outcome.nTrials, 40000);
        QVERIFY(std::abs(outcome.nCorrect / 40000.0 - 2.0 / 3.0) < 0.0004);
    }

    void deviants_areInEitherPosition_andWrongAnswersNameTheOther()
    {
        Simulation simulation = simulationOf(constantListener(0.75));
        simulation.nReversals = 1000000;
        simulation.mostTrials = 40000;
        Data data = preparedRun(simulation);
        simulateRun(data, simulation, 0);
        int nSecond = 0;
        int nSecondRight = 0;
        for (const Record& record : qAsConst(data.records)) {
            QVERIFY(record.stimulusPosition == 2 || record.stimulusPosition == 3);
            const int other = 5 - record.stimulusPosition;
            QCOMPARE(record.responsePosition, record.correctness ? record.stimulusPosition : other);
            QCOMPARE(record.reactionTime, 500.0);
            nSecond += record.stimulusPosition == 2 ? 1 : 0;
            nSecondRight += record.stimulusPosition == 2 && record.correctness ? 1 : 0;
        }
        // 4.5 standard errors of a share of 1/2 and of one of 3/4.
        QVERIFY(std::abs(nSecond - 20000) < 450);
        QVERIFY(std::abs(nSecondRight - 0.75 * nSecond) < 275);
    }

    void run_startsFromTheValueAsked()
    {
        Simulation simulation = simulationOf(constantListener(0.5), carrierFrequencyParameter);
        simulation.startValue = 0.2;
        simulation.standardCarrier = 500;
        simulation.mostTrials = 1;
        Data data = preparedRun(simulation);
        simulateRun(data, simulation, 0);
        QCOMPARE(data.records[0].value, 0.2);
        simulation.mainParameter = modulationDepthParameter;
        data = preparedRun(simulation);
        simulateRun(data, simulation, 0);
        QCOMPARE(data.records[0].value, 0.2);
    }

    void outcomes_areTheSame_forAnyNumberOfThreads()
    {
        const Simulation simulation = simulationOf(weibullListener(depthThreshold, 1.5, 0.02));
        const std::vector<RunOutcome> alone = outcomesOf(simulation, 1);
        QCOMPARE(int(alone.size()), 2000);
        QVERIFY(areEqual(outcomesOf(simulation, 2), alone));
        QVERIFY(areEqual(outcomesOf(simulation, 7), alone));
        Data data = preparedRun(simulation);
        for (const int i : {0, 63, 64, 1999}) {
            const RunOutcome outcome = simulateRun(data, simulation, i);
            QVERIFY(areEqual({alone[static_cast<size_t>(i)]}, {outcome}));
        }
    }

    void outcomes_differ_betweenSeedsAndBetweenRuns()
    {
        Simulation simulation = simulationOf(constantListener(0.75));
        simulation.nRuns = 2;
        const std::vector<RunOutcome> first = outcomesOf(simulation);
        QVERIFY(first[0].threshold != first[1].threshold);
        simulation.seed = 2;
        QVERIFY(outcomesOf(simulation)[0].threshold != first[0].threshold);
        // Seeds that are as far apart as the runs' own do not share runs.
        simulation.seed = 0;
        const double second = outcomesOf(simulation)[1].threshold;
        simulation.seed = 0x9e3779b97f4a7c15U;
        QVERIFY(outcomesOf(simulation)[0].threshold != second);
    }

    void run_isTheSame_whateverWasSimulatedBefore()
    {
        const Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        Data fresh = preparedRun(simulation);
        const double threshold = simulateRun(fresh, simulation, 5).threshold;
        Data used = preparedRun(simulation);
        simulateRun(used, simulation, 4);
        QCOMPARE(simulateRun(used, simulation, 5).threshold, threshold);
        QCOMPARE(used.threshold, threshold);
    }

    void run_isCut_whenItDoesNotEnd_data()
    {
        QTest::addColumn<double>("p");
        QTest::newRow("always right") << 1.0;
        QTest::newRow("always wrong") << 0.0;
    }

    void run_isCut_whenItDoesNotEnd()
    {
        QFETCH(double, p);
        Simulation simulation = simulationOf(constantListener(p));
        simulation.nRuns = 3;
        const std::vector<RunOutcome> outcomes = outcomesOf(simulation);
        QCOMPARE(outcomes[2].nTrials, 10000);
        QVERIFY(std::isnan(outcomes[2].threshold));
        const RunStatistics statistics = runStatistics(outcomes);
        QCOMPARE(statistics.nCut, 3);
        QCOMPARE(statistics.shareCorrect, p);
        QVERIFY(std::isnan(statistics.trials.mean()));
    }

    void defaults_areThoseOfTheApplication()
    {
        const Simulation depth = defaultSimulation(modulationDepthParameter);
        QCOMPARE(depth.startValue, 0.5);
        QCOMPARE(depth.soundType, noiseCarrier);
        QCOMPARE(depth.nReversals, 14);
        QCOMPARE(depth.nReversalsToCalculate, 8);
        QCOMPARE(depth.standardCarrier, 1000.0);
        QCOMPARE(depth.soundMs, 600.0);
        QCOMPARE(depth.silenceMs, 1000.0);
        const Simulation frequency = defaultSimulation(carrierFrequencyParameter);
        QCOMPARE(frequency.startValue, 0.05);
        QCOMPARE(frequency.soundType, sinusoidCarrier);
    }

    void subjects_haveOtherRuns_withOneSeed()
    {
        Simulation simulation = simulationOf(constantListener(0.75));
        simulation.nRuns = 1;
        const double usual = outcomesOf(simulation)[0].threshold;
        simulation.subCode = "A";
        const double ofA = outcomesOf(simulation)[0].threshold;
        simulation.subCode = "B";
        const double ofB = outcomesOf(simulation)[0].threshold;
        QVERIFY(ofA != ofB && ofA != usual && ofB != usual);
    }

    void outcome_countsItsReversals()
    {
        Simulation simulation = simulationOf(constantListener(0.75));
        simulation.nRuns = 1;
        QCOMPARE(outcomesOf(simulation)[0].nReversals, 14);
        simulation.listener = constantListener(1.0);
        QCOMPARE(outcomesOf(simulation)[0].nReversals, 0);
    }

    // 4.5 standard errors: of the mean, and of the SD, whose relative error is sqrt((k - 1) / 4 n)
    // with the kurtosis k of the log-normal distribution, here 4.4.
    void reactionTimes_haveTheirMeanAndDeviation_inWholeMilliseconds()
    {
        Simulation simulation = simulationOf(constantListener(0.75));
        simulation.reactionMs = 700;
        simulation.reactionSdMs = 200;
        simulation.nReversals = 1000000;
        Data data = preparedRun(simulation);
        simulateRun(data, simulation, 0);
        std::vector<double> times;
        for (const Record& record : qAsConst(data.records)) {
            QCOMPARE(record.reactionTime, std::round(record.reactionTime));
            times.push_back(record.reactionTime);
        }
        QCOMPARE(int(times.size()), 10000);
        const Distribution distribution(times);
        QVERIFY(std::abs(distribution.mean() - 700) < 4.5 * 200 / 100.0);
        QVERIFY(std::abs(distribution.standardDeviation() / 200 - 1) < 4.5 * 0.0092);
    }

    void answers_areTheSame_whateverTheReactionTimes()
    {
        Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        Data alike = preparedRun(simulation);
        simulateRun(alike, simulation, 0);
        simulation.reactionSdMs = 100;
        Data spread = preparedRun(simulation);
        simulateRun(spread, simulation, 0);
        QCOMPARE(spread.reversals, alike.reversals);
        QVERIFY(spread.records[0].reactionTime != spread.records[1].reactionTime);
        QCOMPARE(alike.records[1].reactionTime, 500.0);
    }

    void progress_endsWithAllRuns()
    {
        Simulation simulation = simulationOf(constantListener(0.5));
        simulation.nRuns = 100;
        int last = 0;
        simulatedRuns(simulation, 3, [&last](int nRuns) {
            QVERIFY(nRuns >= last);
            last = nRuns;
        });
        QCOMPARE(last, 100);
    }

    void trial_lastsItsSoundsSilencesAndTheAnswer()
    {
        const Simulation simulation = simulationOf(constantListener(0.5));
        QCOMPARE(secondsPerTrial(simulation), 4 * 1.6 + 0.6 + 0.5);
    }

    void windows_giveTheSameRun_whenAnsweredAlike_data()
    {
        QTest::addColumn<Simulation>("simulation");
        QTest::newRow("depth") << simulationOf(logisticListener(depthThreshold, 2.5));
        QTest::newRow("frequency")
            << simulationOf(gaussianListener(0.002, 1), carrierFrequencyParameter);
    }

    void windows_giveTheSameRun_whenAnsweredAlike()
    {
        QFETCH(Simulation, simulation);
        Data data = preparedRun(simulation);
        const RunOutcome outcome = simulateRun(data, simulation, 0);
        QString answers;
        for (const Record& record : qAsConst(data.records)) {
            answers.append(record.correctness ? 'c' : 'w');
        }
        SilentRun run(simulation.mainParameter);
        run.play(answers);
        QCOMPARE(run.data.records.size(), outcome.nTrials);
        for (int i = 0; i < outcome.nTrials; ++i) {
            QVERIFY(run.data.records[i].value == data.records[i].value);
        }
        QVERIFY(run.data.threshold == outcome.threshold);
        QCOMPARE(run.data.reversals, data.reversals);
    }
};

QUORIN_TEST(TestSimulatedRuns);
#include "tst_simulated_runs.moc"
