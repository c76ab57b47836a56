// SPDX-License-Identifier: GPL-3.0-or-later
// What the panel shows when the window opens.
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

namespace {

QStringList itemsOf(const QComboBox* box)
{
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

// The timers of the first filling would be lost in the second.
void fillThePanelAgain(MainWindow& window)
{
    delete Probe::timerPlay(window);
    delete Probe::timerReaction(window);
    window.initParameters();
}

} // namespace

class TestPanelStart : public WindowTest {
    Q_OBJECT

private slots:
    void field_showsThis_whenTheWindowOpens_data()
    {
        QTest::addColumn<QString>("expected");
        QTest::newRow("lineEditStdCarrierFreq") << "1000.00";
        QTest::newRow("lineEditStdModFreq") << "40.00";
        QTest::newRow("lineEditStdModDepth") << "0.0000";
        QTest::newRow("lineEditStdFreqDiff") << "0.0000";
        QTest::newRow("lineEditStdDuration") << "600.00";
        QTest::newRow("lineEditDevCarrierFreq") << "1000.00";
        QTest::newRow("lineEditDevModFreq") << "40.00";
        QTest::newRow("lineEditDevModDepth") << "50.0000";
        QTest::newRow("lineEditDevFreqDiff") << "0.0000";
        QTest::newRow("lineEditDevDuration") << "600.00";
        QTest::newRow("lineEditNReversals") << "14";
        QTest::newRow("lineEditNReversalsToCalc") << "8";
        QTest::newRow("lineEditSilentInterval") << "1000.00";
        QTest::newRow("lineEditSamplingRate") << "40000";
        QTest::newRow("lineEditSubCode") << "SUB001";
        QTest::newRow("lineEditSesNum") << "1";
        QTest::newRow("lineEditFilePath")
            << QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
        QTest::newRow("lineEditFileName") << "SUB001_test001_noise_modulation depth.txt";
    }

    void field_showsThis_whenTheWindowOpens()
    {
        const MainWindow window;
        const QString field(QTest::currentDataTag());
        QTEST(textOf(window, field), "expected");
        QCOMPARE(
            widgetOf<QLineEdit>(window, field)->isEnabledTo(&window), field != "lineEditFileName");
    }

    void boxes_offerTheRecordsLists_whenTheWindowOpens()
    {
        MainWindow window;
        QCOMPARE(itemsOf(comboBoxOf(window, "comboBoxSesType")), QStringList({"practice", "test"}));
        QCOMPARE(
            itemsOf(comboBoxOf(window, "comboBoxSoundType")), QStringList({"sinusoid", "noise"}));
        QCOMPARE(itemsOf(comboBoxOf(window, "comboBoxMainParameter")),
            QStringList({"carrier frequency", "modulation depth"}));
    }

    void choices_areTestNoiseAndDepth_whenTheWindowOpens()
    {
        const ModalBoxes boxes;
        MainWindow window;
        QCOMPARE(comboBoxOf(window, "comboBoxSesType")->currentText(), QString("test"));
        QCOMPARE(comboBoxOf(window, "comboBoxSoundType")->currentText(), QString("noise"));
        QCOMPARE(comboBoxOf(window, "comboBoxMainParameter")->currentText(),
            QString("modulation depth"));
        QCOMPARE(Probe::data(window).sesType, 1);
        QCOMPARE(Probe::data(window).soundType, 1);
        QCOMPARE(Probe::data(window).mainParameter, 1);
        QCoreApplication::processEvents();
        QVERIFY(boxes.messages().isEmpty());
    }

    void deviant_isAtTheDepthsStart_whenTheWindowOpens()
    {
        MainWindow window;
        const Data& data = Probe::data(window);
        QCOMPARE(data.md, QVector<double>({0.0, 0.5}));
        QCOMPARE(data.fd, QVector<double>({0.0, 0.0}));
        QCOMPARE(data.cf, QVector<double>({1000.0, 1000.0}));
        QCOMPARE(data.fileName, QString("SUB001_test001_noise_modulation depth.txt"));
    }

    void checkBoxesAndButtons_areSet_whenTheWindowOpens()
    {
        MainWindow window;
        QVERIFY(checkBoxOf(window, "checkBoxResetMdFd")->isChecked());
        QVERIFY(!checkBoxOf(window, "checkBoxSaveData")->isChecked());
        QVERIFY(buttonOf(window, "pushButtonView")->isEnabled());
        QVERIFY(!buttonOf(window, "pushButtonGo")->isEnabled());
        QVERIFY(buttonOf(window, "pushButtonQuit")->isEnabled());
    }

    void sizes_areThoseOfTheSpectrum_whenTheWindowOpens()
    {
        MainWindow window;
        const Data& data = Probe::data(window);
        QCOMPARE(data.nSamples, QVector<int>({24000, 24000}));
        QCOMPARE(data.nPointsToPlot, QVector<int>({2000, 2000}));
        QCOMPARE(data.nFreqPointsToPlot, QVector<int>({1638, 1638}));
        QCOMPARE(Probe::fftLength(window), QVector<qint64>({32768, 32768}));
        QCOMPARE(Probe::fftDuration(window), QVector<double>({0.8192, 0.8192}));
    }

    void trialLoop_isReady_whenTheWindowOpens()
    {
        MainWindow window;
        QCOMPARE(Probe::nSoundsPerTrial(window), 4);
        QCOMPARE(Probe::soundIndex(window), 0);
        QCOMPARE(Probe::nReactionTimerStarts(window), 0);
        QCOMPARE(Probe::stimSequence(window).size(), 4);
        QVERIFY(!Probe::timerReaction(window)->isValid());
        QVERIFY(!Probe::timerPlay(window)->isActive());
        QVERIFY(!Probe::timerPlay(window)->isSingleShot());
        QCOMPARE(Probe::timerPlay(window)->timerType(), Qt::PreciseTimer);
    }

    void fonts_areTheCharts_whenTheWindowOpens()
    {
        MainWindow window;
        QCOMPARE(Probe::fontAxisLabels(window).pixelSize(), 10);
        QCOMPARE(Probe::fontAxisTitle(window).pixelSize(), 10);
        QCOMPARE(Probe::fontChartTitle(window).pixelSize(), 12);
        QCOMPARE(Probe::fontAxisLabels(window).weight(), 50);
        QCOMPARE(Probe::fontAxisTitle(window).weight(), 50);
        QCOMPARE(Probe::fontChartTitle(window).weight(), 50);
    }

    void audioFormat_isMonoFloatAtTheSamplingRate_whenTheWindowOpens()
    {
        MainWindow window;
        const QAudioFormat& format = Probe::audioFormat(window);
        QCOMPARE(format.sampleRate(), 40000);
        QCOMPARE(format.channelCount(), 1);
        QCOMPARE(format.sampleSize(), 32);
        QCOMPARE(format.codec(), QString("audio/pcm"));
        QCOMPARE(format.byteOrder(), QAudioFormat::LittleEndian);
        QCOMPARE(format.sampleType(), QAudioFormat::Float);
    }

    void fields_areWrittenInThisOrder_whenThePanelIsFilled()
    {
        QStringList written;
        MainWindow window;
        const Data before = Probe::data(window);
        for (QLineEdit* field : window.findChildren<QLineEdit*>()) {
            field->setText("old");
            const auto note = [&written, field] { written.append(field->objectName().mid(8)); };
            connect(field, &QLineEdit::textChanged, this, note);
        }
        for (QCheckBox* box :
            {checkBoxOf(window, "checkBoxResetMdFd"), checkBoxOf(window, "checkBoxSaveData")}) {
            box->setChecked(box == checkBoxOf(window, "checkBoxSaveData"));
            connect(box, &QCheckBox::toggled, this,
                [&written, box] { written.append(box->objectName()); });
        }
        Probe::data(window) = before;
        fillThePanelAgain(window);
        QCOMPARE(written,
            QStringList({"StdModFreq", "StdModDepth", "StdFreqDiff", "StdCarrierFreq",
                "StdDuration", "DevModFreq", "DevModDepth", "DevFreqDiff", "DevCarrierFreq",
                "DevDuration", "checkBoxResetMdFd", "checkBoxSaveData", "NReversals",
                "NReversalsToCalc", "SilentInterval", "FilePath", "FileName", "SesNum", "SubCode",
                "SamplingRate"}));
    }

    void items_areAppended_whenABoxHasSome()
    {
        MainWindow window;
        fillThePanelAgain(window);
        QCOMPARE(itemsOf(comboBoxOf(window, "comboBoxSesType")),
            QStringList({"practice", "test", "practice", "test"}));
    }

    void values_areShownInTheirFormats_whenTheRecordHasOthers()
    {
        MainWindow window;
        Data& data = Probe::data(window);
        data.cf = {2000.125, 950.5};
        data.fd = {0.25, 0.5};
        data.md = {0.123456789, 1.0};
        data.mf = {8.0, 16.256};
        data.dur = {0.1, 0.043};
        data.silentInterval = 0.0005;
        data.fs = 1234567.0;
        data.outputDir = "/some/folder";
        data.sesNum = 12;
        data.subCode = "AB";
        data.saveData = true;
        data.resetMdFd = false;
        fillThePanelAgain(window);
        QCOMPARE(textOf(window, "lineEditStdCarrierFreq"), QString("2000.13"));
        QCOMPARE(textOf(window, "lineEditDevCarrierFreq"), QString("950.50"));
        QCOMPARE(textOf(window, "lineEditStdFreqDiff"), QString("500.0313"));
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("1000.0625"));
        QCOMPARE(textOf(window, "lineEditStdModDepth"), QString("12.3457"));
        QCOMPARE(textOf(window, "lineEditDevModDepth"), QString("100.0000"));
        QCOMPARE(textOf(window, "lineEditStdModFreq"), QString("8.00"));
        QCOMPARE(textOf(window, "lineEditDevModFreq"), QString("16.26"));
        QCOMPARE(textOf(window, "lineEditStdDuration"), QString("100.00"));
        QCOMPARE(textOf(window, "lineEditDevDuration"), QString("43.00"));
        QCOMPARE(textOf(window, "lineEditSilentInterval"), QString("0.50"));
        QCOMPARE(textOf(window, "lineEditSamplingRate"), QString("1.23457e+06"));
        QCOMPARE(textOf(window, "lineEditFilePath"), QString("/some/folder"));
        QCOMPARE(textOf(window, "lineEditSesNum"), QString("12"));
        QCOMPARE(textOf(window, "lineEditSubCode"), QString("AB"));
        QVERIFY(checkBoxOf(window, "checkBoxSaveData")->isChecked());
        QVERIFY(!checkBoxOf(window, "checkBoxResetMdFd")->isChecked());
    }
};

QUORIN_TEST(TestPanelStart);
#include "tst_panel_start.moc"
