// SPDX-License-Identifier: GPL-3.0-or-later
// How sounds are found in a recording.
#include "soundlab/RecordedSounds.h"
#include "support/QuietTest.h"

#include <limits>

using Samples = QVector<float>;
using Sounds = QVector<RecordedSound>;

class TestRecordedSounds : public QuietTest {
    Q_OBJECT

private slots:
    void sounds_areNone_whenTheRecordingIsSilent()
    {
        QCOMPARE(recordedSounds({}, 1), Sounds());
        QCOMPARE(recordedSounds(Samples(100, 0.0F), 1), Sounds());
        QCOMPARE(recordedSounds({0.0F, -0.0F}, 1), Sounds());
    }

    void sounds_reachTheEnds_whenThereIsNoSilence()
    {
        QCOMPARE(recordedSounds({1.0F, 2.0F, 3.0F}, 1), Sounds({{0, 3}}));
    }

    void sounds_areSplit_whenTheZerosAreMany()
    {
        const Samples recording {0, 1, 0, 0, 2, 0, 0, 0, 3, 4, 0};
        QCOMPARE(recordedSounds(recording, 4), Sounds({{1, 9}}));
        QCOMPARE(recordedSounds(recording, 3), Sounds({{1, 4}, {8, 2}}));
        QCOMPARE(recordedSounds(recording, 2), Sounds({{1, 1}, {4, 1}, {8, 2}}));
    }

    void sounds_areSplitAtEveryZero_whenTheShortestSilenceIsNotPositive()
    {
        const Samples recording {1, 0, 2, 3};
        QCOMPARE(recordedSounds(recording, 0), Sounds({{0, 1}, {2, 2}}));
        QCOMPARE(recordedSounds(recording, -5), Sounds({{0, 1}, {2, 2}}));
    }

    void sounds_holdNaN_whenItWasRecorded()
    {
        QCOMPARE(recordedSounds({0.0F, std::numeric_limits<float>::quiet_NaN(), 0.0F}, 1),
            Sounds({{1, 1}}));
    }

    void place_isFound_whenTheSoundHasZerosAtItsEnds()
    {
        const Samples recording {0, 0, 0, 1, 2, 0, 0, 1, 3, 0};
        QCOMPARE(locate(recording, {0, 1, 2, 0}), 2);
        QCOMPARE(locate(recording, {1, 3, 0}), 7);
        QCOMPARE(locate(recording, {0, 0, 0, 1, 2, 0, 0, 1, 3, 0}), 0);
    }

    void place_isNone_whenTheZerosDoNotFit()
    {
        const Samples recording {0, 1, 2, 0};
        QCOMPARE(locate(recording, {0, 0, 1, 2}), -1);
        QCOMPARE(locate(recording, {1, 2, 0, 0}), -1);
        QCOMPARE(locate(recording, {1, 2, 1}), -1);
    }

    void place_isTheNextOne_whenTheSearchBeginsLater()
    {
        const Samples recording {1, 1, 2, 0, 1, 1, 2};
        QCOMPARE(locate(recording, {1, 2}), 1);
        QCOMPARE(locate(recording, {1, 2}, 1), 1);
        QCOMPARE(locate(recording, {1, 2}, 2), 5);
        QCOMPARE(locate(recording, {1, 2}, 6), -1);
        QCOMPARE(locate(recording, {1, 2}, 100), -1);
        QCOMPARE(locate(recording, {1, 2}, -3), 1);
    }

    void place_isNone_whenNothingIsExpected()
    {
        QCOMPARE(locate({0, 0, 1}, {}), -1);
        QCOMPARE(locate({0, 0, 1}, {0, 0}), -1);
        QCOMPARE(locate({}, {1}), -1);
    }

    void place_dependsOnEveryBit_whenTheValuesAreEqual()
    {
        const float nan = std::numeric_limits<float>::quiet_NaN();
        QCOMPARE(locate({1.0F, 0.0F, 1.0F, -0.0F}, {1.0F, -0.0F}), 2);
        QCOMPARE(locate({1.0F, nan, 2.0F}, {nan, 2.0F}), 1);
    }
};

QUORIN_GUILESS_TEST(TestRecordedSounds);
#include "tst_recorded_sounds.moc"
