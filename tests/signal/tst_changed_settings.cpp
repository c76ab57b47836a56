// SPDX-License-Identifier: GPL-3.0-or-later
// What follows a duration or a sampling rate that was changed on the panel, and what stays as the
// window made it.
#include "charts/ChartObjects.h"
#include "support/WindowTest.h"

#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

class TestChangedSettings : public WindowTest {
    Q_OBJECT

private slots:
    void spectrumSizesAndFrequencyAxes_stay_data() { changes(); }

    void spectrumSizesAndFrequencyAxes_stay()
    {
        MainWindow window;
        change(window);
        QCOMPARE(Probe::fftLength(window), QVector<qint64>({32768, 32768}));
        QCOMPARE(Probe::data(window).nFreqPointsToPlot, QVector<int>({1638, 1638}));
        for (const int i : {standard, deviant}) {
            QCOMPARE(spectrumChart(window, i).series->count(), 1638);
            verifyRange(spectrumChart(window, i).axisX, 0.0, 2000.0);
        }
    }

    void transformDurations_followTheRateAlone_data() { changes(); }

    void transformDurations_followTheRateAlone()
    {
        MainWindow window;
        const double fs = change(window);
        const QVector<double>& duration = Probe::fftDuration(window);
        const QVector<double>& resolution = Probe::frequencyResolution(window);
        for (const int i : {standard, deviant}) {
            QCOMPARE(duration[i], 32768 / fs);
            QCOMPARE(resolution[i], fs / 32768);
        }
        QCOMPARE(Probe::frequencyAxis(window).size(), 16384);
        QCOMPARE(Probe::frequencyAxis(window)[819], 819 * fs / 32768);
        QCOMPARE(Probe::frequencyAxis(window).last(), 16383 * fs / 32768);
        QCOMPARE(Probe::stimuli(window)[standard].spectrumPoints.last().x(), 1637 * fs / 32768);
    }

    void soundsAndTimes_follow_data() { changes(); }

    void soundsAndTimes_follow()
    {
        QFETCH(QVector<int>, nSamples);
        QFETCH(QVector<int>, nPlotted);
        MainWindow window;
        const double fs = change(window);
        QCOMPARE(Probe::data(window).nSamples, nSamples);
        QCOMPARE(Probe::data(window).nPointsToPlot, nPlotted);
        for (const int i : {standard, deviant}) {
            QCOMPARE(Probe::stimuli(window)[i].samples.size(), nSamples[i]);
            QCOMPARE(waveChart(window, i).series->count(), nPlotted[i]);
            QCOMPARE(waveChart(window, i).axisX->max(), nPlotted[i] / fs * 1000.0);
        }
    }

private:
    static void changes()
    {
        addColumns<QString, QString, QString, QVector<int>, QVector<int>>(
            "standardMs", "deviantMs", "rate", "nSamples", "nPlotted");
        addRow("nothing", "600", "600", "40000", QVector<int>({24000, 24000}),
            QVector<int>({2000, 2000}));
        addRow("durations", "300", "1200", "40000", QVector<int>({12000, 48000}),
            QVector<int>({2000, 2000}));
        addRow("a duration below the plotted stretch", "20", "43", "40000",
            QVector<int>({800, 1719}), QVector<int>({800, 1719}));
        addRow("rate", "600", "600", "22050", QVector<int>({13230, 13230}),
            QVector<int>({1102, 1102}));
        addRow("both", "300", "1200", "8000", QVector<int>({2400, 9600}), QVector<int>({400, 400}));
    }

    // Types the row's settings and presses View; returns the rate.
    static double change(MainWindow& window)
    {
        QFETCH(QString, standardMs);
        QFETCH(QString, deviantMs);
        QFETCH(QString, rate);
        type(window, "lineEditStdDuration", standardMs);
        type(window, "lineEditDevDuration", deviantMs);
        type(window, "lineEditSamplingRate", rate);
        window.on_pushButtonView_clicked();
        return rate.toDouble();
    }
};

QUORIN_TEST(TestChangedSettings);
#include "tst_changed_settings.moc"
