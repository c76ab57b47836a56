// SPDX-License-Identifier: GPL-3.0-or-later
// Results files that are read, and damaged ones that are refused.
#include "SimulatedRun.h"
#include "procedure/Records.h"
#include "report/ResultsReader.h"
#include "support/QuietTest.h"

#include <cmath>
#include <limits>

using namespace quorin;

namespace {

const QByteArray header("modulation depth (%)\tstimulus position\tresponse position\tcorrectness\t"
                        "reaction time (ms)\r\n");
const QByteArray otherHeader("frequency difference (Hz)\tstimulus position\tresponse position\t"
                             "correctness\treaction time (ms)\r\n");
const QByteArray good("50.000000\t2\t2\t1\t734\r\n");

// The complaint about a file as line and text; "0 " means that there is none.
QString complaintOf(const QByteArray& bytes)
{
    const Complaint complaint = readResults(bytes).complaint;
    return QString::number(complaint.line) + ' ' + complaint.text;
}

} // namespace

class TestResultsReader : public QuietTest {
    Q_OBJECT

private slots:
    void records_areThoseOfTheFile()
    {
        const ResultsReading reading = readResults(header + good + "25.125000\t3\t2\t0\t65.5\r\n");
        QCOMPARE(reading.complaint.text, QString());
        QCOMPARE(reading.complaint.line, 0);
        QCOMPARE(reading.mainParameter, modulationDepthParameter);
        QCOMPARE(reading.records.size(), 2);
        QCOMPARE(reading.records[0].value, 50.0);
        QCOMPARE(reading.records[0].stimulusPosition, 2);
        QCOMPARE(reading.records[0].responsePosition, 2);
        QCOMPARE(reading.records[0].correctness, true);
        QCOMPARE(reading.records[0].reactionTime, 734.0);
        QCOMPARE(reading.records[1].value, 25.125);
        QCOMPARE(reading.records[1].stimulusPosition, 3);
        QCOMPARE(reading.records[1].responsePosition, 2);
        QCOMPARE(reading.records[1].correctness, false);
        QCOMPARE(reading.records[1].reactionTime, 65.5);
    }

    void mainParameter_isThatOfTheHeader()
    {
        QCOMPARE(readResults(otherHeader + good).mainParameter, carrierFrequencyParameter);
    }

    void lines_mayAllEndInLineFeeds()
    {
        const ResultsReading reading
            = readResults(QByteArray(header + good + good).replace("\r\n", "\n"));
        QCOMPARE(reading.complaint.text, QString());
        QCOMPARE(reading.records.size(), 2);
    }

    void whateverIsWritten_isRead_data()
    {
        addColumns<double, double>("value", "reactionTime");
        addRow("ordinary", 0.123456789, 734.0);
        addRow("zero", 0.0, 0.0);
        addRow("rounds to zero from below", -1e-12, 0.25);
        addRow("negative", -0.5, 999999.0);
        addRow("large", 123456789.01234567, 1e6);
        addRow("beyond the digits of a double", 1.7e22, 1234567.0);
        addRow("largest", std::numeric_limits<double>::max(), 1e15);
        addRow("not a number", std::nan(""), 1234.567);
        addRow("infinite", std::numeric_limits<double>::infinity(), 1e-5);
        addRow("negative infinite", -std::numeric_limits<double>::infinity(), 1e300);
    }

    void whateverIsWritten_isRead()
    {
        QFETCH(double, value);
        QFETCH(double, reactionTime);
        Data data;
        data.mainParameter = carrierFrequencyParameter;
        data.cf[standard] = 1.0; // values are written as they are
        data.records = {answered(false, value, reactionTime), answered(true, value, reactionTime)};
        const QByteArray written = resultsBytes(data);
        const ResultsReading reading = readResults(written);
        QCOMPARE(reading.complaint.text, QString());

        data.records = reading.records;
        // -0.000000 is read as 0, which has no sign
        QCOMPARE(resultsBytes(data).replace("-0.000000", "0.000000"),
            QByteArray(written).replace("-0.000000", "0.000000"));
    }

    void secondHeader_isTold_andTheTrialsBelowItAreRead()
    {
        const ResultsReading reading
            = readResults(header + good + header + good + good + header + good);
        QCOMPARE(reading.complaint.text, QString());
        QCOMPARE(reading.secondHeader.line, 3);
        QCOMPARE(reading.secondHeader.text,
            QString("a second header: there is more than one run in the file"));
        QCOMPARE(reading.records.size(), 4);
        QCOMPARE(reading.lines, QVector<int>({2, 4, 5, 7}));
    }

    void damagedFile_isRefused_data()
    {
        addColumns<QByteArray, QString>("file", "complaint");
        const auto line = [](const char* text) { return header + good + text + "\r\n" + good; };
        const QByteArray noEnd = header + good + "25.000000\t2\t2\t1\t73";

        addRow("empty", QByteArray(), "1 the file is empty");
        addRow("header only", header, "1 there are no trials");
        addRow(
            "header cut short", header.chopped(2), "1 the line has no end: the file is cut short");
        addRow("another text", QByteArray("Dear all,\r\n"),
            "1 not a results file: the first line is no header of one");
        addRow("byte order mark", QByteArray("\xef\xbb\xbf") + header + good,
            "1 the file begins with a byte order mark: an editor saved it as UTF-8 with BOM");
        const QString wide = QString::fromLatin1(header + good);
        const QByteArray utf16(reinterpret_cast<const char*>(wide.utf16()), 2 * wide.size());
        addRow("UTF-16", utf16, "1 the file is in UTF-16: an editor saved it in another encoding");
        addRow("UTF-16 with a mark", "\xff\xfe" + utf16,
            "1 the file is in UTF-16: an editor saved it in another encoding");
        addRow("CR alone", QByteArray(header + good).replace("\r\n", "\r"),
            "1 the lines end in CR alone: an old editor changed the file");
        addRow("commas for tabs", QByteArray(header + good).replace('\t', ','),
            "1 the columns are parted by commas or semicolons, not by tabs: a spreadsheet "
            "changed the file");
        addRow("semicolons for tabs", QByteArray(header + good).replace('\t', ';'),
            "1 the columns are parted by commas or semicolons, not by tabs: a spreadsheet "
            "changed the file");
        addRow("blanks for all tabs", QByteArray(header + good).replace('\t', "    "),
            "1 there are blanks in the place of tabs: an editor changed the file");
        addRow("zeros", QByteArray(100000, '\0'),
            "1 not a results file: the first line is no header of one");
        addRow(
            "without a header", good, "1 not a results file: the first line is no header of one");
        addRow("last line cut short", noEnd, "3 the line has no end: the file is cut short");
        addRow("second header of the other kind", header + good + otherHeader + good,
            "3 a second header: there is more than one run in the file");
        addRow("other line end", header + good + "25.000000\t2\t2\t1\t73\n" + good,
            "3 the line ends otherwise than the first");
        addRow("empty line", line(""), "3 5 columns are needed, not 1");
        addRow("column missing", line("25.000000\t2\t2\t1"), "3 5 columns are needed, not 4");
        addRow(
            "column too many", line("25.000000\t2\t2\t1\t73\t"), "3 5 columns are needed, not 6");
        addRow("blanks for tabs", line("25.000000 2 2 1 73"),
            "3 there are blanks in the place of tabs: an editor changed the line");
        addRow("last line damaged", header + good + "25.000000\t2\t2\t1\t7x\r\n",
            "3 \"7x\" is not a reaction time in ms");
    }

    void damagedFile_isRefused()
    {
        QFETCH(QByteArray, file);
        QTEST(complaintOf(file), "complaint");
    }

    void damagedField_isRefused_data()
    {
        addColumns<QByteArray, QString>("file", "complaint");
        const auto line = [](const char* text) { return header + good + text + "\r\n" + good; };

        addRow("value without decimals", line("25\t2\t2\t1\t73"),
            "3 \"25\" is not a value with 6 decimals");
        addRow("value with a comma", line("25,000000\t2\t2\t1\t73"),
            "3 \"25,000000\" has a decimal comma: a "
            "spreadsheet or an editor changed the file");
        addRow("value with an exponent", line("2.5e1\t2\t2\t1\t73"),
            "3 \"2.5e1\" is not a value with 6 decimals");
        addRow("value in capitals", line("NAN\t2\t2\t1\t73"),
            "3 \"NAN\" is not a value with 6 decimals");
        addRow("value with a blank", line(" 25.000000\t2\t2\t1\t73"),
            "3 \" 25.000000\" is not a value with 6 decimals");
        addRow("no value", line("\t2\t2\t1\t73"), "3 \"\" is not a value with 6 decimals");
        addRow("long value", line("123456789012345678901234567890123\t2\t2\t1\t73"),
            "3 \"123456789012345678901234567890...\" is not a value with 6 decimals");
        addRow("stimulus position 5", line("25.000000\t5\t2\t0\t73"),
            "3 \"5\" is not a position from 1 to 4");
        addRow("response position 0", line("25.000000\t2\t0\t0\t73"),
            "3 \"0\" is not a position from 1 to 4");
        addRow("position of two digits", line("25.000000\t02\t2\t1\t73"),
            "3 \"02\" is not a position from 1 to 4");
        addRow(
            "no position", line("25.000000\t2\t\t1\t73"), "3 \"\" is not a position from 1 to 4");
        addRow("correct by word", line("25.000000\t2\t2\ttrue\t73"),
            "3 \"true\" is not a correctness, 0 or 1");
        addRow("negative reaction time", line("25.000000\t2\t2\t1\t-73"),
            "3 \"-73\" is not a reaction time in ms");
        addRow("infinite reaction time", line("25.000000\t2\t2\t1\tinf"),
            "3 \"inf\" is not a reaction time in ms");
        addRow("seven digits", line("25.000000\t2\t2\t1\t1234567"),
            "3 \"1234567\" is not a reaction time in ms");
        addRow("no reaction time", line("25.000000\t2\t2\t1\t"),
            "3 \"\" is not a reaction time in ms");
    }

    void damagedField_isRefused() { damagedFile_isRefused(); }

    void correctness_isThatOfTheFile_whateverThePositions()
    {
        const ResultsReading reading
            = readResults(header + "25.000000\t2\t3\t1\t73\r\n25.000000\t2\t2\t0\t73\r\n");
        QCOMPARE(reading.complaint.text, QString());
        QCOMPARE(reading.records[0].correctness, true);
        QCOMPARE(reading.records[1].correctness, false);
    }

    void zeroByte_isDamage_inEveryColumn()
    {
        for (const int place : {0, 5, 10, 12, 14, 18}) {
            QByteArray damaged = good;
            damaged.insert(place, '\0');
            QCOMPARE(readResults(header + damaged).complaint.line, 2);
        }
    }

    void line_isTooLong_beyond4096Bytes()
    {
        const QByteArray rest("\t2\t2\t1\t73\r\n");
        const QByteArray longest = QByteArray(4096 - rest.size(), '1') + rest;
        QVERIFY(complaintOf(header + longest).endsWith("is not a value with 6 decimals"));
        QCOMPARE(
            complaintOf(header + '1' + longest), QString("2 the line is longer than 4096 bytes"));
    }

    void trials_areTooMany_beyond100000()
    {
        QCOMPARE(complaintOf(header + good.repeated(100001)),
            QString("100002 there are more than 100000 trials"));
    }
};

QUORIN_GUILESS_TEST(TestResultsReader);
#include "tst_results_reader.moc"
