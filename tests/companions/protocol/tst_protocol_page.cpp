// SPDX-License-Identifier: GPL-3.0-or-later
// What the page about protocols tells of their columns, and its example.
#include "ProtocolTexts.h"
#include "protocol/ProtocolColumns.h"
#include "protocol/RunSheet.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTest>

using namespace quorin;

namespace {

QByteArray document(const QString& name)
{
    QFile file(QString(DOCUMENTS) + '/' + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The cells of a table's line.
QStringList cellsOf(const QString& line)
{
    QStringList cells;
    for (const QString& cell : line.mid(1).split('|')) {
        cells.append(cell.trimmed());
    }
    return cells;
}

} // namespace

class TestProtocolPage : public QuietTest {
    Q_OBJECT

private slots:
    void table_listsEveryColumn_withItsDefault()
    {
        QStringList lines;
        for (const QString& line : QString::fromUtf8(document("protocols.md")).split('\n')) {
            if (line.startsWith("| `")) {
                lines.append(line);
            }
        }
        QCOMPARE(lines.size(), int(nProtocolColumns));
        const QVector<QString> texts = emptyRowTexts();
        for (int column = 0; column < nProtocolColumns; ++column) {
            const QStringList cells = cellsOf(lines[column]);
            QCOMPARE(cells.size(), 5);
            QCOMPARE(cells[0], QString("`%1`").arg(protocolColumn(column).name));
            QCOMPARE(cells[1].isEmpty(), protocolColumn(column).widget == nullptr);
            for (const QString& choice : choicesOf(column)) {
                QVERIFY2(cells[2].contains(choice), qPrintable(cells[0]));
            }
            const bool isExplained = column == deviantCarrierColumn || column >= practiceColumn;
            QVERIFY2(isExplained || cells[3].startsWith(texts[column]), qPrintable(cells[0]));
        }
    }

    void example_hasTheseRuns()
    {
        const QByteArray file = document("examples/protocol.csv");
        QCOMPARE(complaintsOf(file), QString());
        const Protocol protocol = readProtocol(file);
        QCOMPARE(protocol.rows[0].instruction,
            QString("Four sounds follow each other. The second or the third is different.\n"
                    "Which one? The first answers are for practice."));
        QStringList ids;
        for (const ProtocolRun& run : orderedRuns(protocol, RunOrder::latinSquare, 2, 0)) {
            ids.append((run.breakText.isEmpty() ? "" : run.breakText + ' ') + run.id);
        }
        QCOMPARE(ids,
            QStringList({"row 1, repeat 1", "row 3, repeat 1", "row 4, repeat 1", "row 2, repeat 1",
                "row 5, repeat 1", "Have a rest, and go on when you like. row 4, repeat 2",
                "row 5, repeat 2", "row 3, repeat 2", "row 2, repeat 2"}));
    }

    void guidesExample_hasTheseRuns()
    {
        const QByteArray guide = document("user-guide.md");
        const int start = guide.indexOf("    sound type,main parameter,");
        QVERIFY(start >= 0);
        QByteArray file = guide.mid(start, guide.indexOf("\n\n", start) + 1 - start);
        file.replace("    ", "");
        QCOMPARE(complaintsOf(file), QString());
        const Protocol protocol = readProtocol(file);
        QStringList runs;
        for (const ProtocolRun& run : orderedRuns(protocol, RunOrder::latinSquare, 1, 0)) {
            runs.append(run.id + ": " + protocol.rows[run.row].instruction);
        }
        QCOMPARE(runs.size(), 4);
        QCOMPARE(runs[0], QString("row 1, repeat 1: One of the sounds flutters."));
        QCOMPARE(runs[1], QString("row 2, repeat 1: One of the sounds is lower."));
    }
};

QUORIN_APPLESS_TEST(TestProtocolPage);
#include "tst_protocol_page.moc"
