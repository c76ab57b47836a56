// SPDX-License-Identifier: GPL-3.0-or-later
// What each tick of the pacing timer plays, and what it tells.
#include "support/DrivenRun.h"
#include "support/WindowTest.h"

#include <QAudioOutput>

#include <cstring>

using namespace quorin;

namespace {

QByteArray floats(const QVector<double>& samples)
{
    QByteArray bytes;
    for (const double sample : samples) {
        const auto single = static_cast<float>(sample);
        char raw[sizeof single];
        std::memcpy(raw, &single, sizeof single);
        bytes.append(raw, sizeof raw);
    }
    return bytes;
}

QList<QVariantList> states(const QVector<int>& values)
{
    QList<QVariantList> list;
    for (const int value : values) {
        list.append({value});
    }
    return list;
}

} // namespace

class TestSoundStart : public WindowTest {
    Q_OBJECT

private slots:
    void deviant_standsInItsInterval_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("second") << 2;
        QTest::newRow("third") << 3;
    }

    void deviant_standsInItsInterval()
    {
        QFETCH(int, position);
        DrivenRun run;
        type(run.window, "lineEditDevDuration", "250.00");
        run.driver.open();
        QVector<bool>& sequence = Probe::stimSequence(run.window);
        sequence.fill(false, 4);
        sequence[position - 1] = true;
        QCOMPARE(Probe::stimuli(run.window)[deviant].samples.size(), 10000);
        for (int interval = 1; interval <= 4; ++interval) {
            run.driver.startSound();
            QCOMPARE(*Probe::audioBytes(run.window),
                floats(interval == position ? Probe::stimuli(run.window)[deviant].samples
                                            : Probe::stimuli(run.window)[standard].samples));
            run.driver.endSound();
        }
    }

    void sound_isPlayedFromABufferOfItsOwn()
    {
        DrivenRun run;
        run.driver.open();
        run.driver.startSound();
        const QBuffer* const buffer = Probe::audioBuffer(run.window);
        QVERIFY(buffer->isReadable());
        QVERIFY(!buffer->isWritable());
        QCOMPARE(&buffer->buffer(), Probe::audioBytes(run.window));
        QVERIFY(buffer->parent() == nullptr);
        QCOMPARE(Probe::audioOutput(run.window)->parent(), &run.window);
    }

    void length_isTheOneThatGoRead_data()
    {
        addColumns<QString, int>("duration", "nSamples");
        QTest::newRow("as at View") << "600.00" << 24000;
        QTest::newRow("shorter") << "300.00" << 12000;
        QTest::newRow("longer") << "700.00" << 28000;
        QTest::newRow("truncated") << "43" << 1719;
        QTest::newRow("none") << "0" << 0;
        QTest::newRow("negative") << "-10" << 0;
    }

    void length_isTheOneThatGoRead()
    {
        QFETCH(QString, duration);
        QFETCH(int, nSamples);
        MainWindow window;
        buttonOf(window, "pushButtonView")->click();
        type(window, "lineEditStdDuration", duration);
        buttonOf(window, "pushButtonGo")->click();
        window.playOneSound();
        QVector<double> expected = Probe::stimuli(window)[standard].samples.mid(0, nSamples);
        expected.resize(nSamples); // zeros beyond the sound's end
        QCOMPARE(Probe::audioBytes(window)->size(), 4 * nSamples);
        QCOMPARE(*Probe::audioBytes(window), floats(expected));
    }

    void start_isToldWhenTheSoundHasItsObjects()
    {
        DrivenRun run;
        run.driver.open();
        int nTold = 0;
        connect(&run.window, &MainWindow::soundPlaying, &run.window, [&](int state) {
            ++nTold;
            QCOMPARE(state, Probe::soundIndex(run.window));
            QVERIFY(Probe::audioOutput(run.window) != nullptr);
        });
        run.driver.startSound();
        QCOMPARE(nTold, 1);
    }

    void starts_areNumbered_andTheEndOfTheTrialIsMinusOne()
    {
        DrivenRun run;
        run.driver.begin();
        QSignalSpy told(&run.window, SIGNAL(soundPlaying(int)));
        run.driver.playTrial();
        QCOMPARE(told, states({1, 2, 3, 4, -1}));
    }

    void tickAfterTheFourthSound_playsNothingAndCountsOn()
    {
        DrivenRun run;
        run.driver.begin();
        for (int i = 0; i < 4; ++i) {
            run.driver.startSound();
        }
        QSignalSpy told(&run.window, SIGNAL(soundPlaying(int)));
        run.driver.startSound();
        QCOMPARE(Probe::soundIndex(run.window), 5);
        QVERIFY(Probe::audioBytes(run.window)->isEmpty());
        QVERIFY(Probe::audioBuffer(run.window)->isOpen());
        QVERIFY(Probe::audioOutput(run.window) != nullptr);
        run.driver.endSound();
        QVERIFY(Probe::timerPlay(run.window)->isActive());
        QVERIFY(!run.subject().isEnabled());
        run.driver.startSound();
        QCOMPARE(told, states({5, 6}));
    }

    void interval_isLonger_onceTheFourthSoundHasStarted()
    {
        MainWindow window;
        window.playWav();
        for (int i = 0; i < 3; ++i) {
            window.playOneSound();
            QCOMPARE(Probe::timerPlay(window)->interval(), 1600);
        }
        window.playOneSound();
        QCOMPARE(Probe::timerPlay(window)->interval(), 6600);
        QVERIFY(Probe::timerPlay(window)->isActive());
        window.playWav();
        QCOMPARE(Probe::timerPlay(window)->interval(), 1600);
    }

    void fourthSound_startsNoTimer()
    {
        MainWindow window;
        for (int i = 0; i < 4; ++i) {
            window.playOneSound();
        }
        QVERIFY(!Probe::timerPlay(window)->isActive());
    }
};

QUORIN_TEST(TestSoundStart);
#include "tst_sound_start.moc"
