// SPDX-License-Identifier: GPL-3.0-or-later
// What each tick of the pacing timer plays, and what it tells.
#include "drivers/RunDriver.h"
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
    void pointers_areNull_whenNoSoundWasStarted()
    {
        MainWindow window;
        QVERIFY(Probe::audioBytes(window) == nullptr);
        QVERIFY(Probe::audioBuffer(window) == nullptr);
        QVERIFY(Probe::audioOutput(window) == nullptr);
    }

    void deviant_standsInItsInterval_data()
    {
        QTest::addColumn<int>("position");
        QTest::newRow("second") << 2;
        QTest::newRow("third") << 3;
    }

    void deviant_standsInItsInterval()
    {
        QFETCH(int, position);
        MainWindow window;
        RunDriver driver(window);
        type(window, "lineEditDevDuration", "250.00");
        driver.open();
        QVector<bool>& sequence = Probe::stimSequence(window);
        sequence.fill(false, 4);
        sequence[position - 1] = true;
        QCOMPARE(Probe::stimuli(window)[deviant].samples.size(), 10000);
        for (int interval = 1; interval <= 4; ++interval) {
            driver.startSound();
            QCOMPARE(*Probe::audioBytes(window),
                floats(interval == position ? Probe::stimuli(window)[deviant].samples
                                            : Probe::stimuli(window)[standard].samples));
            driver.endSound();
        }
    }

    void sound_isPlayedFromABufferOfItsOwn()
    {
        MainWindow window;
        RunDriver driver(window);
        driver.open();
        driver.startSound();
        const QBuffer* const buffer = Probe::audioBuffer(window);
        QVERIFY(buffer->isReadable());
        QVERIFY(!buffer->isWritable());
        QCOMPARE(&buffer->buffer(), Probe::audioBytes(window));
        QVERIFY(buffer->parent() == nullptr);
        QCOMPARE(Probe::audioOutput(window)->parent(), &window);
    }

    void length_isTheOneThatGoRead_data()
    {
        QTest::addColumn<QString>("duration");
        QTest::addColumn<int>("nSamples");
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
        MainWindow window;
        RunDriver driver(window);
        driver.open();
        int nTold = 0;
        connect(&window, &MainWindow::soundPlaying, &window, [&](int state) {
            ++nTold;
            QCOMPARE(state, Probe::soundIndex(window));
            QVERIFY(Probe::audioOutput(window) != nullptr);
        });
        driver.startSound();
        QCOMPARE(nTold, 1);
    }

    void starts_areNumbered_andTheEndOfTheTrialIsMinusOne()
    {
        MainWindow window;
        RunDriver driver(window);
        driver.open();
        driver.beReady();
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        driver.playTrial();
        QCOMPARE(told, states({1, 2, 3, 4, -1}));
    }

    void tickAfterTheFourthSound_playsNothingAndCountsOn()
    {
        MainWindow window;
        RunDriver driver(window);
        driver.open();
        driver.beReady();
        for (int i = 0; i < 4; ++i) {
            driver.startSound();
        }
        QSignalSpy told(&window, SIGNAL(soundPlaying(int)));
        driver.startSound();
        QCOMPARE(Probe::soundIndex(window), 5);
        QVERIFY(Probe::audioBytes(window)->isEmpty());
        QVERIFY(Probe::audioBuffer(window)->isOpen());
        QVERIFY(Probe::audioOutput(window) != nullptr);
        driver.endSound();
        QVERIFY(Probe::timerPlay(window)->isActive());
        QVERIFY(!Probe::subjectWindow(window)->isEnabled());
        driver.startSound();
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
