// SPDX-License-Identifier: GPL-3.0-or-later
// Simulated runs that are saved as results files.
#include "companions/simulate/Simulations.h"
#include "procedure/SavedRun.h"
#include "session/OutputFileName.h"
#include "simulate/TrackFiles.h"
#include "support/WindowTest.h"

#include <cmath>

using namespace quorin;

namespace {

QStringList tracksWritten(const TrackTarget& target, const Simulation& simulation)
{
    return writeTracks(target, simulation, [](int) {});
}

} // namespace

class TestTrackFiles : public WindowTest {
    Q_OBJECT

private slots:
    void file_isTheOneThatTheApplicationWrites_data()
    {
        QTest::addColumn<Simulation>("simulation");
        QTest::newRow("depth") << simulationOf(logisticListener(depthThreshold, 2.5));
        QTest::newRow("frequency")
            << simulationOf(gaussianListener(0.002, 1), carrierFrequencyParameter);
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
        QCOMPARE(tracksWritten({path, 1}, simulation), QStringList());
        const QByteArray content = contentOf(path);
        QCOMPARE(content, contentOf(saved.path("application.txt")));
        QCOMPARE(content.count("\r\n"), 1 + data.nTrials);
        QVERIFY(content.contains("\t734\r\n"));
    }

    void folder_getsNamedFilesOfDifferentRuns()
    {
        const QTemporaryDir folder;
        Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        simulation.subCode = "AB";
        QCOMPARE(tracksWritten({folder.path(), 2}, simulation), QStringList());
        const QStringList names = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
        QCOMPARE(names,
            QStringList({"AB_test001_noise_modulation depth.txt",
                "AB_test002_noise_modulation depth.txt"}));
        QVERIFY(contentOf(folder.filePath(names[0])) != contentOf(folder.filePath(names[1])));
    }

    void frequencyRun_isNamedAsOneOfATone()
    {
        const QTemporaryDir folder;
        const Simulation simulation
            = simulationOf(gaussianListener(0.002, 1), carrierFrequencyParameter);
        QCOMPARE(tracksWritten({folder.path(), 1}, simulation), QStringList());
        QVERIFY(QFile::exists(folder.filePath("SIM_test001_sinusoid_carrier frequency.txt")));
    }

    void depthRun_isNamedAsOneOfATone_whenTheCarrierIsASinusoid()
    {
        const QTemporaryDir folder;
        Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        simulation.soundType = sinusoidCarrier;
        QCOMPARE(tracksWritten({folder.path(), 1}, simulation), QStringList());
        QVERIFY(QFile::exists(folder.filePath("SIM_test001_sinusoid_modulation depth.txt")));
    }

    void cutRun_hasNoFile()
    {
        const QTemporaryDir folder;
        QCOMPARE(tracksWritten({folder.filePath("a.txt"), 1}, simulationOf(constantListener(1))),
            QStringList("run 1 did not end within 10000 trials, so it has no results file"));
        QVERIFY(QDir(folder.path()).isEmpty());
    }

    // With this limit some runs end and some do not.
    void otherRuns_areWritten_whenOneIsCut()
    {
        const QTemporaryDir folder;
        Simulation simulation = simulationOf(logisticListener(depthThreshold, 2.5));
        simulation.mostTrials = 40;
        const QStringList errors = tracksWritten({folder.path(), 20}, simulation);
        const QStringList names = QDir(folder.path()).entryList(QDir::Files, QDir::Name);
        QVERIFY(!errors.isEmpty() && !names.isEmpty());
        QCOMPARE(errors.size() + names.size(), 20);
        Data data = preparedRun(simulation);
        for (int i = 0; i < 20; ++i) {
            data.sesNum = i + 1;
            const bool isCut = std::isnan(simulateRun(data, simulation, i).threshold);
            QCOMPARE(names.contains(composedFileName(data)), !isCut);
        }
    }

    void file_isNeverReplaced()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.txt");
        fillFile(path, "a listener's hour");
        const QStringList errors = tracksWritten({path, 1}, simulationOf(constantListener(0.5)));
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors[0].startsWith(path + ": is there already"));
        QCOMPARE(contentOf(path), QByteArray("a listener's hour"));
    }

    void nothingIsLeft_whenTheFolderIsMissing()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("no/a.txt");
        const QStringList errors = tracksWritten({path, 1}, simulationOf(constantListener(0.5)));
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors[0].startsWith(path + ": there is no folder "));
        QVERIFY(QDir(folder.path()).isEmpty());
    }
};

QUORIN_TEST(TestTrackFiles);
#include "tst_track_files.moc"
