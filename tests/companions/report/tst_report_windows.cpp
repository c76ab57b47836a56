// SPDX-License-Identifier: GPL-3.0-or-later
// quorin-report on files that the windows saved: it tells what they showed.
#include "SimulatedRun.h"
#include "drivers/RunDriver.h"
#include "report/Run.h"
#include "report/Texts.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <functional>

using namespace quorin;

using Listener = std::function<bool(const Data& data)>; // whether the next answer is right

Q_DECLARE_METATYPE(Listener)

namespace {

// Plays a run in the windows, which save it under the name that they propose.
// @return what the listener is shown at its end
QString playRun(MainWindow& window, int mainParameter, const Listener& hears)
{
    if (mainParameter == carrierFrequencyParameter) {
        choose(window, sinusoidCarrier, mainParameter);
    }
    typeDurations(window, "10.00");
    checkBoxOf(window, "checkBoxSaveData")->setChecked(true);
    RunDriver driver(window);
    SubjectWindow& subject = driver.begin();
    constexpr int mostTrials = 200;
    while (!buttonOf(subject, "pushButtonDone")->isVisible()
        && Probe::data(window).nTrials <= mostTrials) {
        driver.playTrial();
        driver.answerRightly(hears(Probe::data(window)));
    }
    return labelOf(subject, "labelThreshold")->text();
}

} // namespace

class TestReportWindows : public WindowTest {
    Q_OBJECT

private slots:
    void report_saysWhatTheWindowsShowed_data()
    {
        addColumns<int, Listener, QString, int, QString>(
            "mainParameter", "hears", "name", "nTrials", "threshold");
        addRow("hears a depth of 10 % and more", modulationDepthParameter,
            Listener([](const Data& data) { return data.md[deviant] >= 0.1; }),
            "SUB001_test001_noise_modulation depth.txt", 29, "11.2679");
        addRow("hears a difference of 2 Hz and more", carrierFrequencyParameter,
            Listener([](const Data& data) { return data.fd[deviant] >= 0.002; }),
            "SUB001_test001_sinusoid_carrier frequency.txt", 36, "2.24824");
        addRow("right and wrong in turn", modulationDepthParameter,
            Listener([](const Data& data) { return data.records.size() % 2 == 0; }),
            "SUB001_test001_noise_modulation depth.txt", 15, "89.5735");
    }

    void report_saysWhatTheWindowsShowed()
    {
        QFETCH(int, mainParameter);
        QFETCH(Listener, hears);
        QFETCH(QString, name);
        QFETCH(QString, threshold);
        const QTemporaryDir folder;
        ModalBoxes boxes;
        boxes.chooseFile(folder.filePath(name));
        MainWindow window;
        const QString text = playRun(window, mainParameter, hears);
        QCOMPARE(Probe::data(window).fileName, name);

        Run run;
        run.path = folder.filePath(name);
        QCOMPARE(readRun(run, contentOf(run.path)).text, QString());
        QVERIFY(run.isNamed);
        QTEST(run.data.nTrials, "nTrials");
        QCOMPARE(run.data.reversalCount, 14);
        QCOMPARE(shown(run.data.threshold), threshold);
        QVERIFY2(text.contains(" = " + threshold + ' ' + unitOf(run.data)), qPrintable(text));
        QVERIFY2(text.endsWith(" = " + shown(run.data.meanReactionTime) + " ms"), qPrintable(text));

        const Data& shownData = Probe::data(window);
        const double unit = mainParameter == modulationDepthParameter ? 100.0 : 1000.0;
        constexpr double filePrecision = 0.5e-6 + 1e-12; // 6 decimals, and the rounding of sums
        QVERIFY(qAbs(run.data.threshold - shownData.threshold * unit) <= filePrecision);
    }
};

QUORIN_TEST(TestReportWindows);
#include "tst_report_windows.moc"
