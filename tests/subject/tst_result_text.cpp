// SPDX-License-Identifier: GPL-3.0-or-later
// The text that tells the listener the result.
#include "subject/ResultText.h"
#include "support/QuietTest.h"

class TestResultText : public QuietTest {
    Q_OBJECT

private slots:
    void text_namesThresholdAndReactionTime_data()
    {
        addColumns<double, double, int, QString>(
            "threshold", "reactionTime", "mainParameter", "text");
        const QString nan("Frequency Difference = nan Hz,   Reaction Time = nan ms");
        addRow("depth, in percent", 0.125, 734.5, 1,
            "Modulation Threshold = 12.5 %,   Reaction Time = 734.5 ms");
        addRow("difference, in hertz", 0.002, 500.0, 0,
            "Frequency Difference = 2 Hz,   Reaction Time = 500 ms");
        addRow("six significant digits", 0.123456789, 1234.56789, 1,
            "Modulation Threshold = 12.3457 %,   Reaction Time = 1234.57 ms");
        addRow("exponents", 1e-7, 12345678.0, 0,
            "Frequency Difference = 0.0001 Hz,   Reaction Time = 1.23457e+07 ms");
        addRow("no number", qQNaN(), qQNaN(), 0, nan);
        addRow("unknown parameter", 0.5, 500.0, 2, QString(""));
        addRow("no parameter", 0.5, 500.0, -1, QString(""));
    }

    void text_namesThresholdAndReactionTime()
    {
        QFETCH(double, threshold);
        QFETCH(double, reactionTime);
        QFETCH(int, mainParameter);
        QFETCH(QString, text);
        QCOMPARE(resultText(threshold, reactionTime, mainParameter, 1000.0), text);
        QLocale::setDefault(QLocale(QLocale::German));
        QCOMPARE(resultText(threshold, reactionTime, mainParameter, 1000.0), text);
    }

    void difference_scalesWithTheStandardsCarrier()
    {
        QCOMPARE(resultText(0.05, 500.0, 0, 440.0),
            "Frequency Difference = 22 Hz,   Reaction Time = 500 ms");
    }
};

QUORIN_GUILESS_TEST(TestResultText);
#include "tst_result_text.moc"
