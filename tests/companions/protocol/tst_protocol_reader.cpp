// SPDX-License-Identifier: GPL-3.0-or-later
// Protocols that are read, and files and headings that are refused.
#include "ProtocolTexts.h"
#include "protocol/ProtocolColumns.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace quorin;

namespace {

QByteArray utf16(const QByteArray& text, bool hasMark)
{
    const QString wide = (hasMark ? QString(QChar::ByteOrderMark) : QString()) + QString(text);
    return {reinterpret_cast<const char*>(wide.utf16()), 2 * wide.size()};
}

} // namespace

class TestProtocolReader : public QuietTest {
    Q_OBJECT

private slots:
    void rows_areThoseOfTheFile()
    {
        const Protocol protocol = readProtocol("Repeat, SESSION ,break,instruction,practice\r\n"
                                               "3,12,no,\"Listen, please.\nWhich differs?\",\r\n"
                                               "\r\n"
                                               ", 2 ,yes,  ,yes\r\n"
                                               ",,Get some \xc3\xa9gg,,no");
        QCOMPARE(protocol.complaints.size(), 0);
        QCOMPARE(protocol.rows.size(), 3);
        QCOMPARE(protocol.rows[0].line, 2);
        QCOMPARE(protocol.rows[0].repeat, 3);
        QCOMPARE(protocol.rows[0].isPractice, false);
        QCOMPARE(protocol.rows[0].breakText, QString());
        QCOMPARE(protocol.rows[0].instruction, QString("Listen, please.\nWhich differs?"));
        QCOMPARE(protocol.rows[0].texts[sessionColumn], QString("12"));
        QCOMPARE(protocol.rows[1].line, 5);
        QCOMPARE(protocol.rows[1].repeat, 1);
        QCOMPARE(protocol.rows[1].isPractice, true);
        QCOMPARE(protocol.rows[1].breakText, QString("Break"));
        QCOMPARE(protocol.rows[1].instruction, QString());
        QCOMPARE(protocol.rows[1].texts[sessionColumn], QString("2"));
        QCOMPARE(protocol.rows[2].line, 6);
        QCOMPARE(protocol.rows[2].breakText, QString::fromUtf8("Get some \xc3\xa9gg"));
        QCOMPARE(protocol.rows[2].texts[sessionColumn], QString("1"));
    }

    void byteOrderMark_isTaken()
    {
        const Protocol protocol = readProtocol("\xef\xbb\xbfsession\n7\n");
        QCOMPARE(protocol.complaints.size(), 0);
        QCOMPARE(protocol.rows[0].texts[sessionColumn], QString("7"));
    }

    void damagedFile_isRefused_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("complaints");
        const QByteArray good = "session,repeat\n1,2\n";

        QTest::newRow("empty") << QByteArray() << "the file is empty";
        QTest::newRow("only a mark") << QByteArray("\xef\xbb\xbf") << "the file is empty";
        QTest::newRow("only empty lines") << QByteArray("\n\r\n\n") << "the file is empty";
        QTest::newRow("headings only") << QByteArray("session,repeat\n") << "there are no runs";
        QTest::newRow("large") << QByteArray((1 << 20) + 1, '\n')
                               << "the file is larger than 1048576 bytes";
        QTest::newRow("UTF-16 with a mark")
            << utf16(good, true) << "the file is in UTF-16: save it as CSV in UTF-8";
        QTest::newRow("UTF-16 without a mark")
            << utf16(good, false) << "the file is in UTF-16: save it as CSV in UTF-8";
        QTest::newRow("semicolons")
            << QByteArray(good).replace(',', ';')
            << "line 1: the columns are parted by semicolons, not by commas: a spreadsheet saved "
               "the file so";
        QTest::newRow("tabs") << QByteArray(good).replace(',', '\t')
                              << "line 1: the columns are parted by tabs, not by commas: a "
                                 "spreadsheet saved the file so";
        QTest::newRow("blanks") << QByteArray(good).replace(',', "  ")
                                << "line 1: there are blanks in the place of commas: an editor "
                                   "changed the file";
        QTest::newRow("CR") << QByteArray(good).replace('\n', '\r')
                            << "line 1, column 2: there is a CR without LF: lines must end in "
                               "LF or CR LF";
        QTest::newRow("CR below the headings")
            << QByteArray("session,repeat\n1,2\r3,4\n")
            << "line 2, column \"repeat\": there is a CR without LF: lines must end in LF or CR LF";
        QTest::newRow("open quotation mark")
            << QByteArray("session,instruction\n1,\"a\n2,b\n")
            << "line 2, column \"instruction\": the quotation mark is never closed";
        QTest::newRow("mark inside, in a third cell")
            << QByteArray("session,repeat\n1,2,a\"b\n")
            << "line 2, column 3: there is a quotation mark inside: such a cell stands in "
               "quotation marks, "
               "and the one inside is written twice";
        QTest::newRow("text behind a mark")
            << QByteArray("instruction\n\"a\" b\n")
            << "line 2, column \"instruction\": there is text behind the closing quotation mark: "
               "a quotation mark inside is written twice";
    }

    void damagedFile_isRefused()
    {
        QFETCH(QByteArray, file);
        QTEST(complaintsOf(file), "complaints");
        QCOMPARE(readProtocol(file).rows.size(), 0);
    }

    void wrongByte_isToldWithItsCell_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("complaints");
        const QString isNotUtf8
            = "there are bytes that are not UTF-8: save the file as CSV in UTF-8";
        QTest::newRow("Latin-1") << QByteArray("instruction\nH\xf6ren\n")
                                 << "line 2, column 1: there are bytes that are not UTF-8: save "
                                    "the file as CSV in UTF-8";
        QTest::newRow("cut UTF-8") << QByteArray("instruction\na\nb\xc3")
                                   << "line 3, column 1: there are bytes that are not UTF-8: save "
                                      "the file as CSV in UTF-8";
        QTest::newRow("zero byte") << QByteArray("session\n1\0\n",
            10) << "line 2, column 1: there is a zero byte: this is not a text file";
        QTest::newRow("Latin-1 behind a comma in quotation marks")
            << QByteArray("repeat,instruction\n1,\"a, \"\"b\"\"\nH\xf6ren\"\n")
            << "line 3, column 2: " + isNotUtf8;
        QTest::newRow("Latin-1 before a comma")
            << QByteArray("instruction,repeat\n\xc3\xb6\xc3,1\n")
            << "line 2, column 1: " + isNotUtf8;
        QTest::newRow("Latin-1 in a heading behind a mark")
            << QByteArray("\xef\xbb\xbf\"session\",H\xf6\n") << "line 1, column 2: " + isNotUtf8;
        QTest::newRow("Latin-1 behind a damaged cell")
            << QByteArray("session,repeat\n1,a\"b\n2,\xf6\n") << "line 3: " + isNotUtf8;
        QTest::newRow("zero byte in an empty cell") << QByteArray("session,repeat\n1,\0,\n",
            20) << "line 2, column 2: there is a zero byte: this is not a text file";
    }

    void wrongByte_isToldWithItsCell() { damagedFile_isRefused(); }

    void headings_areRefused_data()
    {
        QTest::addColumn<QByteArray>("headings");
        QTest::addColumn<QString>("complaints");
        QTest::newRow("unknown") << QByteArray("session,level")
                                 << "line 1, column \"level\": there is no such column";
        QTest::newRow("not the first line")
            << QByteArray("\n\nlevel") << "line 3, column \"level\": there is no such column";
        QTest::newRow("doubled") << QByteArray("session,repeat,Session")
                                 << "line 1, column \"Session\": there is a second column of this "
                                    "name";
        QTest::newRow("empty")
            << QByteArray("session,,repeat,")
            << "line 1: column 2 has no heading\nline 1: column 4 has no heading";
        QTest::newRow("without its unit")
            << QByteArray("Standard duration")
            << "line 1, column \"Standard duration\": there is no such column: it is called "
               "\"standard duration (ms)\"";
        QTest::newRow("subject") << QByteArray("Subject code")
                                 << "line 1, column \"Subject code\": one protocol is for all "
                                    "subjects: the subject is given at the start of the session";
        QTest::newRow("files") << QByteArray("filepath,filename")
                               << "line 1, column \"filepath\": the session chooses where its "
                                  "files go\nline 1, column \"filename\": the session chooses "
                                  "where its files go";
        QTest::newRow("long") << QByteArray(
            41, 'x') << "line 1, column \"" + QString(40, 'x') + "...\": there is no such column";
    }

    void headings_areRefused()
    {
        QFETCH(QByteArray, headings);
        QTEST(complaintsOf(headings + "\nbad,bad\n"), "complaints");
    }

    void rows_areRefused_data()
    {
        QTest::addColumn<QByteArray>("rows");
        QTest::addColumn<QString>("complaints");
        QTest::newRow("fewer cells")
            << QByteArray("1,2\n3\n") << "line 3, column \"repeat\": 2 cells are needed, not 1";
        QTest::newRow("more cells")
            << QByteArray("1,2,5\n")
            << "line 2, column 3: 2 cells are needed, not 3: there may be a decimal "
               "comma, or a comma in a text without quotation marks";
        QTest::newRow("empty cells") << QByteArray("1,2\n , \n")
                                     << "line 3: all cells are empty: remove the line, or write "
                                        "what is meant";
        QTest::newRow("every wrong cell is told")
            << QByteArray("a,b\n1,\"\n\n2,5\"\n2,0\n")
            << "line 2, column \"session\": \"a\" is not a whole number\n"
               "line 2, column \"repeat\": \"b\" is not a whole number\n"
               "line 3, column \"repeat\": \"2,5\" has a decimal comma: numbers have a point\n"
               "line 6, column \"repeat\": \"0\" is not from 1 to 1000";
        QTest::newRow("too many runs")
            << QByteArray("1,1000\n").repeated(10) + "1,\n1,\n"
            << "line 12, column \"repeat\": there are more than 10000 runs";
    }

    void rows_areRefused()
    {
        QFETCH(QByteArray, rows);
        QTEST(complaintsOf("session,repeat\n" + rows), "complaints");
        QCOMPARE(readProtocol("session,repeat\n" + rows).rows.size(), 0);
    }

    void tooManyRuns_haveNoColumn_whenNoneIsRepeated()
    {
        QCOMPARE(complaintsOf("session\n" + QByteArray("1\n").repeated(10001)),
            QString("line 10002: there are more than 10000 runs"));
    }

    void mostRuns_areTaken()
    {
        const Protocol protocol
            = readProtocol("session,repeat\n" + QByteArray("1,1000\n").repeated(10));
        QCOMPARE(protocol.complaints.size(), 0);
        QCOMPARE(protocol.rows.size(), 10);
    }
};

QUORIN_APPLESS_TEST(TestProtocolReader);
#include "tst_protocol_reader.moc"
