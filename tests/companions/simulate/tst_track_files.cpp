// SPDX-License-Identifier: GPL-3.0-or-later
#include "companions/simulate/Simulations.h"
#include "procedure/SavedRun.h"
#include "simulate/TrackFiles.h"
#include "support/WindowTest.h"

#include <QTest>

Q_DECLARE_METATYPE(Simulation)

class TestTrackFiles : public WindowTest {
    Q_OBJECT

private slots:
    void file_isTheOneThatTheApplicationWrites_data()
    {
        QTest::addColumn<Simulation>("simulation");
        QTest::newRow("depth") << simulationOf(logisticListener(depthThreshold, 2.5));
        QTest::newRow("frequency")
            << simulationOf(gaussianListener(0.002, 1), carrierFrequencyParameter, 0.05);
    }

    void file_isTheOneThatTheApplicationWrites()
    {
        QFETCH(Simulation, simulation);
        simulation.standardCarrier = 1234.5;
        simulation.reactionMs = 734;
        Data data = preparedRun(simulation);
        simulateRun(data, simulation, 0);
        SavedRun saved;
        saved.data.records = data.records;
        saved.data.mainParameter = simulation.mainParameter;
        saved.data.cf[standard] = 1234.5;
        saved.save(saved.path("application.txt"));

        const QString path = saved.path("track.txt");
        QCOMPARE(writeTracks({path, "SIM", 1}, simulation), QString());
        const QByteArray content = SavedRun::contentOf(path);
        QCOMPARE(content, SavedRun::contentOf(saved.path("application.txt")));
        QCOMPARE(content.count("\r\n"), 1 + data.nTrials);
        QVERIFY(content.contains("\t734\r\n"));
    }

    void folder_getsNamedFilesOfDifferentRuns()
    {
        const QTemporaryDir folder;
        const Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        QCOMPARE(writeTracks({folder.path(), "AB", 2}, simulation), QString());
        const QStringList names = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
        QCOMPARE(names,
            QStringList({"AB_test001_noise_modulation depth.txt",
                "AB_test002_noise_modulation depth.txt"}));
        QVERIFY(SavedRun::contentOf(folder.filePath(names[0]))
            != SavedRun::contentOf(folder.filePath(names[1])));
    }

    void frequencyRun_isNamedAsOneOfATone()
    {
        const QTemporaryDir folder;
        const Simulation simulation
            = simulationOf(gaussianListener(0.002, 1), carrierFrequencyParameter, 0.05);
        QCOMPARE(writeTracks({folder.path(), "SIM", 1}, simulation), QString());
        QVERIFY(QFile::exists(folder.filePath("SIM_test001_sinusoid_carrier frequency.txt")));
    }

    void cutRun_hasNoFile()
    {
        const QTemporaryDir folder;
        QCOMPARE(
            writeTracks({folder.filePath("a.txt"), "SIM", 1}, simulationOf(constantListener(1))),
            QString("run 1 did not end within 10000 trials, so it has no results file"));
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    void nothingIsLeft_whenTheFolderIsMissing()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("no/a.txt");
        const QString errorText
            = writeTracks({path, "SIM", 1}, simulationOf(constantListener(0.5)));
        QVERIFY(errorText.startsWith("could not write " + path + ": "));
        QVERIFY(QDir(folder.path()).isEmpty());
    }
};

QTEST_MAIN(TestTrackFiles)
#include "tst_track_files.moc"
