// SPDX-License-Identifier: GPL-3.0-or-later
// Rows and cells of comma-separated values.
#include "protocol/CsvParser.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

namespace {

// All cells as "line:text", those of a row parted by "|", rows by " / "; at last the error.
QString parsed(const QString& text)
{
    CsvParser parser(text);
    QStringList rows;
    QVector<CsvCell> row;
    while (parser.next(row)) {
        QStringList cells;
        for (const CsvCell& cell : qAsConst(row)) {
            cells.append(QString("%1:%2").arg(cell.line).arg(cell.text));
        }
        rows.append(cells.join('|'));
    }
    return rows.join(" / ") + parser.error();
}

} // namespace

class TestCsvParser : public QuietTest {
    Q_OBJECT

private slots:
    void cells_areThoseOfTheText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cells");
        QTest::newRow("nothing") << ""
                                 << "";
        QTest::newRow("one cell") << "a\n"
                                  << "1:a";
        QTest::newRow("no end of the last line") << "a,b\nc,d"
                                                 << "1:a|1:b / 2:c|2:d";
        QTest::newRow("CR LF") << "a,b\r\nc,d\r\n"
                               << "1:a|1:b / 2:c|2:d";
        QTest::newRow("mixed line ends") << "a\r\nb\nc\r\n"
                                         << "1:a / 2:b / 3:c";
        QTest::newRow("empty cells") << ",a,\n,,\n"
                                     << "1:|1:a|1: / 2:|2:|2:";
        QTest::newRow("empty lines") << "\n\r\na\n\n\nb\n\n"
                                     << "3:a / 6:b";
        QTest::newRow("blanks are kept") << " a , b \n"
                                         << "1: a |1: b ";
        QTest::newRow("quoted comma") << "\"a,b\",c\n"
                                      << "1:a,b|1:c";
        QTest::newRow("quoted quotation mark") << "\"say \"\"a\"\"\"\n"
                                               << "1:say \"a\"";
        QTest::newRow("quoted nothing") << "\"\",a\n\"\"\n"
                                        << "1:|1:a / 2:";
        QTest::newRow("quoted lines") << "\"a\r\nb\nc\",d\ne\n"
                                      << "1:a\nb\nc|3:d / 4:e";
        QTest::newRow("quoted CR") << "\"a\rb\"\n"
                                   << "1:a\rb";
        QTest::newRow("quoted at the end") << "a,\"b\""
                                           << "1:a|1:b";
    }

    void cells_areThoseOfTheText()
    {
        QFETCH(QString, text);
        QTEST(parsed(text), "cells");
    }

    void damage_isTold_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("nCells");
        QTest::addColumn<QString>("error");
        const QString cr = "there is a CR without LF: lines must end in LF or CR LF";
        const QString behind = "there is text behind the closing quotation mark: a quotation mark "
                               "inside is written twice";
        const QString inside = "there is a quotation mark inside: such a cell stands in quotation "
                               "marks, and the one inside is written twice";
        const QString open = "the quotation mark is never closed";
        QTest::newRow("CR") << "a,b\rc" << 1 << 2 << cr;
        QTest::newRow("CR at the beginning") << "\ra" << 1 << 1 << cr;
        QTest::newRow("CR behind a quoted cell") << "\"a\"\rb" << 1 << 1 << cr;
        QTest::newRow("CR at the end") << "a\r" << 1 << 1 << cr;
        QTest::newRow("text behind") << "\n\"a\"b,c\n" << 2 << 1 << behind;
        QTest::newRow("mark inside") << "x,y,a\"b\n" << 1 << 3 << inside;
        QTest::newRow("never closed") << "x,\"a,b\nc\n" << 1 << 2 << open;
        QTest::newRow("only a mark") << "\"" << 1 << 1 << open;
    }

    void damage_isTold()
    {
        QFETCH(QString, text);
        QFETCH(int, line);
        QFETCH(int, nCells);
        CsvParser parser(text);
        QVector<CsvCell> row;
        QVERIFY(!parser.next(row));
        QTEST(parser.error(), "error");
        QCOMPARE(row.size(), nCells);
        QCOMPARE(row.last().line, line);
        QVERIFY(!parser.next(row));
    }
};

QUORIN_APPLESS_TEST(TestCsvParser);
#include "tst_csv_parser.moc"
