// SPDX-License-Identifier: GPL-3.0-or-later
// What the user guide states of the program is what the program does: its levels, its formulas and
// its recipes.
#include "documents/Guide.h"
#include "procedure/SavedRun.h"
#include "session/Counts.h"
#include "session/PanelNumbers.h"
#include "signal/SignalToolkit.h"
#include "signal/Stimulus.h"
#include "simulate/RunStatistics.h"
#include "subject/ResultText.h"
#include "support/DrivenRun.h"
#include "support/WindowTest.h"

#include <cmath>

using namespace quorin;

namespace {

double decibels(double ratio)
{
    return 20.0 * std::log10(ratio);
}

/// Level of a tone of 600 ms re full scale, by its depth of modulation.
double toneLevel(double depth)
{
    Data data;
    data.md[deviant] = depth;
    QVector<double> sound;
    synthesise(sound, data, deviant);
    return decibels(rms(sound));
}

/// Level of the deviant's first samples re the standard's, by its depth of modulation.
double levelOfOnset(double depth)
{
    Data data;
    data.md[deviant] = depth;
    data.cfPhase[deviant] = M_PI_2; // the first sample is the carrier's maximum
    QVector<double> sound;
    synthesise(sound, data, deviant);
    const double standardAmplitude = M_SQRT2 * rms(sound);
    return decibels(sound.constFirst() / standardAmplitude);
}

/// Standard deviation of the factor that brings the standard noise to the deviant's level.
double spreadOfLevelFactor(double seconds)
{
    constexpr int nTrials = 400;
    Data data;
    data.soundType = noiseCarrier;
    data.md[deviant] = 0.0;
    data.nSamples.fill(static_cast<int>(data.fs * seconds));
    QVector<double> standardSound;
    QVector<double> deviantSound;
    std::vector<double> factors;
    qsrand(1);
    for (int i = 0; i < nTrials; ++i) {
        synthesise(standardSound, data, standard);
        synthesise(deviantSound, data, deviant);
        const double before = standardSound.constFirst();
        equaliseLevels(standardSound, deviantSound);
        factors.push_back(standardSound.constFirst() / before);
    }
    return Distribution(factors).standardDeviation();
}

} // namespace

class TestUserGuide : public WindowTest {
    Q_OBJECT

private slots:
    void levels_areThose_ofTheSounds()
    {
        const double bare = toneLevel(0.0);
        const double half = toneLevel(0.5);
        const double small = toneLevel(0.05);
        QCOMPARE(decimals(bare, 2), QString("-3.01"));
        GUIDE_SAYS("has an RMS of -3.01 dB relative to full scale, noise -4.77 dB");
        QCOMPARE(decimals(decibels(1 / std::sqrt(3.0)), 2), QString("-4.77"));
        GUIDE_SAYS(QString("%1 dB at 50 % and %2 dB at 5 %")
                       .arg(decimals(half - bare, 1), decimals(small - bare, 1)));
        GUIDE_SAYS(QString("become %1 dB louder").arg(decimals(small - half, 1)));
    }

    void deviants_beginSofter_thanTheStandards()
    {
        GUIDE_SAYS(QString("%1 dB at a depth of 50 % and %2 dB at 5 %")
                       .arg(decimals(levelOfOnset(0.5), 1), decimals(levelOfOnset(0.05), 1)));
    }

    void targets_areComparedThroughD()
    {
        const auto shareRight = [](double d) { return std::erfc(-d / 2) / 2; };
        GUIDE_SAYS("0.609 at 2/3, 0.771 at 70.7 %");
        QCOMPARE(decimals(shareRight(0.609), 3), QString("0.667"));
        QCOMPARE(decimals(shareRight(0.771), 3), QString("0.707"));
        const double ratio = 0.771 / 0.609;
        GUIDE_SAYS(QString("0.771 / 0.609 = %1 (%2 dB)")
                       .arg(decimals(ratio, 2), decimals(decibels(ratio), 1)));
        GUIDE_SAYS(QString("by \u221a1.27 = %1 (%2 dB)")
                       .arg(decimals(std::sqrt(1.27), 2), decimals(decibels(ratio) / 2, 1)));
    }

    void spectrumLevel_isThat_ofABandUpToHalfTheRate()
    {
        GUIDE_SAYS(
            QString("L - 10 log10(20000) = L - %1 dB").arg(10 * std::log10(20000.0), 0, 'f', 1));
        GUIDE_SAYS(QString("the spectrum level is then L - %1 dB")
                       .arg(10 * std::log10(24000.0), 0, 'f', 1));
    }

    void endsAreLost_byThatMuch_atPipeWiresOwnQuantum()
    {
        constexpr int quantum = 2048;
        constexpr double rate = 48000.0;
        const auto lost = [](double ms) { return soundLength(rate, ms / 1000.0) % quantum; };
        const auto inMs = [](int samples) { return decimals(1000.0 * samples / rate, 1); };
        GUIDE_SAYS(
            QString("of 600 ms at 48000 Hz the last %1 ms (%2 samples), of 60 ms the last %3 "
                    "ms (%4 samples)")
                .arg(inMs(lost(600)), QString::number(lost(600)), inMs(lost(60)),
                    QString::number(lost(60))));
        GUIDE_SAYS(QString("multiples of %1 ms at 48000 Hz").arg(128 * 3 / 48));
        GUIDE_SAYS("does not fill a quantum of " + inMs(quantum) + " ms");
    }

    void standard_exceedsFullScale_whenItIsModulatedMoreDeeply()
    {
        Data data;
        data.soundType = noiseCarrier;
        data.md = {1.0, 0.01};
        QVector<double> sounds[2];
        qsrand(1);
        for (const int i : {standard, deviant}) {
            synthesise(sounds[i], data, i);
        }
        equaliseLevels(sounds[standard], sounds[deviant]);
        const double peak = *std::max_element(sounds[standard].cbegin(), sounds[standard].cend());
        GUIDE_SAYS("at 100 and 1 % up to " + decimals(peak, 1));
    }

    void levelFactor_variesSo_fromTokenToToken()
    {
        GUIDE_SAYS(QString("a standard deviation of %1 % at 600 ms and of %2 % at 60 ms")
                       .arg(decimals(spreadOfLevelFactor(0.6) * percent, 1),
                           decimals(spreadOfLevelFactor(0.06) * percent, 1)));
    }

    void bothSounds_areHannShaped_whenTheRecipeIsFollowed()
    {
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        checkBoxOf(window, "checkBoxResetMdFd")->setChecked(false);
        for (const char* column : {"lineEditStd", "lineEditDev"}) {
            type(window, QString(column) + "ModFreq", "1.6667");
            type(window, QString(column) + "ModDepth", "100");
        }
        GUIDE_SAYS("a modulation frequency of 1.6667 Hz and a modulation depth of 100 %");
        type(window, "lineEditDevFreqDiff", "50");
        type(window, "lineEditDevCarrierFreq", "950");
        GUIDE_SAYS("a frequency difference of 50 and a deviant carrier of 950");
        buttonOf(window, "pushButtonView")->click();
        const Data& data = Probe::data(window);
        for (const int i : {standard, deviant}) {
            const QVector<double>& sound = Probe::stimuli(window)[i].samples;
            for (int k = 0; k < sound.size(); ++k) {
                const double hann = 0.5 - 0.5 * std::cos(2 * M_PI * k / sound.size());
                const double tone = std::sin(2 * M_PI * data.cf[i] * k / data.fs);
                QVERIFY(std::abs(sound[k] - hann * tone) < 1e-3); // 1.6667 is not 5 / 3
            }
        }
    }

    void firstTrial_playsTheCarrierField_whenOnlyTheDifferenceWasTyped()
    {
        GUIDE_SAYS(
            "With the carrier field left at 950 the first trial plays a difference of 50 Hz, "
            "while trend and file say 20.");
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        checkBoxOf(window, "checkBoxResetMdFd")->setChecked(false);
        type(window, "lineEditDevFreqDiff", "20");
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::data(window).cf[deviant], 950.0);
        QCOMPARE(Probe::data(window).fd[deviant] * Probe::data(window).cf[standard], 20.0);
    }

    void startingDifference_isOfTheCarrierReadLast_untilViewIsPressed()
    {
        GUIDE_SAYS("is 5 % of the carrier read last, not of the one just typed");
        MainWindow window;
        type(window, "lineEditStdCarrierFreq", "2000");
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("50.0000"));
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("100.0000"));
    }

    void words_areReadAsNumbers_whenTheyNameOnes()
    {
        GUIDE_SAYS(
            R"("1e3" is 1000; "nan" and "inf" are read as what they say, "1e400" as infinite)");
        QCOMPARE(readFrequency("1e3"), 1000.0);
        QVERIFY(std::isnan(readFrequency("nan")));
        QVERIFY(std::isinf(readFrequency("inf")));
        QVERIFY(std::isinf(readFrequency("1e400")));
        GUIDE_SAYS("cut at 8,388,608 samples, 209 s at 40000 Hz");
        QCOMPARE(soundLength(40000.0, 1000.0), 8388608);
    }

    void threshold_isNanOrZero_whenNoReversalCounts()
    {
        GUIDE_SAYS(R"(with 0 of them the threshold is "nan", with a negative number 0)");
        QCOMPARE(shownThreshold("0"), QString("nan %"));
        QCOMPARE(shownThreshold("8.0"), QString("nan %"));
        QCOMPARE(shownThreshold(""), QString("nan %"));
        QCOMPARE(shownThreshold("-3"), QString("0 %"));
    }

    void run_doesNotBegin_whenNoReversalIsAskedFor_data()
    {
        addColumns<QString, bool>("reversals", "begins");
        for (const char* const reversals : {"0", "-1", "14.0", ""})
            QTest::newRow(reversals) << QString(reversals) << false;
        QTest::newRow("1") << QString("1") << true;
    }

    void run_doesNotBegin_whenNoReversalIsAskedFor()
    {
        GUIDE_SAYS("The number of reversals is 0 or negative, or its field does not hold a whole");
        QFETCH(QString, reversals);
        DrivenRun run;
        type(run.window, "lineEditNReversals", reversals);
        run.driver.begin();
        QTEST(Probe::timerPlay(run.window)->isActive(), "begins");
    }

    void depth_staysZero_whenTheDeviantStartedThere()
    {
        GUIDE_SAYS(R"(The deviant started at 0 with "Reset md/fd" off: 0 stays 0)");
        DrivenRun run;
        checkBoxOf(run.window, "checkBoxResetMdFd")->setChecked(false);
        type(run.window, "lineEditDevModDepth", "0");
        run.driver.begin();
        for (const bool isRight : {true, false, false}) {
            QCOMPARE(run.data.md[deviant], 0.0);
            run.driver.answerUnheard(isRight);
        }
        QCOMPARE(run.data.md[deviant], 0.0);
    }

    void saveDialog_opensElsewhere_whenTheFolderIsMissing()
    {
        GUIDE_SAYS("in the folder that the last dialog was used in");
        SavedRun run;
        run.save(run.path("first.txt"));
        run.data.outputDir = run.path("missing");
        run.data.fileName = "run.txt";
        announceWarning(QString("QFSFileEngine::open: No file name specified"));
        run.save(QString());
        QCOMPARE(run.boxes.fileChoices().last().directory, run.folder.path());
        QCOMPARE(run.boxes.fileChoices().last().fileName, QString("run.txt"));
    }

    void saveDialog_proposesTheRest_whenTheCodeHasASlash()
    {
        GUIDE_SAYS(
            R"("A/B" makes the dialog look for a folder "A" and propose a name from "B" on)");
        SavedRun run;
        run.save(run.path("first.txt"));
        run.data.outputDir = run.folder.path();
        type(run.window, "lineEditSubCode", "A/B");
        announceWarning(QString("QFSFileEngine::open: No file name specified"));
        run.save(QString());
        QCOMPARE(run.boxes.fileChoices().last().directory, run.folder.path());
        QCOMPARE(run.boxes.fileChoices().last().fileName,
            QString("B_test001_noise_modulation depth.txt"));
    }

private:
    /// The beginning of what the listener sees of a run of no reversals to calculate.
    static QString shownThreshold(const QString& reversalsToCalculate)
    {
        MainWindow window;
        type(window, "lineEditNReversalsToCalc", reversalsToCalculate);
        buttonOf(window, "pushButtonView")->click();
        window.computeResults();
        return resultText(Probe::data(window).threshold, 0.0, modulationDepthParameter, 0.0)
            .section(',', 0, 0)
            .section("= ", 1);
    }
};

QUORIN_TEST(TestUserGuide);
#include "tst_user_guide.moc"
