// SPDX-License-Identifier: GPL-3.0-or-later
// What the listener of the demonstration hears in a recording.
#include "demo/HeardTrial.h"
#include "support/QuietTest.h"

namespace {

constexpr int shortestSilence = 4;

const QVector<float> silence(shortestSilence, 0.0F);
const QVector<float> standardSound {0.5F, 0.0F, -0.25F};
const QVector<float> deviantSound {0.5F, 0.0F, -0.26F};

// The sounds named by 's' and 'd', with silence before each and after the last.
QVector<float> recorded(const QString& sounds)
{
    QVector<float> recording = silence;
    for (const QChar sound : sounds) {
        recording += (sound == 'd' ? deviantSound : standardSound) + silence;
    }
    return recording;
}

} // namespace

class TestDemoListener : public QuietTest {
    Q_OBJECT

private slots:
    void deviant_isHeard_inTheIntervalThatDiffers()
    {
        QCOMPARE(heardTrial(recorded("sdss"), shortestSilence).deviant, 2);
        QCOMPARE(heardTrial(recorded("ssds"), shortestSilence).deviant, 3);
    }

    void deviant_isHeard_whenItIsAPartOfTheStandard()
    {
        QVector<float> recording = recorded("s");
        recording += standardSound.mid(0, 1) + silence + standardSound + silence;
        recording += standardSound + silence;
        QCOMPARE(heardTrial(recording, shortestSilence).deviant, 2);
    }

    void deviant_isUndecided_withoutExactlyOne_data()
    {
        addColumns<QString, int>("sounds", "count");
        QTest::newRow("no sound") << "" << 0;
        QTest::newRow("three sounds") << "sds" << 3;
        QTest::newRow("five sounds") << "sdsss" << 5;
        QTest::newRow("no deviant") << "ssss" << 4;
        QTest::newRow("two deviants") << "sdds" << 4;
        QTest::newRow("the first differs") << "dsss" << 4;
        QTest::newRow("the last differs") << "sssd" << 4;
    }

    void deviant_isUndecided_withoutExactlyOne()
    {
        QFETCH(QString, sounds);
        const HeardTrial heard = heardTrial(recorded(sounds), shortestSilence);
        QCOMPARE(heard.deviant, 0);
        QTEST(heard.nSounds, "count");
    }

    void sound_hasNotEnded_untilItsSilenceIsRecorded()
    {
        QVector<float> recording = recorded("sdss");
        recording.removeLast();
        const HeardTrial early = heardTrial(recording, shortestSilence);
        QCOMPARE(early.nSounds, 3);
        QCOMPARE(early.deviant, 0);
        QCOMPARE(early.end, 3 * (shortestSilence + standardSound.size()));
        recording.append(0.0F);
        const HeardTrial late = heardTrial(recording, shortestSilence);
        QCOMPARE(late.nSounds, 4);
        QCOMPARE(late.deviant, 2);
        QCOMPARE(late.end, recording.size() - shortestSilence);
    }

    void end_isZero_whenNothingWasRecorded()
    {
        QCOMPARE(heardTrial({}, shortestSilence).end, 0);
        QCOMPARE(heardTrial({}, shortestSilence).nSounds, 0);
    }
};

QUORIN_GUILESS_TEST(TestDemoListener);
#include "tst_demo_listener.moc"
