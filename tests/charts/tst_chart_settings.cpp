// SPDX-License-Identifier: GPL-3.0-or-later
// Texts, fonts, axes, sizes and places of the five charts.
#include "charts/ChartObjects.h"
#include "support/WindowTest.h"

#include <QGridLayout>
#include <QtCharts/QLegend>

using namespace QtCharts;

namespace {

using Cell = QVector<int>; // row, column, and how many of each

Cell cellOf(const QGridLayout& grid, QWidget* widget)
{
    Cell cell(4, -1);
    const int index = grid.indexOf(widget);
    if (index >= 0) {
        grid.getItemPosition(index, &cell[0], &cell[1], &cell[2], &cell[3]);
    }
    return cell;
}

void verifyFont(const QFont& font, int pixels)
{
    QCOMPARE(font.pixelSize(), pixels);
    QCOMPARE(font.weight(), 50);
}

} // namespace

class TestChartSettings : public WindowTest {
    Q_OBJECT

private slots:
    void texts_areExact_data() { charts(); }

    void texts_areExact()
    {
        QFETCH(QString, title);
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QCOMPARE(objects.chart->title(), title);
        QTEST(objects.axisX->titleText(), "titleX");
        QTEST(objects.axisY->titleText(), "titleY");
        QVERIFY(objects.axisX->isTitleVisible());
        QVERIFY(objects.axisY->isTitleVisible());
    }

    void fonts_areTheSharedOnes_data() { charts(); }

    void fonts_areTheSharedOnes()
    {
        MainWindow window;
        const ChartObjects objects = fetched(window);
        verifyFont(objects.chart->titleFont(), 12);
        QCOMPARE(objects.chart->titleFont(), Probe::fontChartTitle(window));
        for (const QValueAxis* axis : {objects.axisX, objects.axisY}) {
            verifyFont(axis->labelsFont(), 10);
            verifyFont(axis->titleFont(), 10);
            QCOMPARE(axis->labelsFont(), Probe::fontAxisLabels(window));
            QCOMPARE(axis->titleFont(), Probe::fontAxisTitle(window));
        }
    }

    void axes_areLabelledAndTicked_data() { charts(); }

    void axes_areLabelledAndTicked()
    {
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QTEST(objects.axisX->labelFormat(), "formatX");
        QTEST(objects.axisY->labelFormat(), "formatY");
        QTEST(objects.axisX->labelsVisible(), "labelsX");
        QVERIFY(objects.axisY->labelsVisible());
        QTEST(objects.axisX->tickCount(), "ticksX");
        QCOMPARE(objects.axisY->tickCount(), QValueAxis().tickCount());
    }

    void chart_holdsItsSeriesAndAxesAttached_data() { charts(); }

    void chart_holdsItsSeriesAndAxesAttached()
    {
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QCOMPARE(objects.chart->series(), QList<QAbstractSeries*>({objects.series}));
        QCOMPARE(objects.chart->axes(Qt::Horizontal), QList<QAbstractAxis*>({objects.axisX}));
        QCOMPARE(objects.chart->axes(Qt::Vertical), QList<QAbstractAxis*>({objects.axisY}));
        QCOMPARE(objects.axisX->alignment(), Qt::AlignBottom);
        QCOMPARE(objects.axisY->alignment(), Qt::AlignLeft);
        QCOMPARE(
            objects.series->attachedAxes(), QList<QAbstractAxis*>({objects.axisX, objects.axisY}));
    }

    void series_hasItsNameAndPoints_data() { charts(); }

    void series_hasItsNameAndPoints()
    {
        QFETCH(QString, name);
        QFETCH(bool, pointsVisible);
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QCOMPARE(objects.series->name(), name);
        QCOMPARE(objects.series->pointsVisible(), pointsVisible);
        QVERIFY(!objects.series->useOpenGL());
    }

    void chart_hasNoLegendAndNoMargins_data() { charts(); }

    void chart_hasNoLegendAndNoMargins()
    {
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QVERIFY(!objects.chart->legend()->isVisible());
        QCOMPARE(objects.chart->margins(), QMargins(0, 0, 0, 0));
    }

    void sizePolicyAndLeastWidth_areTheChartsAndNotItsViews_data() { charts(); }

    void sizePolicyAndLeastWidth_areTheChartsAndNotItsViews()
    {
        QFETCH(int, leastWidth);
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QCOMPARE(objects.chart->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
        QCOMPARE(objects.chart->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(objects.chart->minimumWidth(), static_cast<double>(leastWidth));
        const QChartView untouched;
        QCOMPARE(objects.view->sizePolicy(), untouched.sizePolicy());
        QCOMPARE(objects.view->minimumSize(), untouched.minimumSize());
    }

    void view_isAntialiasedInItsCell_data() { charts(); }

    void view_isAntialiasedInItsCell()
    {
        QFETCH(Cell, cell);
        MainWindow window;
        const ChartObjects objects = fetched(window);
        QCOMPARE(objects.view->chart(), objects.chart);
        QVERIFY(objects.view->renderHints().testFlag(QPainter::Antialiasing));
        QCOMPARE(cellOf(*widgetOf<QGridLayout>(window, "gridLayoutCharts"), objects.view), cell);
        QCOMPARE(widgetOf<QGridLayout>(window, "gridLayoutCharts")->count(), 5);
    }

    void nothingNew_isMade_whenEverythingIsDisplayedAgain()
    {
        MainWindow window;
        QVector<QObject*> before;
        for (const ChartObjects& objects : allCharts(window)) {
            before += objects.objects();
        }
        window.displayWav();
        window.displayFFT();
        window.displayTrend();
        window.on_pushButtonView_clicked();
        QVector<QObject*> after;
        for (const ChartObjects& objects : allCharts(window)) {
            after += objects.objects();
            QCOMPARE(objects.chart->series().size(), 1);
            QCOMPARE(objects.chart->axes().size(), 2);
        }
        QCOMPARE(after, before);
        QCOMPARE(widgetOf<QGridLayout>(window, "gridLayoutCharts")->count(), 5);
        QCOMPARE(window.findChildren<QChartView*>().size(), 5);
    }

    void looks_areSetOnce_whenEverythingIsDisplayedAgain()
    {
        MainWindow window;
        for (const ChartObjects& objects : allCharts(window)) {
            objects.chart->setTitle("another");
            objects.axisX->setTitleText("another");
            objects.axisX->setLabelFormat("%g");
        }
        window.displayWav();
        window.displayFFT();
        window.displayTrend();
        for (const ChartObjects& objects : allCharts(window)) {
            QCOMPARE(objects.chart->title(), QString("another"));
            QCOMPARE(objects.axisX->titleText(), QString("another"));
            QCOMPARE(objects.axisX->labelFormat(), QString("%g"));
        }
    }

private:
    static void charts()
    {
        QTest::addColumn<int>("chart"); // index into allCharts()
        addColumns<QString, QString, QString, QString, QString, bool, int, QString, bool, int,
            Cell>("title", "titleX", "titleY", "formatX", "formatY", "labelsX", "ticksX", "name",
            "pointsVisible", "leastWidth", "cell");
        stimulusRow(
            "standard waveform", 0, "Time Waveform (standard)", "Time (ms)", "", {0, 0, 1, 1});
        stimulusRow(
            "deviant waveform", 1, "Time Waveform (Deviant)", "Time (ms)", "", {0, 1, 1, 1});
        stimulusRow("standard spectrum", 2, "Amplitude Spectrum (standard)", "Frequency (Hz)",
            "%.0f", {1, 0, 1, 1});
        stimulusRow("deviant spectrum", 3, "Amplitude Spectrum (Deviant)", "Frequency (Hz)", "%.0f",
            {1, 1, 1, 1});
        addRow("trend", 4, "Response Trend", "Number of Trials", "Modulation Depth (%)", "", "%.0f",
            false, 2, "trend", true, 400, Cell {2, 0, 1, 2});
    }

    static void stimulusRow(const char* row, int chart, const char* title, const char* titleX,
        const char* formatX, const Cell& cell)
    {
        QTest::newRow(row) << chart << title << titleX << "Amplitude" << formatX << "" << true
                           << QValueAxis().tickCount() << "" << false << 200 << cell;
    }

    static ChartObjects fetched(MainWindow& window)
    {
        QFETCH(int, chart);
        return allCharts(window)[chart];
    }
};

QUORIN_TEST(TestChartSettings);
#include "tst_chart_settings.moc"
