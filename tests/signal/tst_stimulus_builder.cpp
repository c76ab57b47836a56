// SPDX-License-Identifier: GPL-3.0-or-later
// When the window makes its two sounds, and which random numbers they take.
#include "signal/StatedSound.h"
#include "support/Draws.h"
#include "support/ExactVectors.h"
#include "support/WindowTest.h"

using namespace quorin;

namespace {

constexpr int drawsOfTwoSounds = 48000;

// Every answer but the last of a run makes a new deviant and starts the next trial.
void answerOneTrial(MainWindow& window)
{
    window.updateMainwindow(2);
}

void startRun(MainWindow& window)
{
    window.updateMainwindow(0);
}

} // namespace

class TestStimulusBuilder : public WindowTest {
    Q_OBJECT

private slots:
    void sounds_areDrawnStandardFirst_whenTheWindowIsBuilt()
    {
        const QVector<int> draws = drawsAfter(1, drawsOfTwoSounds + 1);
        MainWindow window;
        QCOMPARE(drawsMade(draws), drawsOfTwoSounds);
        verifySounds(window, draws, 0);
    }

    void sounds_areDrawnAnew_atView()
    {
        const QVector<int> draws = drawsAfter(1, 2 * drawsOfTwoSounds + 1);
        MainWindow window;
        const QVector<double> before = Probe::stimuli(window)[standard].samples;
        window.on_pushButtonView_clicked();
        QCOMPARE(drawsMade(draws), 2 * drawsOfTwoSounds);
        verifySounds(window, draws, drawsOfTwoSounds);
        QVERIFY(firstDifference(Probe::stimuli(window)[standard].samples, before) == 0);
    }

    void sounds_useNoDraw_atViewOfASinusoid()
    {
        MainWindow window;
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(sinusoidCarrier);
        const QVector<int> draws = drawsAfter(1, 1);
        window.on_pushButtonView_clicked();
        QCOMPARE(drawsMade(draws), 0);
        verifySounds(window, draws, 0);
    }

    void draws_areOneDeviantAndOnePosition_atEachNoiseTrial()
    {
        MainWindow window;
        window.on_pushButtonView_clicked();
        const QVector<int> draws = drawsAfter(1, 48004);
        startRun(window); // the position alone: the first trial plays what View made
        answerOneTrial(window);
        QCOMPARE(firstDifference(Probe::stimuli(window)[deviant].samples,
                     statedSound(Probe::data(window), deviant, draws, 1)),
            -1);
        QCOMPARE(Probe::data(window).deviantPosition, 2 + draws[24001] % 2);
        answerOneTrial(window);
        QCOMPARE(drawsMade(draws), 1 + 2 * 24001);
    }

    void draws_areThePositionAlone_atEachSinusoidTrial()
    {
        MainWindow window;
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(sinusoidCarrier);
        window.on_pushButtonView_clicked();
        const QVector<int> draws = drawsAfter(1, 4);
        startRun(window);
        answerOneTrial(window);
        answerOneTrial(window);
        QCOMPARE(drawsMade(draws), 3);
        QCOMPARE(Probe::data(window).deviantPosition, 2 + draws[2] % 2);
    }

    void startingARun_leavesTheSoundsOfView()
    {
        MainWindow window;
        const QVector<double> first = Probe::stimuli(window)[standard].samples;
        const QVector<double> second = Probe::stimuli(window)[deviant].samples;
        startRun(window);
        QCOMPARE(Probe::stimuli(window)[standard].samples, first);
        QCOMPARE(Probe::stimuli(window)[deviant].samples, second);
    }

    void standard_isOnlyScaled_atTrial3()
    {
        MainWindow window;
        Data& data = Probe::data(window);
        const QVector<double> before = Probe::stimuli(window)[standard].samples;
        data.nTrials = 3;
        data.md = {0.9, 0.2};
        data.nSamples = {100, 500};
        const QVector<int> draws = drawsAfter(1, 501);
        window.genWav();
        QCOMPARE(drawsMade(draws), 500);
        const QVector<double> newDeviant = statedSound(data, deviant, draws);
        QCOMPARE(firstDifference(Probe::stimuli(window)[deviant].samples, newDeviant), -1);
        QCOMPARE(firstDifference(
                     Probe::stimuli(window)[standard].samples, statedEqualised(before, newDeviant)),
            -1);
    }

    // Scaling once from a kept original would differ in the last bits.
    void standard_isScaledOnTopOfEarlierScaling_trialAfterTrial()
    {
        MainWindow window;
        QVector<double> expected = Probe::stimuli(window)[standard].samples;
        startRun(window);
        for (int trial = 0; trial < 5; ++trial) {
            answerOneTrial(window);
            expected = statedEqualised(expected, Probe::stimuli(window)[deviant].samples);
            QCOMPARE(firstDifference(Probe::stimuli(window)[standard].samples, expected), -1);
            QCOMPARE(statedRms(Probe::stimuli(window)[standard].samples),
                statedRms(Probe::stimuli(window)[deviant].samples));
        }
    }

    void standard_keepsItsLevel_whenEqualisingIsOff()
    {
        MainWindow window;
        Probe::data(window).equalizeRms = false;
        const QVector<int> draws = drawsAfter(1, drawsOfTwoSounds);
        window.genWav();
        const QVector<double> own = statedSound(Probe::data(window), standard, draws);
        QCOMPARE(firstDifference(Probe::stimuli(window)[standard].samples, own), -1);
        Probe::data(window).nTrials = 1;
        window.genWav();
        QCOMPARE(firstDifference(Probe::stimuli(window)[standard].samples, own), -1);
    }

    void timeAxis_coversTheLongerPlot_data()
    {
        addColumns<QVector<int>, int>("nPointsToPlot", "length");
        QTest::newRow("longer deviant") << QVector<int>({200, 300}) << 300;
        QTest::newRow("longer standard") << QVector<int>({300, 200}) << 300;
        QTest::newRow("equal") << QVector<int>({250, 250}) << 250;
        QTest::newRow("none") << QVector<int>({0, 0}) << 0;
        QTest::newRow("negative") << QVector<int>({-300, -200}) << 0;
    }

    void timeAxis_coversTheLongerPlot()
    {
        QFETCH(QVector<int>, nPointsToPlot);
        QFETCH(int, length);
        MainWindow window;
        Probe::data(window).nPointsToPlot = nPointsToPlot;
        window.genWav();
        QCOMPARE(firstDifference(Probe::timeAxis(window), statedTimes(length, 40000.0)), -1);
    }

    void timeAxis_isKept_duringARun()
    {
        MainWindow window;
        Data& data = Probe::data(window);
        data.nTrials = 1;
        data.fs = 8000.0;
        data.nPointsToPlot = {200, 300};
        window.genWav();
        QCOMPARE(firstDifference(Probe::timeAxis(window), statedTimes(2000, 40000.0)), -1);
    }

    void standard_isUndefinedAndTheDeviantSilent_whenTheSoundTypeIsNeither()
    {
        MainWindow window;
        Probe::data(window).soundType = 2;
        const QVector<int> draws = drawsAfter(1, 1);
        window.genWav();
        QCOMPARE(drawsMade(draws), 0);
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].samples));
        QCOMPARE(Probe::stimuli(window)[standard].samples.size(), 24000);
        QCOMPARE(Probe::stimuli(window)[deviant].samples, QVector<double>(24000, 0.0));
    }

    void standard_isEmpty_whenItHasNoSamples_data()
    {
        QTest::addColumn<int>("nSamples");
        QTest::newRow("none") << 0;
        QTest::newRow("negative") << -24000;
    }

    void standard_isEmpty_whenItHasNoSamples()
    {
        QFETCH(int, nSamples);
        MainWindow window;
        Probe::data(window).nSamples[standard] = nSamples;
        const QVector<int> draws = drawsAfter(1, 24001);
        window.genWav();
        QVERIFY(Probe::stimuli(window)[standard].samples.isEmpty());
        QCOMPARE(firstDifference(Probe::stimuli(window)[deviant].samples,
                     statedSound(Probe::data(window), deviant, draws)),
            -1);
    }

    void standard_isUndefinedUntilTheNextView_whenADeviantWasEmpty()
    {
        tolerateUndefinedChartValues();
        MainWindow window;
        type(window, "lineEditDevDuration", "0.00");
        window.on_pushButtonView_clicked();
        QVERIFY(Probe::stimuli(window)[deviant].samples.isEmpty());
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].samples));

        Probe::data(window).nSamples[deviant] = 24000;
        startRun(window);
        answerOneTrial(window);
        QCOMPARE(Probe::stimuli(window)[deviant].samples.size(), 24000);
        QVERIFY(areAllNaN(Probe::stimuli(window)[standard].samples));

        type(window, "lineEditDevDuration", "600.00");
        window.on_pushButtonView_clicked();
        QCOMPARE(statedRms(Probe::stimuli(window)[standard].samples),
            statedRms(Probe::stimuli(window)[deviant].samples));
    }

private:
    static void verifySounds(MainWindow& window, const QVector<int>& draws, int firstDraw)
    {
        const Data& data = Probe::data(window);
        const QVector<double> second = statedSound(data, deviant, draws, firstDraw + 24000);
        const QVector<double> first
            = statedEqualised(statedSound(data, standard, draws, firstDraw), second);
        QCOMPARE(firstDifference(Probe::stimuli(window)[standard].samples, first), -1);
        QCOMPARE(firstDifference(Probe::stimuli(window)[deviant].samples, second), -1);
    }
};

QUORIN_TEST(TestStimulusBuilder);
#include "tst_stimulus_builder.moc"
