// SPDX-License-Identifier: GPL-3.0-or-later
// Results files whose lines contradict each other: refused with the line, or read unchecked.
#include "ReadRun.h"
#include "SimulatedRun.h"
#include "support/QuietTest.h"

namespace {

bool isRight(const QByteArray& line)
{
    return line.split('\t')[3] == "1";
}

QList<QByteArray> linesOf(const QByteArray& file)
{
    QList<QByteArray> lines = file.split('\n');
    lines.removeLast();
    return lines;
}

QByteArray fileOf(const QList<QByteArray>& lines)
{
    return lines.join('\n') + '\n';
}

// A run whose last line but one is no reversal. Without its last line any other run looks like one
// that was asked for fewer reversals.
unsigned seedOfALongEnd()
{
    for (unsigned seed = 1;; ++seed) {
        const QList<QByteArray> lines = linesOf(depthFile(seed));
        if (isRight(lines[lines.size() - 2]) == isRight(lines[lines.size() - 3])) {
            return seed;
        }
    }
}

} // namespace

class TestRefusedRuns : public QuietTest {
    Q_OBJECT

private slots:
    void run_isRefused_withTooFewReversals()
    {
        const QByteArray file = depthFile(1, 13);
        QCOMPARE(textOf(readBack(file, "run.txt", {14, std::nullopt}).complaint),
            QString("%1 the file ends after 13 reversals, 14 are needed").arg(file.count('\n')));
    }

    void changedLine_isRefused_andReadUnchecked_data()
    {
        addColumns<QByteArray, QString>("file", "complaint");
        const QByteArray good = depthFile(1);
        const QList<QByteArray> lines = linesOf(good);
        const auto changed = [&lines](int line, const QByteArray& from, const QByteArray& to) {
            QList<QByteArray> all = lines;
            all[line - 1].replace(from, to);
            return fileOf(all);
        };
        const QString unlike("%1 %2 does not follow from the line before, %3 would: a line is "
                             "missing, doubled, moved or changed");
        const auto valueAt = [&lines](int line) { return lines[line - 1].split('\t')[0]; };

        addRow("value", changed(5, valueAt(5), "33.333333"),
            unlike.arg(QString("5"), "33.333333", valueAt(5)));
        QList<QByteArray> flipped = lines;
        const int place = flipped[2].lastIndexOf('\t') - 1;
        flipped[2].replace(place, 1, flipped[2].at(place) == '0' ? "1" : "0");
        addRow(
            "correctness", fileOf(flipped), QString("3 the correctness contradicts the positions"));
        addRow(
            "infinite value", changed(5, valueAt(5), "inf"), QString("5 inf is no value of a run"));
        addRow("no number", changed(2, valueAt(2), "nan"), QString("2 nan is no value of a run"));
        addRow("negative value", changed(2, valueAt(2), "-50.000000"),
            QString("2 -50.000000 is no value of a run"));

        QList<QByteArray> missing = lines;
        missing.removeAt(5);
        addRow("missing line", fileOf(missing), unlike.arg(QString("6"), valueAt(7), valueAt(6)));
        QList<QByteArray> atEnd = linesOf(depthFile(seedOfALongEnd()));
        atEnd.removeLast();
        addRow("last line missing", fileOf(atEnd),
            QString("%1 the run does not end with a reversal: lines are missing")
                .arg(atEnd.size()));
        QList<QByteArray> doubled = lines;
        doubled.insert(5, lines[5]);
        addRow("doubled line", fileOf(doubled), unlike.arg(QString("7"), valueAt(6), valueAt(7)));
        addRow("two runs in one file", fileOf(lines + linesOf(depthFile(2)).mid(1)),
            QString("%1 ").arg(lines.size() + 1)); // the value that would follow is not shown
    }

    void changedLine_isRefused_andReadUnchecked()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, complaint);
        const ReadRun refused = readBack(file);
        QVERIFY2(
            textOf(refused.complaint).startsWith(complaint), qPrintable(textOf(refused.complaint)));
        const ReadRun read = readBack(file, "run.txt", {}, true);
        QCOMPARE(read.complaint.text, QString());
        QCOMPARE(textOf(read.run.departure), textOf(refused.complaint));
        QCOMPARE(read.run.data.records.size(), file.count('\n') - 1);
    }

    void secondHeader_isRefused_andPassedOverUnchecked()
    {
        const QList<QByteArray> lines = linesOf(depthFile(1));
        const QByteArray file = fileOf(lines + linesOf(depthFile(2)));
        const QString complaint = QString("%1 a second header: there is more than one run in the "
                                          "file")
                                      .arg(lines.size() + 1);
        QCOMPARE(textOf(readBack(file).complaint), complaint);
        QCOMPARE(textOf(readBack(file + "damage\r\n").complaint), complaint);
        const ReadRun read = readBack(file, "run.txt", {}, true);
        QCOMPARE(textOf(read.complaint), QString("0 "));
        QCOMPARE(textOf(read.run.departure), complaint);
        QCOMPARE(read.run.data.records.size(), file.count('\n') - 2);
        QCOMPARE(read.run.trialLines.constLast(), file.count('\n'));
    }

    void position_isRefused_beyondTwoAndThree()
    {
        QList<QByteArray> lines = linesOf(depthFile(1));
        QList<QByteArray> fields = lines[2].split('\t');
        fields[1] = "1";
        fields[3] = "0";
        lines[2] = fields.join('\t');
        QCOMPARE(textOf(readBack(fileOf(lines)).complaint),
            QString("3 the stimulus position is 1, not 2 or 3"));
        fields[1] = "2";
        fields[2] = "4";
        lines[2] = fields.join('\t');
        QCOMPARE(textOf(readBack(fileOf(lines)).complaint),
            QString("3 the response position is 4, not 2 or 3"));
    }

    void everyValue_isChecked()
    {
        const QList<QByteArray> lines = linesOf(depthFile(3));
        for (int line = 3; line <= lines.size(); ++line) {
            QList<QByteArray> changed = lines;
            QList<QByteArray> fields = changed[line - 1].split('\t');
            fields[0] = QByteArray::number(fields[0].toDouble() * 1.01, 'f', 6);
            changed[line - 1] = fields.join('\t');
            QCOMPARE(readBack(fileOf(changed)).complaint.line, line);
        }
    }
};

QUORIN_GUILESS_TEST(TestRefusedRuns);
#include "tst_refused_runs.moc"
