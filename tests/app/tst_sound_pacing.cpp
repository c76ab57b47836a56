// SPDX-License-Identifier: GPL-3.0-or-later
// When sounds are due, and what counts as late.
#include "app/SoundPacing.h"
#include "support/QuietTest.h"

class TestSoundPacing : public QuietTest {
    Q_OBJECT

private slots:
    void firstSound_isDueAPeriodAfterTheTrialBegins()
    {
        SoundPacing pacing;
        pacing.begin(100.0, 1600);
        QCOMPARE(pacing.periodMs(), 1600);
        QCOMPARE(pacing.latenessMs(1500.0), -200.0);
        QCOMPARE(pacing.latenessMs(1700.5), 0.5);
    }

    void sound_isLate_fromMoreThanTenMillisecondsOn()
    {
        SoundPacing pacing;
        pacing.begin(0.0, 1600);
        QVERIFY(!pacing.isLate(1610.0));
        QVERIFY(pacing.isLate(1610.001));
    }

    void nextSound_isDueAPeriodAfterTheLastWasDue()
    {
        SoundPacing pacing;
        pacing.begin(0.0, 1600);
        pacing.soundStarted(1603.0);
        QCOMPARE(pacing.latenessMs(3200.0), 0.0);
        pacing.soundStarted(3200.0);
        QCOMPARE(pacing.latenessMs(4800.0), 0.0);
    }

    void missedPeriods_areLeftOut()
    {
        SoundPacing pacing;
        pacing.begin(0.0, 5);
        pacing.soundStarted(11.0);
        QCOMPARE(pacing.latenessMs(16.0), 0.0);
    }

    void sound_isDueAtOnce_whenItsTimeIsNow()
    {
        SoundPacing pacing;
        pacing.begin(0.0, 1600);
        pacing.soundStarted(3200.0);
        QCOMPARE(pacing.latenessMs(3200.0), 0.0);
    }

    void dueTime_canBeMoved()
    {
        SoundPacing pacing;
        pacing.begin(0.0, 1600);
        pacing.dueAfter(5000.0, 1000.0);
        QCOMPARE(pacing.latenessMs(6000.0), 0.0);
        QCOMPARE(pacing.periodMs(), 1600);
    }
};

QUORIN_GUILESS_TEST(TestSoundPacing);
#include "tst_sound_pacing.moc"
