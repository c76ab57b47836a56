// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of an output from the times at which it takes the bytes of its sound.
#include "app/PlaybackBuffer.h"
#include "support/QuietTest.h"

namespace {

constexpr int nBytes = 1000;

} // namespace

class TestPlaybackBuffer : public QuietTest {
    Q_OBJECT

private slots:
    void bytes_areThoseOfTheSound()
    {
        QByteArray sound("12345678");
        PlaybackBuffer buffer(&sound, 1.0);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QCOMPARE(buffer.read(3), QByteArray("123"));
        QVERIFY(!buffer.atEnd());
        QCOMPARE(buffer.read(100), QByteArray("45678"));
        QVERIFY(buffer.atEnd());
        QCOMPARE(buffer.read(1), QByteArray());
    }

    // At a millionth of a byte in a millisecond each byte lasts for many minutes.
    void output_hasNotRunDry_whenItTookEachPartInTime()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer buffer(&sound, 1e-6);
        const QSignalSpy dry(&buffer, &PlaybackBuffer::ranDry);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        for (int i = 0; i < nBytes; ++i) {
            buffer.read(1);
        }
        QCOMPARE(dry.size(), 0);
        QVERIFY(!buffer.isOverdue(0.0));
    }

    // At 1e9 bytes in a millisecond each byte has been heard when the next is taken.
    void output_hasRunDryOnce_whenItTookPartsTooLate()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer buffer(&sound, 1e9);
        const QSignalSpy dry(&buffer, &PlaybackBuffer::ranDry);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        buffer.read(1);
        QCOMPARE(dry.size(), 0);
        QVERIFY(buffer.isOverdue(0.0));
        buffer.read(1);
        QCOMPARE(dry.size(), 1);
        buffer.read(nBytes);
        QCOMPARE(dry.size(), 1);
        QVERIFY(!buffer.isOverdue(0.0));
    }

    void output_cannotRunDry_beforeItHasEnoughToBegin()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer buffer(&sound, 1e9);
        const QSignalSpy dry(&buffer, &PlaybackBuffer::ranDry);
        buffer.setBytesToBegin(3);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        buffer.read(1);
        buffer.read(1);
        buffer.read(1);
        QCOMPARE(dry.size(), 0);
        buffer.read(1);
        QCOMPARE(dry.size(), 1);
    }

    void soundShorterThanTheQueue_cannotRunDry()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer buffer(&sound, 1e9);
        const QSignalSpy dry(&buffer, &PlaybackBuffer::ranDry);
        buffer.setBytesToBegin(nBytes + 1);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        buffer.read(nBytes / 2);
        buffer.read(nBytes / 2);
        QVERIFY(buffer.atEnd());
        QCOMPARE(dry.size(), 0);
    }

    void sound_canHaveBeenHeard_whenAllOfItWasTakenLongAgo()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer fast(&sound, 1e9);
        QVERIFY(fast.open(QIODevice::ReadOnly));
        fast.read(nBytes - 1);
        QVERIFY(!fast.canHaveBeenHeard());
        fast.read(1);
        QTRY_VERIFY(fast.canHaveBeenHeard());
        PlaybackBuffer slow(&sound, 1e-6);
        QVERIFY(slow.open(QIODevice::ReadOnly));
        slow.read(nBytes);
        QVERIFY(slow.atEnd());
        QVERIFY(!slow.canHaveBeenHeard());
    }

    void bytesHeardSinceTheLastTake_areNoMoreThanItsTimeAllows()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer fast(&sound, 1e9);
        QVERIFY(fast.open(QIODevice::ReadOnly));
        fast.read(nBytes);
        QTRY_VERIFY(fast.mostHeardSinceTaken() > nBytes);
        PlaybackBuffer slow(&sound, 1e-6);
        QVERIFY(slow.open(QIODevice::ReadOnly));
        slow.read(nBytes);
        QVERIFY(slow.mostHeardSinceTaken() < 1.0);
    }

    // An hour.
    void sound_isNotOverdue_whileItsFirstBytesMayStillBeTaken()
    {
        constexpr double mostOnsetMs = 3.6e6;
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer buffer(&sound, 1e9);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QVERIFY(!buffer.isOverdue(mostOnsetMs));
        buffer.read(1);
        QVERIFY(buffer.isOverdue(mostOnsetMs));
    }

    void emptySound_isNeverOverdue()
    {
        QByteArray sound;
        PlaybackBuffer buffer(&sound, 1e9);
        const QSignalSpy dry(&buffer, &PlaybackBuffer::ranDry);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QVERIFY(!buffer.isOverdue(0.0));
        QCOMPARE(buffer.read(1), QByteArray());
        QCOMPARE(dry.size(), 0);
    }
};

QUORIN_GUILESS_TEST(TestPlaybackBuffer);
#include "tst_playback_buffer.moc"
