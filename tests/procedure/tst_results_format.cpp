// SPDX-License-Identifier: GPL-3.0-or-later
// The heading and the lines of a results file.
#include "procedure/Records.h"
#include "procedure/ResultsFormat.h"
#include "support/QuietTest.h"

#include <cmath>

using namespace quorin;

namespace {

constexpr auto differenceHeader
    = "frequency difference (Hz)\tstimulus position\tresponse position\tcorrectness\treaction time "
      "(ms)";
constexpr auto depthHeader
    = "modulation depth (%)\tstimulus position\tresponse position\tcorrectness\treaction time (ms)";

Data dataWith(int mainParameter, const QVector<Record>& records)
{
    Data data;
    data.mainParameter = mainParameter;
    data.records = records;
    return data;
}

} // namespace

class TestResultsFormat : public QuietTest {
    Q_OBJECT

private slots:
    void header_namesTheAdaptedParameter()
    {
        QCOMPARE(resultsHeader(carrierFrequencyParameter), QString(differenceHeader));
        QCOMPARE(resultsHeader(modulationDepthParameter), QString(depthHeader));
    }

    void header_isEmpty_forAnyOtherParameter()
    {
        QCOMPARE(resultsHeader(-1), QString());
        QCOMPARE(resultsHeader(2), QString());
    }

    void value_hasSixDecimals_data()
    {
        addColumns<int, double, double, QString>("mainParameter", "value", "carrier", "expected");
        const int depth = modulationDepthParameter;
        const int difference = carrierFrequencyParameter;
        QTest::newRow("half depth") << depth << 0.5 << 1000.0 << "50.000000";
        QTest::newRow("full depth") << depth << 1.0 << 1000.0 << "100.000000";
        QTest::newRow("zero") << depth << 0.0 << 1000.0 << "0.000000";
        QTest::newRow("one third") << depth << 1.0 / 3 << 1000.0 << "33.333333";
        QTest::newRow("rounded up") << depth << 2.0 / 3 << 1000.0 << "66.666667";
        QTest::newRow("below the last decimal") << depth << 1e-12 << 1000.0 << "0.000000";
        QTest::newRow("difference") << difference << 0.05 << 1000.0 << "50.000000";
        QTest::newRow("difference of another carrier")
            << difference << 0.25 << 333.5 << "83.375000";
        QTest::newRow("no exponent") << difference << 0.5 << 2e15 << "1000000000000000.000000";
        QTest::newRow("a tie as Qt rounds it") << difference << 0.0078125 << 1.0 << "0.007813";
        QTest::newRow("not a number") << depth << std::nan("") << 1000.0 << "nan";
    }

    void value_hasSixDecimals()
    {
        QFETCH(int, mainParameter);
        QFETCH(double, value);
        QFETCH(double, carrier);
        Data data = dataWith(mainParameter, {answered(true, value)});
        data.cf[standard] = carrier;
        QTEST(QString(resultsBytes(data)).section("\r\n", 1, 1).section('\t', 0, 0), "expected");
    }

    void reactionTime_hasUpToSixDigits_data()
    {
        addColumns<double, QByteArray>("reactionTime", "expected");
        QTest::newRow("whole milliseconds") << 734.0 << QByteArray("734");
        QTest::newRow("zero") << 0.0 << QByteArray("0");
        QTest::newRow("fraction") << 734.25 << QByteArray("734.25");
        QTest::newRow("six digits") << 1234.567 << QByteArray("1234.57");
        QTest::newRow("the last without exponent") << 999999.0 << QByteArray("999999");
        QTest::newRow("the first with exponent") << 1000000.0 << QByteArray("1e+06");
        QTest::newRow("more digits than six") << 1234567.0 << QByteArray("1.23457e+06");
    }

    void reactionTime_hasUpToSixDigits()
    {
        QFETCH(double, reactionTime);
        QFETCH(QByteArray, expected);
        const Data data = dataWith(modulationDepthParameter, {answered(true, 0.5, reactionTime)});
        QCOMPARE(resultsBytes(data),
            depthHeader + QByteArray("\r\n50.000000\t2\t2\t1\t") + expected + "\r\n");
    }

    void lines_followTheOrderOfTheTrials()
    {
        QVector<Record> records {answered(true, 0.05, 734), answered(false, 0.04, 65)};
        records[1].stimulusPosition = 3;
        records[1].responsePosition = 4;
        Data data = dataWith(carrierFrequencyParameter, records);
        data.cf = {2000.0, 7.0};
        QCOMPARE(resultsBytes(data),
            differenceHeader
                + QByteArray("\r\n100.000000\t2\t2\t1\t734\r\n80.000000\t3\t4\t0\t65\r\n"));
    }

    void nothingIsWritten_withoutRecords()
    {
        QCOMPARE(resultsBytes(dataWith(carrierFrequencyParameter, {})), QByteArray());
        QCOMPARE(resultsBytes(dataWith(modulationDepthParameter, {})), QByteArray());
    }

    void nothingIsWritten_forAnyOtherParameter()
    {
        QCOMPARE(resultsBytes(dataWith(2, {answered(true, 0.5, 734)})), QByteArray());
        QCOMPARE(resultsBytes(dataWith(-1, {answered(true, 0.5, 734)})), QByteArray());
    }

    void numbers_areTheSame_inEveryLocale()
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        Data data = dataWith(carrierFrequencyParameter, {answered(true, 1.0, 7340.5)});
        data.cf[standard] = 12345.5;
        QCOMPARE(resultsBytes(data),
            differenceHeader + QByteArray("\r\n12345.500000\t2\t2\t1\t7340.5\r\n"));
    }
};

QUORIN_GUILESS_TEST(TestResultsFormat);
#include "tst_results_format.moc"
