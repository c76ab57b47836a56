// SPDX-License-Identifier: GPL-3.0-or-later
// The chart of the trend: its axes, its points and its picture.
#include "charts/ChartObjects.h"
#include "support/WindowTest.h"

#include <QImage>
#include <QPixmap>
#include <QScreen>

using namespace quorin;

namespace {

const QString depthTitle("Modulation Depth (%)");
const QString differenceTitle("Frequency difference (Hz)");

// Shows the answer to the next trial on the chart, without playing one.
void answer(MainWindow& window, double depth)
{
    Data& data = Probe::data(window);
    ++data.nTrials;
    data.md[deviant] = depth;
    data.records.append(Record());
    window.updateTrend();
}

QImage part(const QPixmap& picture, const QWidget& window, const QWidget* view)
{
    const QRect place(view->mapTo(&window, QPoint(0, 0)), view->size());
    return picture.copy(place).toImage().convertToFormat(QImage::Format_RGB32);
}

// A part of a window as it is on the screen after what was repainted of it.
QImage shown(const QWidget& window, const QWidget* view)
{
    return part(window.screen()->grabWindow(window.winId()), window, view);
}

// The same part when all of the window is painted anew.
QImage drawn(QWidget& window, const QWidget* view)
{
    return part(window.grab(), window, view);
}

} // namespace

class TestTrendChart : public WindowTest {
    Q_OBJECT

private slots:
    void verticalTitle_isTheDepthsAtCreationAndFollowsTheParameterLater_data()
    {
        addColumns<int, QString>("mainParameter", "laterTitle");
        QTest::newRow("carrier frequency") << carrierFrequencyParameter << differenceTitle;
        QTest::newRow("modulation depth") << modulationDepthParameter << depthTitle;
        QTest::newRow("neither") << 2 << depthTitle;
    }

    void verticalTitle_isTheDepthsAtCreationAndFollowsTheParameterLater()
    {
        QFETCH(int, mainParameter);
        MainWindow window;
        trend(window).remove();
        Probe::data(window).mainParameter = mainParameter;
        window.displayTrend();
        QCOMPARE(trend(window).axisY->titleText(), depthTitle);
        window.displayTrend();
        QTEST(trend(window).axisY->titleText(), "laterTitle");
    }

    void verticalTitle_changesBackAndStays_whenTheParameterIsNeither()
    {
        MainWindow window;
        Data& data = Probe::data(window);
        data.mainParameter = carrierFrequencyParameter;
        window.displayTrend();
        data.mainParameter = -1;
        window.displayTrend();
        QCOMPARE(trend(window).axisY->titleText(), differenceTitle);
        data.mainParameter = modulationDepthParameter;
        window.displayTrend();
        QCOMPARE(trend(window).axisY->titleText(), depthTitle);
    }

    void verticalAxis_takesTheKeptLimits_whenCreated()
    {
        MainWindow window;
        trend(window).remove();
        Probe::trendYMin(window) = 10.0;
        Probe::trendYMax(window) = 30.0;
        window.displayTrend();
        verifyRange(trend(window).axisY, 10.0, 30.0);
    }

    void display_leavesPointsAndRanges()
    {
        MainWindow window;
        answer(window, 0.5);
        answer(window, 1.5);
        window.displayTrend();
        QCOMPARE(trend(window).series->count(), 2);
        verifyRange(trend(window).axisX, 0.0, 2.0);
        verifyRange(trend(window).axisY, 50.0, 150.0);
    }

    // The order in which the axes are set must not show.
    void picture_isThatOfPointRangeAndTicksInPlainOrder()
    {
        MainWindow window;
        MainWindow plain;
        window.show();
        plain.show();
        for (int trials = 1; trials <= 30; ++trials) {
            answer(window, 0.01 * ((7 * trials) % 60));
            const ChartObjects expected = trend(plain);
            expected.series->append(trend(window).series->pointsVector().last());
            expected.axisX->setRange(0, trials);
            expected.axisX->setLabelFormat("%g");
            expected.axisX->setTickCount(trials + 1);
            expected.axisY->setRange(trend(window).axisY->min(), trend(window).axisY->max());
            QCoreApplication::processEvents();
            QCOMPARE(trend(window).view->grab().toImage(), expected.view->grab().toImage());
        }
    }

    // A point that stands alone is larger than the region that Qt Charts gives for it.
    void screen_showsTheWholePoint_whenItStandsAlone()
    {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCoreApplication::processEvents();
        const QtCharts::QChartView* const view = trend(window).view;
        const QImage before = shown(window, view);
        answer(window, 0.5);
        QCoreApplication::processEvents();
        QVERIFY(shown(window, view) != before);
        QTRY_COMPARE(shown(window, view), drawn(window, view));
        window.resetTrend();
        QCoreApplication::processEvents();
        QTRY_COMPARE(shown(window, view), drawn(window, view));
    }

    void chart_isEmptyFrom0To100Again_afterAReset()
    {
        MainWindow window;
        answer(window, -0.5);
        answer(window, 1.5);
        window.resetTrend();
        QCOMPARE(trend(window).series->count(), 0);
        verifyRange(trend(window).axisY, 0.0, 100.0);
        QCOMPARE(Probe::trendYMin(window), 0.0);
        QCOMPARE(Probe::trendYMax(window), 100.0);
    }

    // Qt Charts drops the point that is not a number.
    void nextAnswer_isShown_whenAnEarlierValueWasUndefined()
    {
        MainWindow window;
        tolerateUndefinedChartValues();
        answer(window, qQNaN());
        answer(window, 0.25);
        answer(window, 0.5);
        QCOMPARE(trend(window).series->pointsVector(), QVector<QPointF>({{1, 25}, {2, 50}}));
        QCOMPARE(Probe::trendX(window), QVector<double>({0, 1, 2}));
        QCOMPARE(Probe::trendY(window).mid(1), QVector<double>({25, 50}));
        verifyRange(trend(window).axisX, 0.0, 3.0);
        verifyRange(trend(window).axisY, 0.0, 100.0);
    }
};

QUORIN_TEST(TestTrendChart);
#include "tst_trend_chart.moc"
