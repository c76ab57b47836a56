// SPDX-License-Identifier: GPL-3.0-or-later
// Many runs in one window, and a run of many trials: 100 and 300 among the slow tests.
#include "drivers/RunDriver.h"
#include "hostile/ProcessUse.h"
#include "support/ModalBoxes.h"
#include "support/WindowTest.h"

#include <QAudioOutput>
#include <QGraphicsScene>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>

#include <algorithm>
#include <cmath>

using namespace quorin;

namespace {

const bool isLongForm = qEnvironmentVariableIsSet("QUORIN_LONG_SESSIONS");

// Times vary from run to run; everything else of a run is decided by its answers.
struct RunOutcome {
    QVector<double> values;
    QVector<int> positions;
    double threshold;
    QString text;
};

bool operator==(const RunOutcome& a, const RunOutcome& b)
{
    return a.values == b.values && a.positions == b.positions && a.threshold == b.threshold
        && a.text == b.text;
}

// What a run may leave behind.
struct LeftOver {
    qint64 memory;
    int descriptors;
    int objects; // of the main window, without the windows of the runs
    int outputs;
};

LeftOver leftOver(const MainWindow& window)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto subjects = window.findChildren<SubjectWindow*>();
    int nOfSubjects = subjects.size();
    for (const SubjectWindow* subject : subjects)
        nOfSubjects += subject->findChildren<QObject*>().size();
    return {memoryInUse(), openDescriptors(), window.findChildren<QObject*>().size() - nOfSubjects,
        window.findChildren<QAudioOutput*>().size()};
}

// Their length has no part in what the tests look for.
void shortenSounds(const MainWindow& window)
{
    type(window, "lineEditStdDuration", "20");
    type(window, "lineEditDevDuration", "20");
}

// Answers as long as the run lasts, then closes its window.
RunOutcome play(MainWindow& window, const QString& answers)
{
    RunDriver driver(window);
    qsrand(1);
    SubjectWindow& subject = driver.begin();
    const Data& data = Probe::data(window);
    while (!buttonOf(subject, "pushButtonDone")->isVisible()) {
        driver.playTrial();
        Probe::timerReaction(window)->invalidate(); // the answer counts 0 ms
        driver.answerRightly(answers[data.records.size() % answers.size()] == 'c');
    }
    RunOutcome outcome = {{}, {}, data.threshold, labelOf(subject, "labelThreshold")->text()};
    for (const Record& record : data.records) {
        outcome.values.append(record.value);
        outcome.positions << record.stimulusPosition << record.responsePosition;
    }
    buttonOf(subject, "pushButtonDone")->click();
    return outcome;
}

// The depth at each trial by the rule: 2 dB down after a right answer and twice that up after a
// wrong one, 1 dB from the second change between right and wrong on, never above 1.
QVector<double> expectedDepths(const QVector<bool>& rightOnes)
{
    QVector<double> depths({0.5});
    int nChanges = 0;
    for (int i = 0; i < rightOnes.size(); ++i) {
        if (i > 0 && rightOnes[i] != rightOnes[i - 1])
            ++nChanges;
        const int stepDb = nChanges < 2 ? 2 : 1;
        const double ratio = std::pow(10.0, (rightOnes[i] ? -stepDb : 2 * stepDb) / 20.0);
        depths.append(std::min(depths.last() * ratio, 1.0));
    }
    return depths;
}

int itemsOf(const QtCharts::QChartView* view)
{
    return view->scene()->items().size();
}

// The items of the charts of both sounds, which a run leaves as they are.
int stimulusItems(MainWindow& window)
{
    return itemsOf(Probe::waveCharts(window)[standard].view)
        + itemsOf(Probe::waveCharts(window)[deviant].view)
        + itemsOf(Probe::spectrumCharts(window)[standard].view)
        + itemsOf(Probe::spectrumCharts(window)[deviant].view);
}

} // namespace

class TestSoak : public WindowTest {
    Q_OBJECT

private slots:
    void manyRuns_leaveNothingBehind()
    {
        constexpr qint64 megabyte = 1 << 20;
        const int nRuns = isLongForm ? 100 : 30;
        const QString answers("ccwcw");
        ModalBoxes boxes;
        MainWindow window;
        window.show();
        shortenSounds(window);
        type(window, "lineEditNReversals", "4");
        const RunOutcome first = play(window, answers);
        QCOMPARE(Probe::data(window).reversalCount, 4);
        LeftOver afterTen = {};
        for (int run = 2; run <= nRuns; ++run) {
            QVERIFY2(play(window, answers) == first, qPrintable(QString("run %1").arg(run)));
            if (run == 10)
                afterTen = leftOver(window);
        }
        const LeftOver afterAll = leftOver(window);
        const qint64 growth = afterAll.memory - afterTen.memory;
        QVERIFY2(growth <= 10 * megabyte, qPrintable(QString("%1 bytes more").arg(growth)));
        QCOMPARE(afterAll.descriptors, afterTen.descriptors);
        QCOMPARE(afterAll.objects, afterTen.objects);
        QCOMPARE(afterAll.outputs, 0);
        QVERIFY(Probe::audioBytes(window) == nullptr);
        QVERIFY(Probe::audioBuffer(window) == nullptr);
        QVERIFY(Probe::soundsAside(window).isEmpty());
        QCOMPARE(window.findChildren<SubjectWindow*>().size(), nRuns);
        QCOMPARE(boxes.messages().size(), nRuns);
    }

    void manyTrials_areRight_andTheWindowGoesOnAnswering()
    {
        const int third = isLongForm ? 100 : 40;
        const int nTrials = 3 * third;
        ModalBoxes boxes;
        MainWindow window;
        window.show();
        shortenSounds(window);
        type(window, "lineEditNReversals", "1000");
        RunDriver driver(window);
        driver.begin();
        const Data& data = Probe::data(window);
        QVector<bool> rightOnes;
        QVector<int> positions;
        QVector<int> items;
        QVector<int> trendItems;
        int nEvents = 0;
        for (int i = 0; i < nTrials; ++i) {
            rightOnes.append(i % 4 != 3);
            positions.append(data.deviantPosition);
            driver.playTrial();
            driver.answerRightly(rightOnes[i]);
            QTimer::singleShot(0, &window, [&nEvents] { ++nEvents; });
            QCoreApplication::processEvents(); // paints, too
            QCOMPARE(nEvents, i + 1);
            items.append(stimulusItems(window));
            trendItems.append(itemsOf(Probe::trendView(window)));
        }
        checkRecords(data, rightOnes, positions);
        QCOMPARE(Probe::trendSeries(window)->count(), nTrials);
        const int first = third - 1;
        const int second = first + third;
        const int last = second + third;
        QCOMPARE(items[last], items[first]);
        QCOMPARE(trendItems[last] - trendItems[second], trendItems[second] - trendItems[first]);
    }

private:
    static void checkRecords(
        const Data& data, const QVector<bool>& rightOnes, const QVector<int>& positions)
    {
        const QVector<double> depths = expectedDepths(rightOnes);
        QCOMPARE(data.records.size(), rightOnes.size());
        for (int i = 0; i < rightOnes.size(); ++i) {
            const Record& record = data.records[i];
            QCOMPARE(record.value, depths[i]);
            QCOMPARE(record.stimulusPosition, positions[i]);
            QCOMPARE(record.responsePosition, rightOnes[i] ? positions[i] : 5 - positions[i]);
            QCOMPARE(record.correctness, rightOnes[i]);
        }
    }
};

QUORIN_TEST(TestSoak);
#include "tst_soak.moc"
