// SPDX-License-Identifier: GPL-3.0-or-later
// The table of runs for the terminal.
#include "protocol/ProtocolReader.h"
#include "protocol/RunSheet.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

class TestRunSheet : public QuietTest {
    Q_OBJECT

private slots:
    void sheet_tellsStateAndSettings()
    {
        const Protocol protocol
            = readProtocol("practice,sound type,repeat,break,session,number of reversals\n"
                           "yes,noise,1,,4,6\n"
                           "no,,2,,5,6\n"
                           "no,sinusoid,1,Have a rest,5,6\n");
        const QVector<ProtocolRun> runs = orderedRuns(protocol, RunOrder::asWritten, 1, 0);
        const QString heading = "  run  row  repeat  state  settings\n";
        const QString practice = "practice, noise, session 4\n";
        const QString noise = "session 5\n";
        const QString sinusoid = "sinusoid, session 5\n";
        const QString rest = "      (break)\n";
        QCOMPARE(runSheet(protocol, runs, {}),
            heading + "    1    1       1  next   " + practice + "    2    2       1  open   "
                + noise + "    3    2       2  open   " + noise + rest
                + "    4    3       1  open   " + sinusoid);
        QCOMPARE(runSheet(protocol, runs, {"row 1, repeat 1", "row 2, repeat 2"}),
            heading + "    1    1       1  done   " + practice + "    2    2       1  next   "
                + noise + "    3    2       2  done   " + noise + rest
                + "    4    3       1  open   " + sinusoid);
        QCOMPARE(runSheet(protocol, runs,
                     {"row 1, repeat 1", "row 2, repeat 1", "row 2, repeat 2", "row 3, repeat 1"}),
            heading + "    1    1       1  done   " + practice + "    2    2       1  done   "
                + noise + "    3    2       2  done   " + noise + rest
                + "    4    3       1  done   " + sinusoid);
    }

    void sheet_hasNoSettings_whereAllAreTheSameOrEmpty()
    {
        const Protocol protocol = readProtocol("repeat\n10000\n");
        QCOMPARE(runSheet(protocol, {}, {}), QString("  run  row  repeat  state  settings\n"));
        const Protocol two = readProtocol("repeat,instruction\n1,a\n1,b\n");
        QCOMPARE(runSheet(two, orderedRuns(two, RunOrder::asWritten, 1, 0), {"row 1, repeat 1"}),
            QString("  run  row  repeat  state  settings\n"
                    "    1    1       1  done\n"
                    "    2    2       1  next\n"));
    }
};

QUORIN_APPLESS_TEST(TestRunSheet);
#include "tst_run_sheet.moc"
