// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Data.h"

#include <QStandardPaths>
#include <QtTest>

class TestData : public QObject {
    Q_OBJECT

private slots:
    void sizes_followTheDefaults_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.nSamples, QVector<int>({24000, 24000}));
        QCOMPARE(data.nPointsToPlot, QVector<int>({2000, 2000}));
        QCOMPARE(data.nFreqPointsToPlot, QVector<int>({1200, 1200}));
        QCOMPARE(data.reversals, QVector<double>(14, 0.0));
    }

    void phases_areInRadians_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.cfPhase, QVector<double>({0.0, 0.0}));
        QCOMPARE(data.mfPhase, QVector<double>({3.141592653589793, 3.141592653589793}));
    }

    void stepSizes_holdOneMoreThanTheReversals_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.stepSizes, QVector<int>({2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
        QCOMPARE(data.stepSizes.size(), data.nReversals + 1);
    }

    void names_areTheInitialOnes_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.fileName, QString("SUB001.txt"));
        QCOMPARE(data.outputDir, QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
        QCOMPARE(data.defaultDir, data.outputDir);
        QCOMPARE(data.wavNames, QVector<QString>({"standard.wav", "deviant.wav"}));
    }

    void record_isAllZero_whenBuilt()
    {
        const Record record;
        QCOMPARE(record.value, 0.0);
        QCOMPARE(record.stimulusPosition, 0);
        QCOMPARE(record.responsePosition, 0);
        QCOMPARE(record.correctness, false);
        QCOMPARE(record.reactionTime, 0.0);
    }
};

QTEST_GUILESS_MAIN(TestData)
#include "tst_data.moc"
