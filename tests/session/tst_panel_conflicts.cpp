// SPDX-License-Identifier: GPL-3.0-or-later
// Noise and an adapted carrier frequency, which do not go together.
#include "session/DeviantInThePanel.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

using namespace quorin;

namespace {

const QString fromSoundType("The sound type 'noise' is incompatible with the internal parameter "
                            "'carrier frequency'. Sound type will be changed to 'sinusoid'");
const QString fromMainParameter(
    "The sound type 'noise' is incompatible with the internal parameter 'carrier frequency'. "
    "Internal parameter will be changed to 'modulation depth'");

void compareWithConflictBox(
    const ModalBoxes::Message& message, const QString& text, const MainWindow& window)
{
    verifyWarning(message, text, &window, "Conflicting Parameters");
}

} // namespace

class TestPanelConflicts : public WindowTest {
    Q_OBJECT

private slots:
    void mainParameter_returnsToDepth_whenCarrierFrequencyMeetsNoise()
    {
        ModalBoxes boxes;
        MainWindow window;
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(0);
        QCOMPARE(boxes.messages().size(), 1);
        compareWithConflictBox(boxes.messages().constFirst(), fromMainParameter, window);
        QCOMPARE(comboBoxOf(window, "comboBoxMainParameter")->currentIndex(), 1);
        QCOMPARE(comboBoxOf(window, "comboBoxSoundType")->currentIndex(), 1);
        QCOMPARE(Probe::data(window).mainParameter, 1);
        QCOMPARE(Probe::data(window).soundType, 1);
        QCOMPARE(textOf(window, "lineEditFileName"),
            QString("SUB001_test001_noise_modulation depth.txt"));
    }

    void deviant_isAtTheDepthsStart_whenTheMainParameterReturned()
    {
        ModalBoxes boxes;
        MainWindow window;
        Probe::data(window).md[deviant] = 0.125;
        Probe::data(window).fd[deviant] = 0.25;
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(0);
        QCOMPARE(deviantValues(window), QVector<double>({0.5, 0.0, 1000.0}));
        QCOMPARE(deviantFields(window), QStringList({"50.0000", "0.0000", "1000.00"}));
    }

    void soundType_returnsToSinusoid_whenNoiseMeetsCarrierFrequency()
    {
        ModalBoxes boxes;
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        QVERIFY(boxes.messages().isEmpty());
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(1);
        QCOMPARE(boxes.messages().size(), 1);
        compareWithConflictBox(boxes.messages().constFirst(), fromSoundType, window);
        QCOMPARE(comboBoxOf(window, "comboBoxSoundType")->currentIndex(), 0);
        QCOMPARE(comboBoxOf(window, "comboBoxMainParameter")->currentIndex(), 0);
        QCOMPARE(Probe::data(window).soundType, 0);
        QCOMPARE(Probe::data(window).mainParameter, 0);
        QCOMPARE(textOf(window, "lineEditFileName"),
            QString("SUB001_test001_sinusoid_carrier frequency.txt"));
    }

    void deviant_staysAsItIs_whenTheSoundTypeReturned()
    {
        ModalBoxes boxes;
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        Probe::data(window).fd[deviant] = 0.125;
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(1);
        QCOMPARE(Probe::data(window).fd[deviant], 0.125);
        QCOMPARE(textOf(window, "lineEditDevFreqDiff"), QString("50.0000"));
    }

    void choice_isStoredAndTheNameOld_whileTheBoxIsOpen()
    {
        ModalBoxes boxes;
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        int soundType = -1;
        int index = -1;
        QString fileName;
        boxes.onOpen([&](QWidget*) {
            soundType = Probe::data(window).soundType;
            index = comboBoxOf(window, "comboBoxSoundType")->currentIndex();
            fileName = textOf(window, "lineEditFileName");
        });
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(1);
        QCOMPARE(soundType, 1);
        QCOMPARE(index, 1);
        QCOMPARE(fileName, QString("SUB001_test001_sinusoid_carrier frequency.txt"));
    }

    void box_opensAgain_whenTheSameChoiceIsMadeAgain()
    {
        ModalBoxes boxes;
        MainWindow window;
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(0);
        boxes.escapeNext();
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(0);
        QCOMPARE(boxes.messages().size(), 2);
        compareWithConflictBox(boxes.messages().constLast(), fromMainParameter, window);
        QCOMPARE(comboBoxOf(window, "comboBoxMainParameter")->currentIndex(), 1);
    }

    void box_opensToo_whenTheChoiceIsMadeByKey()
    {
        ModalBoxes boxes;
        MainWindow window;
        QTest::keyClick(comboBoxOf(window, "comboBoxMainParameter"), Qt::Key_Up);
        QCOMPARE(boxes.messages().size(), 1);
        QCOMPARE(comboBoxOf(window, "comboBoxMainParameter")->currentText(),
            QString("modulation depth"));
    }

    void noBoxOpens_whenTheChoicesAgree()
    {
        ModalBoxes boxes;
        MainWindow window;
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(1);
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(1);
        comboBoxOf(window, "comboBoxSesType")->setCurrentIndex(0);
        QCoreApplication::processEvents();
        QVERIFY(boxes.messages().isEmpty());
    }

    void deviant_goesToTheStart_whenTheMainParameterChanges()
    {
        MainWindow window;
        type(window, "lineEditStdCarrierFreq", "2000");
        choose(window, sinusoidCarrier, carrierFrequencyParameter);
        QCOMPARE(Probe::data(window).cf[standard], 1000.0);
        QCOMPARE(deviantValues(window), QVector<double>({0.0, 0.05, 950.0}));
        QCOMPARE(deviantFields(window), QStringList({"0.0000", "50.0000", "950.00"}));
        comboBoxOf(window, "comboBoxMainParameter")->setCurrentIndex(1);
        QCOMPARE(deviantValues(window), QVector<double>({0.5, 0.0, 1000.0}));
        QCOMPARE(deviantFields(window), QStringList({"50.0000", "0.0000", "1000.00"}));
    }

    void deviant_staysAsItIs_whenAnotherChoiceChanges()
    {
        MainWindow window;
        Probe::data(window).md[deviant] = 0.125;
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(0);
        comboBoxOf(window, "comboBoxSesType")->setCurrentIndex(0);
        type(window, "lineEditSubCode", "AB");
        type(window, "lineEditSesNum", "2");
        QCOMPARE(Probe::data(window).md[deviant], 0.125);
        QCOMPARE(Probe::data(window).soundType, 0);
        QCOMPARE(Probe::data(window).sesType, 0);
    }

    void subjectAndSession_areStoredAtOnce_whenTyped()
    {
        MainWindow window;
        type(window, "lineEditSubCode", " A_B ");
        QCOMPARE(Probe::data(window).subCode, QString(" A_B "));
        type(window, "lineEditSesNum", "42");
        QCOMPARE(Probe::data(window).sesNum, 42);
        type(window, "lineEditSesNum", "42x");
        QCOMPARE(Probe::data(window).sesNum, 0);
    }

    void record_keepsTheOldValues_whenOtherFieldsAreTyped()
    {
        MainWindow window;
        type(window, "lineEditStdCarrierFreq", "2000");
        type(window, "lineEditNReversals", "3");
        type(window, "lineEditFilePath", "/elsewhere");
        QCOMPARE(Probe::data(window).cf[standard], 1000.0);
        QCOMPARE(Probe::data(window).nReversals, 14);
        QCOMPARE(Probe::data(window).outputDir, Probe::data(window).defaultDir);
    }
};

QUORIN_TEST(TestPanelConflicts);
#include "tst_panel_conflicts.moc"
