// SPDX-License-Identifier: GPL-3.0-or-later
// The sounds that quorin-sound writes beside those that the windows hand to their output.
#include "SoundProgram.h"
#include "drivers/RunDriver.h"
#include "session/PanelFields.h"
#include "support/MainWindowProbe.h"
#include "support/TestProgram.h"
#include "support/WindowTest.h"
#include "support/WindowWidgets.h"

#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(PanelSetting)

using namespace quorin;

namespace {

/// The samples of both WAV files that the program writes, or what it complains of.
QVector<QByteArray> exported(const QString& arguments)
{
    const QTemporaryDir folder;
    QStringList all {"export"};
    for (const QString& argument : arguments.split('|', Qt::SkipEmptyParts)) {
        all.append(argument);
    }
    const SoundProgramEnd end = runSoundProgram(all << folder.path());
    if (end.status != 0) {
        return {end.errors.toUtf8()};
    }
    return {wavChunk(bytesOf(folder.filePath("standard.wav")), "data"),
        wavChunk(bytesOf(folder.filePath("deviant.wav")), "data")};
}

/// The bytes of standard and deviant in the trial that comes next.
QVector<QByteArray> playedNext(MainWindow& window, RunDriver& driver)
{
    QVector<QByteArray> sounds(2);
    for (int interval = 1; interval <= 4; ++interval) {
        driver.startSound();
        const bool isDeviant = interval == Probe::data(window).deviantPosition;
        sounds[isDeviant ? deviant : standard] = *Probe::audioBytes(window);
        driver.endSound();
    }
    return sounds;
}

} // namespace

class TestExportedSounds : public WindowTest {
    Q_OBJECT

private slots:
    void sounds_areTheWindows_bitForBit_data()
    {
        QTest::addColumn<uint>("seed");
        QTest::addColumn<QVector<PanelSetting>>("settings");
        QTest::addColumn<QString>("arguments");
        QTest::newRow("as the program starts") << 1U << QVector<PanelSetting>() << "";
        QTest::newRow("noise of a seed, other durations and rate")
            << 77U
            << QVector<PanelSetting>({{"lineEditStdDuration", "333.3"},
                   {"lineEditDevDuration", "250"}, {"lineEditSamplingRate", "44100"},
                   {"lineEditStdModDepth", "30"}, {"lineEditDevModFreq", "7.5"}})
            << "--seed|77|--standard-duration|333.3|--deviant-duration|250|--sampling-rate|44100|"
               "--standard-modulation-depth|30|--deviant-modulation-frequency|7.5";
        QTest::newRow("a modulated tone")
            << 1U
            << QVector<PanelSetting>({{"comboBoxSoundType", "sinusoid"},
                   {"lineEditStdCarrierFreq", "2500"}, {"lineEditStdModFreq", "16"}})
            << "--sound-type|sinusoid|--standard-carrier-frequency|2500|"
               "--standard-modulation-frequency|16";
        QTest::newRow("frequency discrimination")
            << 1U
            << QVector<PanelSetting>({{"comboBoxSoundType", "sinusoid"},
                   {"comboBoxMainParameter", "carrier frequency"},
                   {"lineEditStdCarrierFreq", "440"}})
            << "--sound-type|sinusoid|--main-parameter|carrier frequency|"
               "--standard-carrier-frequency|440";
        QTest::newRow("a deviant of one's own")
            << 3U
            << QVector<PanelSetting>({{"checkBoxResetMdFd", "no"}, {"lineEditDevModDepth", "12.5"}})
            << "--seed|3|--reset-md-fd|no|--deviant-modulation-depth|12.5";
        QTest::newRow("a trial's depth")
            << 1U
            << QVector<PanelSetting>({{"checkBoxResetMdFd", "no"}, {"lineEditDevModDepth", "3.7"}})
            << "--value|3.7";
        QTest::newRow("a trial's difference")
            << 1U
            << QVector<PanelSetting>({{"comboBoxSoundType", "sinusoid"},
                   {"comboBoxMainParameter", "carrier frequency"}, {"checkBoxResetMdFd", "no"},
                   {"lineEditDevFreqDiff", "20"}, {"lineEditDevCarrierFreq", "980"},
                   {"lineEditDevModDepth", "0"}})
            << "--sound-type|sinusoid|--main-parameter|carrier frequency|--value|20";
    }

    void sounds_areTheWindows_bitForBit()
    {
        QFETCH(uint, seed);
        QFETCH(QVector<PanelSetting>, settings);
        QFETCH(QString, arguments);
        qsrand(seed);
        MainWindow window;
        fillPanel(window, settings);
        RunDriver driver(window);
        driver.begin();
        QCOMPARE(exported(arguments), playedNext(window, driver));
    }

    void draws_leadToALaterView()
    {
        qsrand(1);
        MainWindow window;
        buttonOf(window, "pushButtonView")->click(); // 48000 numbers more
        RunDriver driver(window);
        driver.begin();
        const QVector<QByteArray> played = playedNext(window, driver);
        QCOMPARE(exported("--draws|96000"), played);
        QVERIFY(exported("--draws|95999") != played);
    }
};

QUORIN_TEST(TestExportedSounds);
#include "tst_exported_sounds.moc"
