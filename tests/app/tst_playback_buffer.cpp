// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of an output from the times at which it takes the bytes of its sound.
#include "app/PlaybackBuffer.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

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
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        for (int i = 0; i < nBytes; ++i) {
            buffer.read(1);
        }
        QVERIFY(!buffer.hasRunDry());
        QVERIFY(!buffer.isOverdue());
    }

    // At 1e9 bytes in a millisecond each byte has been heard when the next is taken.
    void output_hasRunDry_whenItTookAPartTooLate()
    {
        QByteArray sound(nBytes, 'x');
        PlaybackBuffer buffer(&sound, 1e9);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        buffer.read(1);
        QVERIFY(!buffer.hasRunDry());
        QVERIFY(buffer.isOverdue());
        buffer.read(1);
        QVERIFY(buffer.hasRunDry());
        buffer.read(nBytes);
        QVERIFY(buffer.hasRunDry());
        QVERIFY(!buffer.isOverdue());
    }

    void emptySound_isNeverOverdue()
    {
        QByteArray sound;
        PlaybackBuffer buffer(&sound, 1e9);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QVERIFY(!buffer.isOverdue());
        QVERIFY(!buffer.hasRunDry());
    }
};

QUORIN_GUILESS_TEST(TestPlaybackBuffer);
#include "tst_playback_buffer.moc"
