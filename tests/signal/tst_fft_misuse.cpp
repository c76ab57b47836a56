// SPDX-License-Identifier: GPL-3.0-or-later
// The checks that stop a misuse of the transform.
#include "support/TestProgram.h"

class TestFFTMisuse : public QObject {
    Q_OBJECT

private slots:
    void misuse_stopsTheProgram_withFileLineAndText_data()
    {
        QTest::addColumn<QString>("file");
        const char* const ofTheTables[] = {"size >= 0", "pos >= 0", "pos < _len"};
        for (const char* text : ofTheTables)
            QTest::newRow(text) << "FFTTables.h";
        QTest::newRow("x > 0") << "FFTReal.h";
        const char* const ofTheTransform[] = {"FFTReal_is_pow2 (length)",
            "_nbr_bits <= MAX_BIT_DEPTH", "f != 0", "f != use_buffer ()", "x != 0",
            "x != use_buffer ()", "x != f", "df != 0", "sf != 0", "df != sf", "df != x",
            "pass >= 3", "pass < _nbr_bits", "pass > TRIGO_BD_LIMIT"};
        for (const char* text : ofTheTransform)
            QTest::newRow(text) << "FFTReal_p.h";
    }
    void misuse_stopsTheProgram_withFileLineAndText()
    {
        QFETCH(QString, file);
        const QString text = QTest::currentDataTag();
        QProcess program;
        program.start(FFT_ASSERTION_PROGRAM, {text});
        QVERIFY(program.waitForFinished());
        QCOMPARE(program.exitStatus(), QProcess::CrashExit);
        const QRegularExpression line("(^|/)" + QRegularExpression::escape(file)
            + ":[1-9][0-9]*: check failed: " + QRegularExpression::escape(text) + "\n$");
        const QString error = QString::fromLocal8Bit(program.readAllStandardError());
        QVERIFY2(line.match(error).hasMatch(), qPrintable(error));
    }
};

QUORIN_GUILESS_TEST(TestFFTMisuse);
#include "tst_fft_misuse.moc"
