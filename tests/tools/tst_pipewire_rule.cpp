// SPDX-License-Identifier: GPL-3.0-or-later
// The packaged setting for PipeWire, beside PipeWire as it comes.
#include "support/QuietTest.h"

class TestPipeWireRule : public QuietTest {
    Q_OBJECT

private slots:
    void sounds_loseTheLastPartQuantum_withoutTheRule()
    {
        // 2688 samples are 2048 and 640.
        constexpr double lost = -640.0;
        double excess = meanExcess({});
        for (int i = 1; i < mostTries && excess != lost; ++i) {
            excess = meanExcess({});
        }
        QCOMPARE(excess, lost);
    }

    void sounds_areWhole_withTheRule()
    {
        QVERIFY(meanExcess({"--rules", PIPEWIRE_RULES}) > -quantum);
    }

private:
    // On a busy machine a sound may have a pause, and the recorder may miss a quantum.
    static constexpr int mostTries = 3;

    // Of twelve sounds of 56 ms: how many samples more than 2688 were played.
    static double meanExcess(const QStringList& options)
    {
        QProcess program;
        program.start(TIMING_PROGRAM,
            QStringList {"--server", "pipewire", "--label", "x", "--trials", "3", "--sound", "56",
                "--silence", "124"}
                + options);
        if (!program.waitForFinished(timeoutMs) || program.exitCode() != 0) {
            QTest::qFail(program.readAllStandardError().constData(), __FILE__, __LINE__);
            return qQNaN();
        }
        const QList<QByteArray> rows = program.readAllStandardOutput().split('\n');
        for (const QByteArray& row : rows) {
            const QList<QByteArray> cells = row.split('|');
            if (row.contains("length, minus") && cells.size() > meanCell)
                return cells[meanCell].trimmed().toDouble();
        }
        return qQNaN();
    }

    static constexpr int timeoutMs = 60000;
    static constexpr int meanCell = 4;
    static constexpr double quantum = 128.0;
};

QUORIN_TEST(TestPipeWireRule);
#include "tst_pipewire_rule.moc"
