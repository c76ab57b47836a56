// SPDX-License-Identifier: GPL-3.0-or-later
// The panel's fields on their way into the record.
#include "session/DeviantInThePanel.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <cmath>

using namespace quorin;

namespace {

struct Reading {
    const char* field;
    double (*value)(const Data& data);
    const char* text;
    double expected;
};

// The carrier of the standard, by which differences are divided, is 1000 Hz in all but its own.
const Reading readings[] = {
    {"lineEditStdCarrierFreq", [](const Data& data) { return data.cf[standard]; }, "1234.5",
        1234.5},
    {"lineEditStdModFreq", [](const Data& data) { return data.mf[standard]; }, "8.25", 8.25},
    {"lineEditStdModDepth", [](const Data& data) { return data.md[standard]; }, "35", 35.0 / 100.0},
    {"lineEditStdFreqDiff", [](const Data& data) { return data.fd[standard]; }, "3", 3.0 / 1000.0},
    {"lineEditStdDuration", [](const Data& data) { return data.dur[standard]; }, "43",
        43.0 / 1000.0},
    {"lineEditDevCarrierFreq", [](const Data& data) { return data.cf[deviant]; }, "990.5", 990.5},
    {"lineEditDevModFreq", [](const Data& data) { return data.mf[deviant]; }, "16.125", 16.125},
    {"lineEditDevModDepth", [](const Data& data) { return data.md[deviant]; }, "57.3",
        57.3 / 100.0},
    {"lineEditDevFreqDiff", [](const Data& data) { return data.fd[deviant]; }, "77", 77.0 / 1000.0},
    {"lineEditDevDuration", [](const Data& data) { return data.dur[deviant]; }, "64.1",
        64.1 / 1000.0},
    {"lineEditNReversals", [](const Data& data) { return double(data.nReversals); }, "17", 17.0},
    {"lineEditNReversalsToCalc",
        [](const Data& data) { return double(data.nReversalsToCalculate); }, "9", 9.0},
    {"lineEditSilentInterval", [](const Data& data) { return data.silentInterval; }, "70.7",
        70.7 / 1000.0},
    {"lineEditSamplingRate", [](const Data& data) { return data.fs; }, "44100.5", 44100.5},
    {"lineEditSesNum", [](const Data& data) { return double(data.sesNum); }, "12", 12.0},
};

void addReadings()
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const Reading& reading : readings)
        QTest::newRow(reading.field) << index++;
}

void keepTheDeviantsFields(MainWindow& window)
{
    checkBoxOf(window, "checkBoxResetMdFd")->setChecked(false);
}

QStringList textsOf(const MainWindow& window)
{
    QStringList texts;
    for (const QLineEdit* field : window.findChildren<QLineEdit*>())
        texts.append(field->objectName() + ": " + field->text());
    return texts;
}

} // namespace

class TestPanelReading : public WindowTest {
    Q_OBJECT

private slots:
    void field_isReadSo_whenItHoldsANumber_data() { addReadings(); }

    void field_isReadSo_whenItHoldsANumber()
    {
        QFETCH(int, index);
        const Reading& reading = readings[index];
        MainWindow window;
        keepTheDeviantsFields(window);
        type(window, reading.field, reading.text);
        window.getParameters();
        // Exactly: a product by a reciprocal would differ in the last bit.
        const double value = reading.value(Probe::data(window));
        QVERIFY2(value == reading.expected, qPrintable(QString::number(value, 'g', 17)));
    }

    void field_isReadAsZero_whenItHoldsNoNumber_data() { addReadings(); }

    void field_isReadAsZero_whenItHoldsNoNumber()
    {
        QFETCH(int, index);
        const Reading& reading = readings[index];
        MainWindow window;
        keepTheDeviantsFields(window);
        for (const char* text : {"", " ", "abc", "12abc", "1,5", "1 000", "--1", "0x10"}) {
            type(window, reading.field, reading.text);
            window.getParameters();
            type(window, reading.field, text);
            window.getParameters();
            QCOMPARE(reading.value(Probe::data(window)), 0.0);
        }
    }

    void texts_areReadAsTheyAre_whenTyped()
    {
        MainWindow window;
        type(window, "lineEditSubCode", " Hörer/1 ");
        type(window, "lineEditFilePath", " /no such folder/ ");
        type(window, "lineEditFileName", "my own name");
        window.getParameters();
        QCOMPARE(Probe::data(window).subCode, QString(" Hörer/1 "));
        QCOMPARE(Probe::data(window).outputDir, QString(" /no such folder/ "));
        QCOMPARE(Probe::data(window).fileName, QString("my own name"));
    }

    void choicesAndBoxes_areRead_whenTheRecordHasOthers()
    {
        MainWindow window;
        Data& data = Probe::data(window);
        data.sesType = 0;
        data.soundType = 0;
        data.mainParameter = 0;
        data.saveData = false;
        data.resetMdFd = true;
        data.nTrials = 7;
        checkBoxOf(window, "checkBoxSaveData")->setChecked(true);
        keepTheDeviantsFields(window);
        window.getParameters();
        QCOMPARE(data.sesType, 1);
        QCOMPARE(data.soundType, 1);
        QCOMPARE(data.mainParameter, 1);
        QCOMPARE(data.saveData, true);
        QCOMPARE(data.resetMdFd, false);
        QCOMPARE(data.nTrials, 0);
    }

    void differences_followTheCarrierJustRead_whenItChanged()
    {
        MainWindow window;
        keepTheDeviantsFields(window);
        type(window, "lineEditStdCarrierFreq", "2000");
        type(window, "lineEditDevCarrierFreq", "500");
        type(window, "lineEditStdFreqDiff", "50");
        type(window, "lineEditDevFreqDiff", "100");
        window.getParameters();
        QCOMPARE(Probe::data(window).fd, QVector<double>({0.025, 0.05}));
        QCOMPARE(Probe::data(window).cf, QVector<double>({2000.0, 500.0}));
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("100.0000"));
        QCOMPARE(textOf(window, "lineEditStdFreqDiff"), QString("50"));
    }

    void deviantsDifference_staysAsTyped_whenItIsNotFinite()
    {
        MainWindow window;
        keepTheDeviantsFields(window);
        type(window, "lineEditStdCarrierFreq", "none");
        type(window, "lineEditDevFreqDiff", "100");
        window.getParameters();
        QVERIFY(std::isinf(Probe::data(window).fd[deviant]));
        QVERIFY(std::isnan(Probe::data(window).fd[standard]));
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("100"));
    }

    void deviantsFields_areIgnored_whenResetIsChecked()
    {
        MainWindow window;
        type(window, "lineEditStdCarrierFreq", "2000");
        type(window, "lineEditDevCarrierFreq", "1");
        type(window, "lineEditDevModDepth", "12");
        type(window, "lineEditDevFreqDiff", "34");
        window.getParameters();
        QCOMPARE(deviantValues(window), QVector<double>({0.5, 0.0, 2000.0}));
        QCOMPARE(deviantFields(window), QStringList({"50.0000", "0.0000", "2000.00"}));
    }

    void deviant_startsFivePercentBelow_whenCarrierFrequencyIsAdapted()
    {
        MainWindow window;
        choose(window, 0, 0);
        type(window, "lineEditStdCarrierFreq", "2000");
        type(window, "lineEditDevFreqDiff", "7");
        window.getParameters();
        QCOMPARE(deviantValues(window), QVector<double>({0.0, 0.05, 1900.0}));
        QCOMPARE(deviantFields(window), QStringList({"0.0000", "100.0000", "1900.00"}));
    }

    void standardsFields_areRead_whenResetIsChecked()
    {
        MainWindow window;
        type(window, "lineEditStdModDepth", "25");
        type(window, "lineEditDevModFreq", "10");
        type(window, "lineEditDevDuration", "300");
        window.getParameters();
        QCOMPARE(Probe::data(window).md[standard], 0.25);
        QCOMPARE(Probe::data(window).mf[deviant], 10.0);
        QCOMPARE(Probe::data(window).dur, QVector<double>({0.6, 0.3}));
    }

    void reversalsToCalculate_areLimited_whenThereAreFewer_data()
    {
        addColumns<QString, QString, int, QString>("reversals", "toCalculate", "expected", "shown");
        addRow("more", "14", "20", 14, "14");
        addRow("as many, not written again", "14", "014", 14, "014");
        addRow("fewer, not written again", "14", " 8", 8, " 8");
        addRow("no reversals", "", "8", 0, "0");
        addRow("negative reversals", "-3", "8", -3, "-3");
        addRow("both negative", "-3", "-5", -5, "-5");
    }

    void reversalsToCalculate_areLimited_whenThereAreFewer()
    {
        QFETCH(QString, reversals);
        QFETCH(QString, toCalculate);
        ModalBoxes boxes;
        MainWindow window;
        type(window, "lineEditNReversals", reversals);
        type(window, "lineEditNReversalsToCalc", toCalculate);
        window.getParameters();
        QTEST(Probe::data(window).nReversalsToCalculate, "expected");
        QTEST(textOf(window, "lineEditNReversalsToCalc"), "shown");
        QCOMPARE(textOf(window, "lineEditNReversals"), reversals);
        QCoreApplication::processEvents();
        QVERIFY(boxes.messages().isEmpty());
    }

    void reversalsToCalculate_areLimited_whenGoIsPressed()
    {
        ModalBoxes boxes;
        MainWindow window;
        buttonOf(window, "pushButtonView")->click();
        type(window, "lineEditNReversalsToCalc", "20");
        buttonOf(window, "pushButtonGo")->click();
        QCOMPARE(Probe::data(window).nReversalsToCalculate, 14);
        QCOMPARE(textOf(window, "lineEditNReversalsToCalc"), QString("14"));
        QVERIFY(boxes.messages().isEmpty());
    }

    void sizes_followEachSoundsOwnDuration_whenRead()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "43");
        type(window, "lineEditDevDuration", "200");
        type(window, "lineEditSamplingRate", "20000");
        window.getParameters();
        QCOMPARE(Probe::data(window).nSamples, QVector<int>({859, 4000}));
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({859, 1000}));
        type(window, "lineEditSamplingRate", "40000");
        window.getParameters();
        QCOMPARE(Probe::data(window).nSamples, QVector<int>({1719, 8000}));
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({1719, 2000}));
    }

    void negativeDuration_givesNegativeCounts_whenRead()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "-10");
        window.getParameters();
        QCOMPARE(Probe::data(window).nSamples, QVector<int>({-400, 24000}));
        QCOMPARE(Probe::data(window).nPointsToPlot, QVector<int>({-400, 2000}));
    }

    void spectrumSizes_stayAsTheyWere_whenTheSoundsChange()
    {
        MainWindow window;
        type(window, "lineEditStdDuration", "100");
        type(window, "lineEditSamplingRate", "20000");
        window.getParameters();
        QCOMPARE(Probe::fftLength(window), QVector<qint64>({32768, 32768}));
        QCOMPARE(Probe::data(window).nFreqPointsToPlot, QVector<int>({1638, 1638}));
        QCOMPARE(Probe::data(window).durToPlot, QVector<double>({0.05, 0.05}));
        QCOMPARE(Probe::data(window).freqToPlot, QVector<double>({2000.0, 2000.0}));
    }

    void fields_stayAsTyped_whenRead_butTheDeviantsDifference()
    {
        MainWindow window;
        keepTheDeviantsFields(window);
        for (QLineEdit* field : window.findChildren<QLineEdit*>())
            field->setText("0012.5");
        type(window, "lineEditNReversalsToCalc", "zero");
        QStringList expected = textsOf(window);
        expected.replaceInStrings("DevFreqDiff: 0012.5", "DevFreqDiff: 12.5000");
        window.getParameters();
        QCOMPARE(textsOf(window), expected);
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("12.5000"));
    }

    void reversalTable_keepsItsLength_whenMoreReversalsAreAskedFor()
    {
        MainWindow window;
        Probe::data(window).reversals.fill(0.25);
        type(window, "lineEditNReversals", "20");
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::data(window).nReversals, 20);
        QCOMPARE(Probe::data(window).reversals, QVector<double>(14, 0.0));
    }
};

QUORIN_TEST(TestPanelReading);
#include "tst_panel_reading.moc"
