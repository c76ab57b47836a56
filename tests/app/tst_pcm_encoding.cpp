// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes that samples are played as.
#include "app/PlayedSound.h"
#include "support/QuietTest.h"

#include <limits>

class TestPcmEncoding : public QuietTest {
    Q_OBJECT

private slots:
    void sample_isALittleEndianFloat_data()
    {
        addColumns<double, QByteArray>("sample", "hex");
        addRow("zero", 0.0, QByteArray("00000000"));
        addRow("full scale", 1.0, QByteArray("0000803f"));
        addRow("negative", -0.5, QByteArray("000000bf"));
        addRow("negative zero", -0.0, QByteArray("00000080"));
        addRow("rounded to the nearest float", 0.1, QByteArray("cdcccc3d"));
        addRow("beyond full scale, unclipped", 2.5, QByteArray("00002040"));
        addRow("too small for a float", 1e-50, QByteArray("00000000"));
        addRow("infinite", std::numeric_limits<double>::infinity(), QByteArray("0000807f"));
    }

    void sample_isALittleEndianFloat()
    {
        QFETCH(double, sample);
        QTEST(encodedPcm({sample}, 1).toHex(), "hex");
    }

    void samples_standFourBytesApart()
    {
        QCOMPARE(encodedPcm({1.0, -0.5, 0.1}, 3).toHex(), QByteArray("0000803f000000bfcdcccc3d"));
    }

    void length_isTheDemandedOne_whateverTheVectorHolds_data()
    {
        addColumns<QVector<double>, int, QByteArray>("samples", "nSamples", "hex");
        const QVector<double> two = {1.0, -0.5};
        addRow("cut", two, 1, QByteArray("0000803f"));
        addRow("silence beyond the end", two, 4, QByteArray("0000803f000000bf0000000000000000"));
        addRow("nothing demanded", two, 0, QByteArray());
        addRow("fewer than none", two, -3, QByteArray());
        addRow("empty vector", QVector<double>(), 2, QByteArray("0000000000000000"));
        addRow("empty vector, nothing demanded", QVector<double>(), 0, QByteArray());
    }

    void length_isTheDemandedOne_whateverTheVectorHolds()
    {
        QFETCH(QVector<double>, samples);
        QFETCH(int, nSamples);
        QTEST(encodedPcm(samples, nSamples).toHex(), "hex");
    }
};

QUORIN_GUILESS_TEST(TestPcmEncoding);
#include "tst_pcm_encoding.moc"
