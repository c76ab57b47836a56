// SPDX-License-Identifier: GPL-3.0-or-later
// The defaults of a session.
#include "procedure/Records.h"
#include "session/Data.h"
#include "support/TestProgram.h"

#include <algorithm>
#include <type_traits>

using namespace quorin;

static_assert(!std::is_polymorphic_v<Data>);
static_assert(!std::is_polymorphic_v<Record>);

namespace {

const QString desktop = QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);

} // namespace

class TestData : public QObject {
    Q_OBJECT

private slots:
    void soundFields_haveTheirDefaults_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.fs, 40000.0);
        QCOMPARE(data.dur, QVector<double>({0.6, 0.6}));
        QCOMPARE(data.amp, QVector<double>({1.0, 1.0}));
        QCOMPARE(data.mf, QVector<double>({40.0, 40.0}));
        QCOMPARE(data.md, QVector<double>({0.0, 0.5}));
        QCOMPARE(data.fd, QVector<double>({0.0, 0.05}));
        QCOMPARE(data.cf, QVector<double>({1000.0, 1000.0}));
        QCOMPARE(data.cfPhaseDeg, QVector<double>({0.0, 0.0}));
        QCOMPARE(data.mfPhaseDeg, QVector<double>({180.0, 180.0}));
        QCOMPARE(data.normalizeMd, true);
        QCOMPARE(data.equalizeRms, true);
        QCOMPARE(data.silentInterval, 1.0);
        QCOMPARE(data.wavNames, QVector<QString>({"standard.wav", "deviant.wav"}));
    }

    void sizes_followTheDefaults_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.nSamples, QVector<int>({24000, 24000}));
        QCOMPARE(data.durToPlot, QVector<double>({0.05, 0.05}));
        QCOMPARE(data.nPointsToPlot, QVector<int>({2000, 2000}));
        QCOMPARE(data.freqToPlot, QVector<double>({2000.0, 2000.0}));
        QCOMPARE(data.nFreqPointsToPlot, QVector<int>({1200, 1200}));
    }

    void phases_areInRadians_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.cfPhase, QVector<double>({0.0, 0.0}));
        QCOMPARE(data.mfPhase, QVector<double>({3.141592653589793, 3.141592653589793}));
    }

    void choices_areTheFirstOnes_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.sesTypes, QStringList({"practice", "test"}));
        QCOMPARE(data.sesType, 0);
        QCOMPARE(data.soundTypes, QStringList({"sinusoid", "noise"}));
        QCOMPARE(data.soundType, 0);
        QCOMPARE(data.mainParameters, QStringList({"carrier frequency", "modulation depth"}));
        QCOMPARE(data.mainParameter, 0);
        QCOMPARE(data.resetMdFd, true);
        QCOMPARE(data.saveData, false);
    }

    void names_areTheInitialOnes_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.subCode, QString("SUB001"));
        QCOMPARE(data.sesNum, 1);
        QCOMPARE(data.fileName, QString("SUB001.txt"));
        QCOMPARE(data.defaultDir, desktop);
        QCOMPARE(data.outputDir, desktop);
    }

    void staircase_isAtItsStart_whenBuilt()
    {
        const Data data;
        QCOMPARE(data.nReversals, 14);
        QCOMPARE(data.nReversalsToCalculate, 8);
        QCOMPARE(data.stepFactorIncorrect, 2);
        QCOMPARE(data.stepFactorCorrect, -1);
        QCOMPARE(data.stepFactor, -1);
        QCOMPARE(data.stepSizes, QVector<int>({2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}));
        QCOMPARE(data.stepSizes.size(), data.nReversals + 1);
    }

    void run_isEmpty_whenBuilt() { verifyNothingOfARun(Data(), 14); }

    void fields_lieInTheirOrder_whenBuilt()
    {
        const Data d;
        const QVector<const void*> fields = {&d.nTrials, &d.fs, &d.dur, &d.nSamples, &d.durToPlot,
            &d.nPointsToPlot, &d.freqToPlot, &d.nFreqPointsToPlot, &d.defaultDir, &d.outputDir,
            &d.subCode, &d.fileName, &d.sesTypes, &d.sesType, &d.soundTypes, &d.soundType,
            &d.mainParameters, &d.mainParameter, &d.sesNum, &d.wavNames, &d.amp, &d.mf, &d.md,
            &d.fd, &d.cf, &d.cfPhaseDeg, &d.mfPhaseDeg, &d.cfPhase, &d.mfPhase, &d.normalizeMd,
            &d.equalizeRms, &d.nReversals, &d.nReversalsToCalculate, &d.silentInterval,
            &d.reversals, &d.stepFactorIncorrect, &d.stepFactorCorrect, &d.stepFactor,
            &d.reversalCount, &d.stepSizes, &d.records, &d.deviantPosition, &d.threshold,
            &d.meanReactionTime, &d.meanReactionTimeCorrect, &d.meanReactionTimeIncorrect,
            &d.resetMdFd, &d.saveData};
        QCOMPARE(fields.size(), 48);
        QVERIFY(std::is_sorted(fields.cbegin(), fields.cend()));
        QCOMPARE(fields.constFirst(), static_cast<const void*>(&d));
    }

    void copy_keepsItsRecords_whenTheOriginalChanges()
    {
        Data data;
        data.records.append(Record());
        const Data copy = data;
        data.records[0].reactionTime = 250.0;
        data.dur[standard] = 0.1;
        QCOMPARE(data.dur, QVector<double>({0.1, 0.6}));
        QCOMPARE(copy.records.constFirst().reactionTime, 0.0);
        QCOMPARE(copy.dur, QVector<double>({0.6, 0.6}));
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

    void record_isCorrect_whenTheResponseIsTheDeviants()
    {
        const Record right = answeredTrial(0.25, 3, 3, 734.0);
        QCOMPARE(right.value, 0.25);
        QCOMPARE(right.stimulusPosition, 3);
        QCOMPARE(right.responsePosition, 3);
        QCOMPARE(right.correctness, true);
        QCOMPARE(right.reactionTime, 734.0);
        const Record wrong = answeredTrial(0.25, 3, 2, 734.0);
        QCOMPARE(wrong.responsePosition, 2);
        QCOMPARE(wrong.correctness, false);
    }
};

QUORIN_GUILESS_TEST(TestData);
#include "tst_data.moc"
