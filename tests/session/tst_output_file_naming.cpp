// SPDX-License-Identifier: GPL-3.0-or-later
// When the panel composes the name of the results file.
#include "support/WindowTest.h"

namespace {

const QString otherText("typed by nobody");

struct Change {
    const char* name;
    void (*make)(const MainWindow& window);
    const char* fileName;
};

void select(const MainWindow& window, const char* box, int index)
{
    widgetOf<QComboBox>(window, box)->setCurrentIndex(index);
}

const Change ingredients[] = {
    {"subject code", [](const MainWindow& window) { type(window, "lineEditSubCode", "AB"); },
        "AB_test001_noise_modulation depth.txt"},
    {"session type", [](const MainWindow& window) { select(window, "comboBoxSesType", 0); },
        "SUB001_practice001_noise_modulation depth.txt"},
    {"session", [](const MainWindow& window) { type(window, "lineEditSesNum", "12"); },
        "SUB001_test012_noise_modulation depth.txt"},
    {"session beyond 999", [](const MainWindow& window) { type(window, "lineEditSesNum", "1234"); },
        "SUB001_test1234_noise_modulation depth.txt"},
    {"session cleared", [](const MainWindow& window) { type(window, "lineEditSesNum", ""); },
        "SUB001_test000_noise_modulation depth.txt"},
    {"session no number", [](const MainWindow& window) { type(window, "lineEditSesNum", "one"); },
        "SUB001_test000_noise_modulation depth.txt"},
    {"subject code cleared", [](const MainWindow& window) { type(window, "lineEditSubCode", ""); },
        "_test001_noise_modulation depth.txt"},
    {"sound type", [](const MainWindow& window) { select(window, "comboBoxSoundType", 0); },
        "SUB001_test001_sinusoid_modulation depth.txt"},
    {"main parameter",
        [](const MainWindow& window) {
            select(window, "comboBoxSoundType", 0);
            select(window, "comboBoxMainParameter", 0);
        },
        "SUB001_test001_sinusoid_carrier frequency.txt"},
    {"all five",
        [](const MainWindow& window) {
            type(window, "lineEditSubCode", "AB");
            type(window, "lineEditSesNum", "7");
            select(window, "comboBoxSesType", 0);
            select(window, "comboBoxSoundType", 0);
            select(window, "comboBoxMainParameter", 0);
        },
        "AB_practice007_sinusoid_carrier frequency.txt"},
};

} // namespace

class TestOutputFileNaming : public WindowTest {
    Q_OBJECT

private slots:
    void name_isComposedAtOnce_whenAnIngredientChanges_data()
    {
        QTest::addColumn<int>("index");
        int index = 0;
        for (const Change& change : ingredients)
            QTest::newRow(change.name) << index++;
    }

    void name_isComposedAtOnce_whenAnIngredientChanges()
    {
        QFETCH(int, index);
        const Change& change = ingredients[index];
        MainWindow window;
        type(window, "lineEditFileName", otherText);
        change.make(window);
        QCOMPARE(textOf(window, "lineEditFileName"), QString(change.fileName));
        QCOMPARE(Probe::data(window).fileName, QString(change.fileName));
    }

    void name_staysAsItIs_whenAnythingElseChanges()
    {
        MainWindow window;
        type(window, "lineEditFileName", otherText);
        for (const char* field :
            {"lineEditStdCarrierFreq", "lineEditStdModFreq", "lineEditStdModDepth",
                "lineEditStdFreqDiff", "lineEditStdDuration", "lineEditDevCarrierFreq",
                "lineEditDevModFreq", "lineEditDevModDepth", "lineEditDevFreqDiff",
                "lineEditDevDuration", "lineEditNReversals", "lineEditNReversalsToCalc",
                "lineEditSilentInterval", "lineEditSamplingRate", "lineEditFilePath"}) {
            type(window, field, "12");
            QCOMPARE(textOf(window, "lineEditFileName"), otherText);
        }
        widgetOf<QCheckBox>(window, "checkBoxSaveData")->toggle();
        widgetOf<QCheckBox>(window, "checkBoxResetMdFd")->toggle();
        QCOMPARE(textOf(window, "lineEditFileName"), otherText);
    }

    void name_isReadNotComposed_whenViewIsPressed()
    {
        MainWindow window;
        type(window, "lineEditFileName", otherText);
        widgetOf<QPushButton>(window, "pushButtonView")->click();
        QCOMPARE(textOf(window, "lineEditFileName"), otherText);
        QCOMPARE(Probe::data(window).fileName, otherText);
    }

    void name_isStoredAndShown_whenUpdatedFromTheRecord()
    {
        MainWindow window;
        Probe::data(window).subCode = "XY";
        Probe::data(window).sesNum = 99;
        window.updateFileName();
        const QString expected("XY_test099_noise_modulation depth.txt");
        QCOMPARE(Probe::data(window).fileName, expected);
        QCOMPARE(textOf(window, "lineEditFileName"), expected);
        QCOMPARE(textOf(window, "lineEditSubCode"), QString("SUB001"));
    }
};

QUORIN_TEST(TestOutputFileNaming);
#include "tst_output_file_naming.moc"
