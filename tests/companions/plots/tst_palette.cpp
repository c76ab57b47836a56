// SPDX-License-Identifier: GPL-3.0-or-later
// Images with few colours stay as they are, and with many they stay as near as a palette can be.
#include "plots/Palette.h"
#include "support/QuietTest.h"

class TestPalette : public QuietTest {
    Q_OBJECT

private slots:
    void image_isTheSame_withUpTo256Colors()
    {
        QImage image(64, 8, QImage::Format_RGB32);
        for (int i = 0; i < 64 * 8; ++i) {
            image.setPixel(i % 64, i / 64, qRgb(i % 256, 255 - i % 256, 7));
        }
        const QImage result = withPalette(image);
        QCOMPARE(result.format(), QImage::Format_Indexed8);
        QCOMPARE(result.colorCount(), 256);
        QCOMPARE(result.convertToFormat(QImage::Format_RGB32), image);
    }

    void frequentColors_stay_andRareOnesBecomeTheNearest()
    {
        // 256 colours twice, and one more that lies beside one of them.
        QImage image(513, 1, QImage::Format_RGB32);
        for (int i = 0; i < 512; ++i) {
            image.setPixel(i, 0, qRgb(i % 256, 0, 0));
        }
        image.setPixel(512, 0, qRgb(100, 3, 2));
        const QImage result = withPalette(image).convertToFormat(QImage::Format_RGB32);
        for (int i = 0; i < 512; ++i) {
            QCOMPARE(result.pixel(i, 0), image.pixel(i, 0));
        }
        QCOMPARE(result.pixel(512, 0), qRgb(100, 0, 0));
    }
};

QUORIN_GUILESS_TEST(TestPalette);
#include "tst_palette.moc"
