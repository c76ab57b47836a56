// SPDX-License-Identifier: GPL-3.0-or-later
// How often the charts are painted after an answer.
#include "charts/ChartObjects.h"
#include "drivers/RunDriver.h"
#include "support/WindowTest.h"

using namespace quorin;

QT_CHARTS_USE_NAMESPACE

namespace {

// Counts the paintings of a chart.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QChartView* view) { view->viewport()->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

// What an event posts is handled with the next call.
void comeToRest()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
    }
}

// A run whose third trial waits for its answer, and all charts are painted.
struct WaitingRun {
    MainWindow window;
    RunDriver driver {window};

    WaitingRun()
    {
        window.show();
        driver.begin();
        for (const bool isRight : {true, false}) {
            driver.playTrial();
            driver.answerRightly(isRight);
        }
        driver.playTrial();
        comeToRest();
    }
};

} // namespace

class TestChartUpdates : public WindowTest {
    Q_OBJECT

private slots:
    void everyChart_isPaintedOnce_afterAnAnswer()
    {
        WaitingRun run;
        const PaintCounter counters[] = {
            PaintCounter(waveChart(run.window, standard).view),
            PaintCounter(waveChart(run.window, deviant).view),
            PaintCounter(spectrumChart(run.window, standard).view),
            PaintCounter(spectrumChart(run.window, deviant).view),
            PaintCounter(trend(run.window).view),
        };
        run.driver.answerRightly(true);
        comeToRest();
        for (const PaintCounter& counter : counters) {
            QCOMPARE(counter.count, 1);
        }
    }
};

QUORIN_TEST(TestChartUpdates);
#include "tst_chart_updates.moc"
