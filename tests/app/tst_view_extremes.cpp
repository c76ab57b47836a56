// SPDX-License-Identifier: GPL-3.0-or-later
// View with fields that hold extreme values, and with good ones after them.
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

bool isFinite(const QVector<double>& sound)
{
    return std::all_of(
        sound.cbegin(), sound.cend(), [](double sample) { return std::isfinite(sample); });
}

void typeEverywhere(const MainWindow& window, const QStringList& fields, const QString& text)
{
    for (const QString& field : fields)
        type(window, field, text);
}

} // namespace

class TestViewExtremes : public WindowTest {
    Q_OBJECT

protected slots:
    // The charts leave out what they cannot show and say so.
    void init() override
    {
        WindowTest::init();
        tolerateUndefinedChartValues();
    }

private slots:
    void view_makesWhatItCan_whenFieldsHoldThis_data()
    {
        addColumns<QStringList, QString, QVector<int>>("fields", "text", "sizes");
        const QVector<int> usual({24000, 24000});
        const QVector<int> none({0, 0});
        const QStringList durations({"lineEditStdDuration", "lineEditDevDuration"});
        const auto row = [](const char* name, const QStringList& fields, const char* text,
                             const QVector<int>& sizes) {
            QTest::newRow(name) << fields << QString(text) << sizes;
        };
        row("no durations", durations, "", none);
        row("negative durations", durations, "-600", none);
        row("durations that are not a number", durations, "nan", none);
        row("durations of a sample", durations, "0.025", {1, 1});
        row("no standard", {"lineEditStdDuration"}, "0", {0, 24000});
        row("no deviant", {"lineEditDevDuration"}, "0", {24000, 0});
        row("no rate", {"lineEditSamplingRate"}, "", none);
        row("negative rate", {"lineEditSamplingRate"}, "-40000", none);
        row("rate of 1 Hz", {"lineEditSamplingRate"}, "1", none);
        row("no carriers", {"lineEditStdCarrierFreq", "lineEditDevCarrierFreq"}, "x", usual);
        row("infinite carriers", {"lineEditStdCarrierFreq", "lineEditDevCarrierFreq"}, "inf",
            usual);
        row("no modulation", {"lineEditStdModFreq", "lineEditDevModFreq"}, "", usual);
        row("depth -100 %", {"lineEditStdModDepth", "lineEditDevModDepth"}, "-100", usual);
        row("infinite depths", {"lineEditStdModDepth", "lineEditDevModDepth"}, "inf", usual);
        row("differences no numbers", {"lineEditStdFreqDiff", "lineEditDevFreqDiff"}, "x", usual);
        row("negative reversals", {"lineEditNReversals"}, "-2147483648", usual);
        row("most reversals", {"lineEditNReversals"}, "2147483647", usual);
        row("negative silence", {"lineEditSilentInterval"}, "-1e300", usual);
    }

    void view_makesWhatItCan_whenFieldsHoldThis()
    {
        QFETCH(QStringList, fields);
        QFETCH(QString, text);
        QFETCH(QVector<int>, sizes);
        ModalBoxes boxes;
        MainWindow window;
        window.show();
        checkBoxOf(window, "checkBoxResetMdFd")->setChecked(false);
        for (const int soundType : {1, 0}) {
            comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(soundType);
            typeEverywhere(window, fields, text);
            buttonOf(window, "pushButtonView")->click();
            QCOMPARE(QVector<int>({Probe::stimuli(window)[standard].samples.size(),
                         Probe::stimuli(window)[deviant].samples.size()}),
                sizes);
            QVERIFY(buttonOf(window, "pushButtonGo")->isEnabled());
        }
        QCoreApplication::processEvents();
        QVERIFY(boxes.messages().isEmpty());
    }

    void view_isAsAtTheStart_whenTheFieldsAreMendedAgain()
    {
        MainWindow window;
        const QStringList carriers({"lineEditStdCarrierFreq", "lineEditDevCarrierFreq"});
        const QStringList durations({"lineEditStdDuration", "lineEditDevDuration"});
        comboBoxOf(window, "comboBoxSoundType")->setCurrentIndex(0);
        buttonOf(window, "pushButtonView")->click();
        const QVector<double> standardBefore = Probe::stimuli(window)[standard].samples;
        const QVector<double> deviantBefore = Probe::stimuli(window)[deviant].samples;
        QVERIFY(isFinite(standardBefore));
        QVERIFY(isFinite(deviantBefore));
        typeEverywhere(window, carriers, "nan");
        typeEverywhere(window, durations, "-1");
        buttonOf(window, "pushButtonView")->click();
        typeEverywhere(window, carriers, "1000");
        typeEverywhere(window, durations, "600");
        buttonOf(window, "pushButtonView")->click();
        QCOMPARE(Probe::stimuli(window)[standard].samples, standardBefore);
        QCOMPARE(Probe::stimuli(window)[deviant].samples, deviantBefore);
    }
};

QUORIN_TEST(TestViewExtremes);
#include "tst_view_extremes.moc"
