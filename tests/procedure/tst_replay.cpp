// SPDX-License-Identifier: GPL-3.0-or-later
// Runs by the rule, whole and altered, taken through it again.
#include "procedure/Records.h"
#include "procedure/Replay.h"
#include "procedure/ResultsFormat.h"
#include "procedure/StaircaseRule.h"
#include "session/AdaptedParameter.h"
#include "support/ExactVectors.h"
#include "support/QuietTest.h"

#include <limits>
#include <random>

using namespace quorin;

namespace {

constexpr double carrier = 1234.5;
constexpr double infinity = std::numeric_limits<double>::infinity();

using Values = QVector<double>;

/// A run of nTrials whose listener is right in so many of 100 trials.
Data runOf(int mainParameter, double start, int percentRight, unsigned seed, int nTrials = 60)
{
    std::mt19937 random(seed);
    Data data;
    data.mainParameter = mainParameter;
    data.nReversals = std::numeric_limits<int>::max();
    data.cf[standard] = carrier;
    data.md[deviant] = data.fd[deviant] = start;
    for (int i = 0; i < nTrials; ++i) {
        const bool isRight = static_cast<int>(random() % 100) < percentRight;
        data.records.append(answered(isRight, adaptedValue(data)));
        judgeTrial(data, i);
        stepDeviant(data);
    }
    return data;
}

/// The run with its values as the results file has them.
Data asInTheFile(const Data& run)
{
    Data data = run;
    const AdaptedParameter* const adapted = adaptedParameter(data.mainParameter);
    for (Record& record : data.records) {
        record.value = resultsNumber(adapted->shown(record.value, data.cf[standard])).toDouble();
    }
    return data;
}

Replay replayOfFile(const Data& data)
{
    return replay(data, resultsFileValues(data.mainParameter));
}

/// A depth run of a file: the answers as 'c' and 'w', with these values.
Data fileRun(const QString& answers, const Values& values, int mainParameter)
{
    Data data;
    data.mainParameter = mainParameter;
    for (int i = 0; i < answers.size(); ++i) {
        addAnswer(data, isCorrect(answers[i]), values[i]);
    }
    return data;
}

const Values goodValues = {50.0, 39.716412, 31.547867, 50.0, 44.562547};
const QString goodAnswers = "ccwcc";

} // namespace

Q_DECLARE_METATYPE(Departure)

class TestReplay : public QuietTest {
    Q_OBJECT

private slots:
    void exactRun_isFoundAgainToTheLastBit_data()
    {
        addColumns<int, double, int>("mainParameter", "start", "percentRight");
        QTest::newRow("depth") << modulationDepthParameter << 0.5 << 75;
        QTest::newRow("difference") << carrierFrequencyParameter << 0.05 << 75;
        QTest::newRow("depth at its ceiling") << modulationDepthParameter << 0.9 << 40;
        QTest::newRow("difference at its ceiling") << carrierFrequencyParameter << 0.9 << 40;
        QTest::newRow("from above the ceiling") << modulationDepthParameter << 3.0 << 75;
        QTest::newRow("from 0") << modulationDepthParameter << 0.0 << 75;
        QTest::newRow("from below 0") << modulationDepthParameter << -0.3 << 75;
        QTest::newRow("from infinity") << modulationDepthParameter << infinity << 75;
    }

    void exactRun_isFoundAgainToTheLastBit()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, start);
        QFETCH(int, percentRight);
        const Data run = runOf(mainParameter, start, percentRight, 1);
        const Replay again = replay(run, exactFractions(mainParameter));
        QCOMPARE(again.firstDeparture(), -1);
        QCOMPARE(again.trials.size(), run.records.size());
        for (int i = 0; i < run.records.size(); ++i) {
            QUORIN_COMPARE_EXACT(again.trials[i].expected, run.records[i].value);
        }
        QCOMPARE(again.reversals, run.reversals.mid(0, run.reversalCount));
        QCOMPARE(again.trials.constLast().reversalCount, run.reversalCount);
    }

    void file_follows_whateverItStartsFrom_data()
    {
        exactRun_isFoundAgainToTheLastBit_data();
        QTest::newRow("from digits that the file leaves out")
            << modulationDepthParameter << 0.123456789012 << 75;
        QTest::newRow("from a millionth") << modulationDepthParameter << 1e-8 << 50;
        QTest::newRow("difference from above the carrier")
            << carrierFrequencyParameter << 7.0 << 75;
    }

    void file_follows_whateverItStartsFrom()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, start);
        QFETCH(int, percentRight);
        for (unsigned seed = 1; seed <= 200; ++seed) {
            const Data run = asInTheFile(runOf(mainParameter, start, percentRight, seed));
            QCOMPARE(replayOfFile(run).firstDeparture(), -1);
        }
    }

    void longFile_follows_whenItsValuesHaveMoreDigitsThanADouble()
    {
        Data run = runOf(carrierFrequencyParameter, 0.5, 66, 1, 5000);
        run.cf[standard] = 1e14;
        QCOMPARE(replayOfFile(asInTheFile(run)).firstDeparture(), -1);
    }

    void trials_haveTheirReversals()
    {
        const Data run = fileRun("ccwcc", goodValues, modulationDepthParameter);
        const Replay again = replayOfFile(run);
        QVector<bool> reversals;
        QVector<int> counts;
        for (const ReplayedTrial& trial : again.trials) {
            reversals.append(trial.isReversal);
            counts.append(trial.reversalCount);
        }
        QCOMPARE(reversals, QVector<bool>({false, false, true, true, false}));
        QCOMPARE(counts, QVector<int>({0, 0, 1, 2, 2}));
        QCOMPARE(again.reversals, Values({31.547867, 50.0}));
        QCOMPARE(again.firstDeparture(), -1);
    }

    void run_hasNothing_whenItHasNoTrials()
    {
        const Replay again = replay(Data(), resultsFileValues(modulationDepthParameter));
        QVERIFY(again.trials.isEmpty());
        QVERIFY(again.reversals.isEmpty());
        QCOMPARE(again.firstDeparture(), -1);
    }

    void value_departs_whenItsLastDecimalIsAnother()
    {
        for (const double error : {-2e-6, 2e-6}) {
            for (int i = 1; i < goodValues.size(); ++i) {
                Values values = goodValues;
                values[i] += error;
                const Replay again
                    = replayOfFile(fileRun(goodAnswers, values, modulationDepthParameter));
                QCOMPARE(again.firstDeparture(), i);
                QCOMPARE(again.trials[i].departure, Departure::value);
                QVERIFY(qAbs(again.trials[i].expected - goodValues[i]) < 1e-6);
            }
        }
    }

    // Half a unit of the sixth decimal, and as much of the value before by the step.
    void value_isOffByBothRoundings_atMost()
    {
        constexpr double expected = 50.0 * 0.79432823472428149;
        constexpr double most = 0.5e-6 + 0.5e-6 * 0.79432823472428149;
        for (const double off : {-most, most}) {
            const auto departure = [](double value) {
                return replayOfFile(fileRun("cc", {50.0, value}, modulationDepthParameter))
                    .firstDeparture();
            };
            QCOMPARE(departure(expected + 0.999 * off), -1);
            QCOMPARE(departure(expected + 1.001 * off), 1);
        }
    }

    void exactValue_departs_whenItIsOffInItsLastDigits()
    {
        for (const int parameter :
            {carrierFrequencyParameter, modulationDepthParameter, otherParameter}) {
            const auto departure = [parameter](double value) {
                return replay(fileRun("cc", {0.5, value}, parameter), exactFractions(parameter))
                    .firstDeparture();
            };
            QCOMPARE(departure(0.5 * 0.79432823472428149), -1);
            QCOMPARE(departure(0.5 * 0.79432823472428149 + 1e-12), 1);
        }
    }

    void start_departs_noLaterThanItsNextValue_whenItIsAnother()
    {
        Values values = goodValues;
        values[0] += 3e-6;
        const Replay again = replayOfFile(fileRun(goodAnswers, values, modulationDepthParameter));
        QCOMPARE(again.firstDeparture(), 1);
    }

    void values_depart_whenTheAnswerWasChanged()
    {
        const Replay again = replayOfFile(fileRun("cwwcc", goodValues, modulationDepthParameter));
        QCOMPARE(again.firstDeparture(), 2);
        QCOMPARE(again.trials[2].departure, Departure::value);
        QVERIFY(qAbs(again.trials[2].expected - 62.946272) < 1e-6);
    }

    void run_departs_whereTrialsAreMissingDoubledOrSwapped()
    {
        const Data run = asInTheFile(runOf(modulationDepthParameter, 0.5, 75, 1));
        for (int i = 1; i < run.records.size() - 1; ++i) {
            Data missing = run;
            missing.records.removeAt(i);
            QCOMPARE(replayOfFile(missing).firstDeparture(), i);
            Data doubled = run;
            doubled.records.insert(i, run.records[i]);
            QCOMPARE(replayOfFile(doubled).firstDeparture(), i + 1);
            Data swapped = run;
            std::swap(swapped.records[i], swapped.records[i + 1]);
            QCOMPARE(replayOfFile(swapped).firstDeparture(), i);
        }
    }

    void run_isJudgedOn_fromAValueThatDeparts()
    {
        Values values = goodValues;
        values[2] = 40.0;
        values[3] = 63.395728;
        values[4] = 56.501502;
        const Replay again = replayOfFile(fileRun(goodAnswers, values, modulationDepthParameter));
        QVector<Departure> departures;
        for (const ReplayedTrial& trial : again.trials) {
            departures.append(trial.departure);
        }
        QCOMPARE(departures,
            QVector<Departure>({Departure::none, Departure::none, Departure::value, Departure::none,
                Departure::none}));
    }

    void trial_departs_inPositionsAndCorrectness_data()
    {
        addColumns<int, int, bool, Departure>("stimulus", "response", "correctness", "departure");
        QTest::newRow("right in 2") << 2 << 2 << true << Departure::none;
        QTest::newRow("right in 3") << 3 << 3 << true << Departure::none;
        QTest::newRow("deviant first") << 1 << 3 << true << Departure::stimulusPosition;
        QTest::newRow("deviant last") << 4 << 4 << true << Departure::stimulusPosition;
        QTest::newRow("response first") << 2 << 1 << true << Departure::responsePosition;
        QTest::newRow("response last") << 2 << 4 << true << Departure::responsePosition;
        QTest::newRow("called right") << 2 << 3 << true << Departure::correctness;
    }

    void trial_departs_inPositionsAndCorrectness()
    {
        QFETCH(int, stimulus);
        QFETCH(int, response);
        QFETCH(bool, correctness);
        QFETCH(Departure, departure);
        Data run = fileRun(goodAnswers, goodValues, modulationDepthParameter);
        Record& trial = run.records[1];
        trial.stimulusPosition = stimulus;
        trial.responsePosition = response;
        trial.correctness = correctness;
        const Replay again = replayOfFile(run);
        QCOMPARE(again.trials[1].departure, departure);
        QCOMPARE(again.firstDeparture(), departure == Departure::none ? -1 : 1);
    }

    void trial_departs_afterTheEnd()
    {
        Data run = fileRun(goodAnswers, goodValues, modulationDepthParameter);
        run.nReversals = 2;
        Replay again = replayOfFile(run);
        QCOMPARE(again.firstDeparture(), 4);
        QCOMPARE(again.trials[4].departure, Departure::afterTheEnd);
        run.nReversals = 0;
        again = replayOfFile(run);
        QCOMPARE(again.firstDeparture(), 1);
    }

    void value_departs_aboveTheCeiling()
    {
        const Replay again = replayOfFile(fileRun("wc", {90.0, 142.640384}, 1));
        QCOMPARE(again.firstDeparture(), 1);
        QUORIN_COMPARE_EXACT(again.trials[1].expected, 100.0);
    }

    void unknownCeiling_holds_onceItShowed()
    {
        const auto departure = [](const Values& values) {
            return replayOfFile(fileRun("wwcw", values, carrierFrequencyParameter))
                .firstDeparture();
        };
        QCOMPARE(departure({900.0, 999.9, 999.9, 794.248802}), -1);
        QCOMPARE(departure({900.0, 999.9, 1200.0, 953.193882}), 2);
        QCOMPARE(departure({900.0, 999.9, 999.0, 793.533906}), 2);
        QCOMPARE(departure({100.0, 158.489319, 251.188643, 180.0}), 3);
    }

    void noNumber_departs()
    {
        const double nan = std::numeric_limits<double>::quiet_NaN();
        const auto departure = [](const Values& values) {
            return replayOfFile(fileRun("cc", values, modulationDepthParameter)).firstDeparture();
        };
        QCOMPARE(departure({nan, 39.716412}), 0);
        QCOMPARE(departure({50.0, nan}), 1);
        QCOMPARE(departure({50.0, infinity}), 1);
        QCOMPARE(departure({50.0, -39.716412}), 1);
    }
};

QUORIN_GUILESS_TEST(TestReplay);
#include "tst_replay.moc"
