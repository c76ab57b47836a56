// SPDX-License-Identifier: GPL-3.0-or-later
// How numbers are shown in the panel and read back.
#include "session/PanelNumbers.h"
#include "support/QuietTest.h"

#include <cmath>

namespace {

// The panel's conversions keep every bit: a comparison with a tolerance would hide a product by a
// reciprocal.
bool areSame(double a, double b)
{
    return a == b;
}

} // namespace

class TestPanelNumbers : public QuietTest {
    Q_OBJECT

private slots:
    void number_isShownSo_whenFormatted_data()
    {
        addColumns<QString, QString>("shown", "expected");
        QTest::newRow("frequency") << shownFrequency(1000.0) << "1000.00";
        QTest::newRow("frequency, rounded") << shownFrequency(949.996) << "950.00";
        QTest::newRow("frequency, negative") << shownFrequency(-40.0) << "-40.00";
        QTest::newRow("frequency, large") << shownFrequency(1e15) << "1000000000000000.00";
        QTest::newRow("depth in percent") << shownDepth(0.5) << "50.0000";
        QTest::newRow("depth 0") << shownDepth(0.0) << "0.0000";
        QTest::newRow("depth, four decimals") << shownDepth(0.39716411736214075) << "39.7164";
        QTest::newRow("difference in Hz") << shownDifference(0.05, 1000.0) << "50.0000";
        QTest::newRow("difference, other carrier") << shownDifference(0.05, 2000.0) << "100.0000";
        QTest::newRow("difference, four decimals")
            << shownDifference(0.0333333333, 1000.0) << "33.3333";
        QTest::newRow("duration in ms") << shownDuration(0.6) << "600.00";
        QTest::newRow("duration, two decimals") << shownDuration(0.0431251) << "43.13";
        QTest::newRow("rate") << shownRate(40000.0) << "40000";
        QTest::newRow("rate, six digits") << shownRate(44100.24) << "44100.2";
        QTest::newRow("rate, a tie is rounded up") << shownRate(44100.25) << "44100.3";
        QTest::newRow("rate, seven digits") << shownRate(1234567.0) << "1.23457e+06";
        QTest::newRow("rate 0") << shownRate(0.0) << "0";
        QTest::newRow("integer") << shownInteger(14) << "14";
        QTest::newRow("integer, negative") << shownInteger(-3) << "-3";
        QTest::newRow("integer, large") << shownInteger(2147483647) << "2147483647";
    }

    void number_isShownSo_whenFormatted()
    {
        QFETCH(QString, shown);
        QTEST(shown, "expected");
    }

    void text_readsAsThis_whenItIsANumber()
    {
        QVERIFY(areSame(readFrequency("1000.25"), 1000.25));
        QVERIFY(areSame(readDepth("35"), 35.0 / 100.0));
        QVERIFY(areSame(readDepth("57.3"), 57.3 / 100.0));
        QVERIFY(areSame(readDifference("3", 1000.0), 3.0 / 1000.0));
        QVERIFY(areSame(readDifference("77.7", 49.0), 77.7 / 49.0));
        QVERIFY(areSame(readDuration("43"), 43.0 / 1000.0));
        QVERIFY(areSame(readDuration("64.1"), 64.1 / 1000.0));
        QVERIFY(areSame(readFrequency("44100"), 44100.0));
        QCOMPARE(readInteger("14"), 14);
        QCOMPARE(readInteger("-3"), -3);
    }

    void text_readsAsThis_whenItIsWrittenUnusually()
    {
        QCOMPARE(readFrequency(" 12.5 "), 12.5);
        QCOMPARE(readFrequency("1e3"), 1000.0);
        QCOMPARE(readFrequency("-5"), -5.0);
        QCOMPARE(readFrequency("+5"), 5.0);
        QCOMPARE(readInteger(" 7 "), 7);
        QCOMPARE(readInteger("+7"), 7);
        QCOMPARE(readInteger("007"), 7);
    }

    void text_readsAsZero_whenItIsNoNumber_data()
    {
        QTest::addColumn<QString>("text");
        for (const char* text : {"", " ", "abc", "12abc", "1,5", "1.000,5", "1 000", "--1", "0x10"})
            QTest::newRow(text) << text;
        QTest::newRow("other digits") << QString::fromUtf8("\xd9\xa1\xd9\xa2");
    }

    void text_readsAsZero_whenItIsNoNumber()
    {
        QFETCH(QString, text);
        QCOMPARE(readFrequency(text), 0.0);
        QCOMPARE(readDepth(text), 0.0);
        QCOMPARE(readDifference(text, 1000.0), 0.0);
        QCOMPARE(readDuration(text), 0.0);
        QCOMPARE(readFrequency(text), 0.0);
        QCOMPARE(readInteger(text), 0);
    }

    void integer_isZero_whenTheTextIsAnotherKindOfNumber()
    {
        QCOMPARE(readInteger("12.5"), 0);
        QCOMPARE(readInteger("1e3"), 0);
        QCOMPARE(readInteger("2147483648"), 0);
        QCOMPARE(readInteger("-2147483649"), 0);
    }

    void difference_isNotFinite_whenTheCarrierIsZero()
    {
        QVERIFY(std::isinf(readDifference("100", 0.0)));
        QVERIFY(std::isnan(readDifference("0", 0.0)));
    }

    void numbers_stayTheSame_whenTheLocaleIsAnother()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(shownFrequency(1000.5), QString("1000.50"));
        QCOMPARE(shownRate(1234567.0), QString("1.23457e+06"));
        QCOMPARE(shownInteger(10000), QString("10000"));
        QCOMPARE(readFrequency("1000.5"), 1000.5);
        QCOMPARE(readFrequency("1000,5"), 0.0);
        QCOMPARE(readInteger("10.000"), 0);
    }
};

QUORIN_GUILESS_TEST(TestPanelNumbers);
#include "tst_panel_numbers.moc"
