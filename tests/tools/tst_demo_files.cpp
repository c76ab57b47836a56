// SPDX-License-Identifier: GPL-3.0-or-later
// The demonstration's WAV file, report and comparison with the results file.
#include "demo/DemoTrial.h"
#include "demo/WavFile.h"
#include "support/Files.h"
#include "support/QuietTest.h"

namespace {

const QVector<DemoTrial> trials {{"50.0000", 3, 3}, {"39.7164", 2, 3}, {"62.9463", 2, 2}};

const QByteArray resultsFile("modulation depth (%)\tstimulus position\tresponse position\t"
                             "correctness\treaction time (ms)\r\n"
                             "50.000000\t3\t3\t1\t93\r\n"
                             "39.716412\t2\t3\t0\t105\r\n"
                             "62.946271\t2\t2\t1\t88\r\n");

} // namespace

class TestDemoFiles : public QuietTest {
    Q_OBJECT

private slots:
    void wavHeader_isThatOfMonoFloats()
    {
        const QByteArray expected = QByteArray("RIFF") + QByteArray::fromHex("5e000000") // 50 + 44
            + "WAVEfmt " + QByteArray::fromHex("12000000") + QByteArray::fromHex("03000100")
            + QByteArray::fromHex("409c0000") // 40000 samples a second
            + QByteArray::fromHex("00710200") // 160000 bytes a second
            + QByteArray::fromHex("040020000000") // 4 bytes, 32 bits, no extension
            + "fact" + QByteArray::fromHex("040000000b000000") // 11 samples
            + "data" + QByteArray::fromHex("2c000000");
        QCOMPARE(wavHeader(11, 40000), expected);
    }

    void wavHeader_countsItself_whenThereAreNoSamples()
    {
        const QByteArray header = wavHeader(0, 22050);
        QCOMPARE(header.size(), 58);
        QCOMPARE(header.mid(4, 4), QByteArray::fromHex("32000000"));
        QCOMPARE(header.right(4), QByteArray(4, '\0'));
    }

    void wavFile_holdsTheSamples()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("sound.wav");
        QVERIFY(writeWavFile(path, {1.0F, -0.5F}, 40000));
        QCOMPARE(contentOf(path), wavHeader(2, 40000) + QByteArray::fromHex("0000803f000000bf"));
    }

    void wavFile_isNotWritten_whenTheFolderIsMissing()
    {
        const QTemporaryDir folder;
        QVERIFY(!writeWavFile(folder.filePath("missing/sound.wav"), {1.0F}, 40000));
    }

    void reversals_areTheChangesOfCorrectness()
    {
        QCOMPARE(reversals({}), 0);
        QCOMPARE(reversals(trials.mid(0, 1)), 0);
        QCOMPARE(reversals(trials.mid(0, 2)), 1);
        QCOMPARE(reversals(trials), 2);
        QCOMPARE(reversals({trials[1], trials[1], trials[0], trials[2]}), 1);
    }

    void progressLine_tellsTheLastTrial()
    {
        QCOMPARE(progressLine(trials.mid(0, 2), "%"),
            QString("trial   2   reversals  1   value  39.7164 %   heard in 2   answer 3   wrong"));
        QCOMPARE(progressLine(trials, "Hz"),
            QString(
                "trial   3   reversals  2   value  62.9463 Hz   heard in 2   answer 2   right"));
    }

    void resultsFile_agrees_whenItSaysTheSame() { QCOMPARE(disagreement(resultsFile, trials), ""); }

    void resultsFile_disagrees_whenOneFieldIsDifferent_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("value") << QByteArray("39.716512\t2\t3\t0\t105");
        QTest::newRow("stimulus position") << QByteArray("39.716412\t3\t3\t0\t105");
        QTest::newRow("response position") << QByteArray("39.716412\t2\t2\t0\t105");
        QTest::newRow("correctness") << QByteArray("39.716412\t2\t3\t1\t105");
        QTest::newRow("columns") << QByteArray("39.716412\t2\t3\t0");
    }

    void resultsFile_disagrees_whenOneFieldIsDifferent()
    {
        QFETCH(QByteArray, line);
        QByteArray file = resultsFile;
        QVERIFY(file.contains("39.716412\t2\t3\t0\t105"));
        file.replace("39.716412\t2\t3\t0\t105", line);
        QCOMPARE(disagreement(file, trials), "trial 2 is \"" + QString::fromLatin1(line) + "\"");
    }

    void resultsFile_disagrees_whenTheTrialsAreMoreOrFewer()
    {
        QCOMPARE(disagreement(resultsFile, trials.mid(1)),
            QString("it has 3 trials, the listener answered 2"));
        QCOMPARE(disagreement({}, trials), QString("it has 0 trials, the listener answered 3"));
    }
};

QUORIN_GUILESS_TEST(TestDemoFiles);
#include "tst_demo_files.moc"
