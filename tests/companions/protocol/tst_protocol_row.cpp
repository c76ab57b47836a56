// SPDX-License-Identifier: GPL-3.0-or-later
// What empty cells stand for, what the panel gets, and which cells are refused.
#include "ProtocolTexts.h"
#include "protocol/ProtocolColumns.h"
#include "protocol/ProtocolRow.h"
#include "support/QuietTest.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace quorin;

namespace {

// A protocol of one row, from pairs of heading and cell.
QByteArray oneRow(const QByteArray& headings, const QByteArray& cells)
{
    return headings + '\n' + cells + '\n';
}

QStringList settingsOf(const QByteArray& headings, const QByteArray& cells)
{
    const Protocol protocol = readProtocol(oneRow(headings, cells));
    QStringList settings;
    for (const PanelSetting& setting : panelSettings(protocol.rows.value(0))) {
        settings.append(setting.widget + ' ' + setting.text);
    }
    return settings;
}

QString textOf(int column, const QByteArray& headings, const QByteArray& cells)
{
    const Protocol protocol = readProtocol(oneRow(headings, cells));
    return protocol.complaints.isEmpty() ? protocol.rows[0].texts[column] : "refused";
}

} // namespace

class TestProtocolRow : public QuietTest {
    Q_OBJECT

private slots:
    void emptyCells_areThePanelAsItOpens()
    {
        QCOMPARE(settingsOf("repeat", "1"),
            QStringList({"comboBoxMainParameter modulation depth", "comboBoxSesType test",
                "comboBoxSoundType noise", "comboBoxMainParameter modulation depth",
                "lineEditStdCarrierFreq 1000.00", "lineEditDevCarrierFreq 1000.00",
                "lineEditStdModFreq 40.00", "lineEditDevModFreq 40.00",
                "lineEditStdModDepth 0.0000", "lineEditDevModDepth 50.0000",
                "lineEditStdFreqDiff 0.0000", "lineEditDevFreqDiff 0.0000",
                "lineEditStdDuration 600.00", "lineEditDevDuration 600.00", "lineEditNReversals 14",
                "lineEditNReversalsToCalc 8", "lineEditSilentInterval 1000.00",
                "lineEditSamplingRate 40000", "lineEditSesNum 1", "checkBoxResetMdFd yes",
                "checkBoxSaveData no"}));
    }

    void cells_goToTheirFields_asTheyStand()
    {
        QCOMPARE(
            settingsOf("main parameter,sound type,session type,standard carrier frequency (Hz),"
                       "deviant carrier frequency (Hz),standard modulation frequency (Hz),"
                       "deviant modulation frequency (Hz),standard modulation depth (%),"
                       "deviant modulation depth (%),standard frequency difference (Hz),"
                       "deviant frequency difference (Hz),standard duration (ms),"
                       "deviant duration (ms),number of reversals,reversals to calculate,"
                       "silent interval (ms),sampling rate (Hz),session,reset md/fd,"
                       "save data to file",
                "carrier frequency,sinusoid,practice,2e3,1980,10,20.5,1,2,3,20,300,250.25,6,4,500,"
                "48000,12,no,yes"),
            QStringList({"comboBoxMainParameter modulation depth", "comboBoxSesType practice",
                "comboBoxSoundType sinusoid", "comboBoxMainParameter carrier frequency",
                "lineEditStdCarrierFreq 2e3", "lineEditDevCarrierFreq 1980",
                "lineEditStdModFreq 10", "lineEditDevModFreq 20.5", "lineEditStdModDepth 1",
                "lineEditDevModDepth 2", "lineEditStdFreqDiff 3", "lineEditDevFreqDiff 20",
                "lineEditStdDuration 300", "lineEditDevDuration 250.25", "lineEditNReversals 6",
                "lineEditNReversalsToCalc 4", "lineEditSilentInterval 500",
                "lineEditSamplingRate 48000", "lineEditSesNum 12", "checkBoxResetMdFd no",
                "checkBoxSaveData yes"}));
    }

    void emptyCells_followOthers_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QByteArray>("headings");
        QTest::addColumn<QByteArray>("cells");
        QTest::addColumn<QString>("text");
        const QByteArray frequency = "sound type,main parameter,standard carrier frequency (Hz),"
                                     "deviant frequency difference (Hz),reset md/fd";
        const QByteArray start = "sinusoid,carrier frequency,2000,,";
        const QByteArray own = "sinusoid,carrier frequency,2000,20.25,no";
        QTest::newRow("practice") << int(sessionTypeColumn) << QByteArray("practice")
                                  << QByteArray("yes") << "practice";
        QTest::newRow("no practice")
            << int(sessionTypeColumn) << QByteArray("practice") << QByteArray("no") << "test";
        QTest::newRow("practice session")
            << int(practiceColumn) << QByteArray("session type") << QByteArray("practice") << "yes";
        QTest::newRow("test session")
            << int(practiceColumn) << QByteArray("session type") << QByteArray("test") << "no";
        QTest::newRow("few reversals")
            << int(reversalsToCalculateColumn) << QByteArray("number of reversals")
            << QByteArray("5") << "5";
        QTest::newRow("many reversals")
            << int(reversalsToCalculateColumn) << QByteArray("number of reversals")
            << QByteArray("20") << "8";
        QTest::newRow("difference")
            << int(deviantDifferenceColumn) << frequency << start << "100.0000";
        QTest::newRow("deviant's carrier")
            << int(deviantCarrierColumn) << frequency << start << "1900.00";
        QTest::newRow("deviant's depth")
            << int(deviantDepthColumn) << frequency << start << "0.0000";
        QTest::newRow("carrier of the own difference")
            << int(deviantCarrierColumn) << frequency << own << "1979.75";
        QTest::newRow("own difference")
            << int(deviantDifferenceColumn) << frequency << own << "20.25";
        QTest::newRow("carrier, depth adapted")
            << int(deviantCarrierColumn) << QByteArray("standard carrier frequency (Hz)")
            << QByteArray("440") << "440.00";
    }

    void emptyCells_followOthers()
    {
        QFETCH(int, column);
        QFETCH(QByteArray, headings);
        QFETCH(QByteArray, cells);
        QTEST(textOf(column, headings, cells), "text");
    }

    void badCell_isRefused_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("cell");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char* column, const char* cell, const char* complaint) {
            QTest::addRow("%s %s", column, cell) << column << cell << complaint;
        };
        row("session type", "pilot", R"("pilot" is not "practice" or "test")");
        row("sound type", "Noise", R"("Noise" is not "sinusoid" or "noise")");
        row("main parameter", "1", R"("1" is not "carrier frequency" or "modulation depth")");
        row("reset md/fd", "true", R"("true" is not "yes" or "no")");
        row("save data to file", "1", R"("1" is not "yes" or "no")");
        row("practice", "Yes", R"("Yes" is not "yes" or "no")");

        row("standard duration (ms)", "600 ms", R"("600 ms" is not a number)");
        row("standard duration (ms)", "nan", R"("nan" is not a number)");
        row("standard duration (ms)", "inf", R"("inf" is not a number)");
        row("standard duration (ms)", "1e400", R"("1e400" is not a number)");
        row("standard duration (ms)", "12,5",
            R"("12,5" has a decimal comma: numbers have a point)");
        row("standard duration (ms)", "1,234,567", R"("1,234,567" is not a number)");
        row("session", "14.0", R"("14.0" is not a whole number)");
        row("session", "1e1", R"("1e1" is not a whole number)");
        row("session", "2147483648", R"("2147483648" is not a whole number)");
        row("sampling rate (Hz)", "44100.5", R"("44100.5" is not a whole number)");
        row("session", "12345678901234567890123456789012345678901",
            R"("1234567890123456789012345678901234567890..." is not a whole number)");

        row("standard carrier frequency (Hz)", "0", R"("0" is not from 1 to 20000 Hz)");
        row("standard carrier frequency (Hz)", "20000.1", R"("20000.1" is not from 1 to 20000 Hz)");
        row("standard modulation frequency (Hz)", "-1", R"("-1" is not from 0 to 20000 Hz)");
        row("deviant modulation frequency (Hz)", "2e4.", R"("2e4." is not a number)");
        row("deviant modulation frequency (Hz)", "2.1e4", R"("2.1e4" is not from 0 to 20000 Hz)");
        row("standard modulation depth (%)", "100.0001", R"("100.0001" is not from 0 to 100 %)");
        row("standard frequency difference (Hz)", "-0.1", R"("-0.1" is not from 0 to 20000 Hz)");
        row("standard duration (ms)", "0.99", R"("0.99" is not from 1 to 209715 ms)");
        row("deviant duration (ms)", "209716", R"("209716" is not from 1 to 209715 ms)");
        row("number of reversals", "0", R"("0" is not from 1 to 1000)");
        row("number of reversals", "1001", R"("1001" is not from 1 to 1000)");
        row("reversals to calculate", "15", R"("15" is not from 1 to 14)");
        row("reversals to calculate", "0", R"("0" is not from 1 to 14)");
        row("silent interval (ms)", "-1", R"("-1" is not from 0 to 60000 ms)");
        row("silent interval (ms)", "60001", R"("60001" is not from 0 to 60000 ms)");
        row("sampling rate (Hz)", "7999", R"("7999" is not from 8000 to 192000 Hz)");
        row("sampling rate (Hz)", "192001", R"("192001" is not from 8000 to 192000 Hz)");
        row("session", "0", R"("0" is not from 1 to 999999)");
        row("session", "1000000", R"("1000000" is not from 1 to 999999)");
        row("repeat", "-1", R"("-1" is not from 1 to 1000)");
        row("repeat", "1001", R"("1001" is not from 1 to 1000)");

        row("deviant carrier frequency (Hz)", "990",
            R"("990" has no effect as long as "reset md/fd" is "yes")");
        row("deviant modulation depth (%)", "30",
            R"("30" has no effect as long as "reset md/fd" is "yes")");
        row("deviant frequency difference (Hz)", "30",
            R"("30" has no effect as long as "reset md/fd" is "yes")");
    }

    void badCell_isRefused()
    {
        QFETCH(QString, column);
        QFETCH(QString, cell);
        QFETCH(QString, complaint);
        QCOMPARE(complaintsOf(oneRow(column.toUtf8(), '"' + cell.toUtf8() + '"')),
            "line 2, column \"" + column + "\": " + complaint);
    }

    void longText_isRefused()
    {
        const QByteArray longest(2000, 'x');
        QCOMPARE(complaintsOf(oneRow("instruction,break", longest + ',' + longest)), QString());
        QCOMPARE(complaintsOf(oneRow("instruction,break", longest + "x,x" + longest)),
            QString("line 2, column \"break\": the text is longer than 2000 characters\n"
                    "line 2, column \"instruction\": the text is longer than 2000 characters"));
    }

    void badCombination_isRefused_data()
    {
        QTest::addColumn<QByteArray>("headings");
        QTest::addColumn<QByteArray>("cells");
        QTest::addColumn<QString>("complaints");
        QTest::newRow("noise and carrier frequency")
            << QByteArray("main parameter,sound type") << QByteArray("carrier frequency,noise")
            << "line 2, column \"sound type\": \"noise\" is incompatible with the main parameter "
               "\"carrier frequency\"";
        QTest::newRow("an empty cell is noise")
            << QByteArray("main parameter,sound type") << QByteArray("carrier frequency,")
            << "line 2, column \"sound type\": \"noise\" is incompatible with the main parameter "
               "\"carrier frequency\"; it is the default";
        QTest::newRow("no column is noise")
            << QByteArray("main parameter") << QByteArray("carrier frequency")
            << "line 2, column \"sound type\": \"noise\" is incompatible with the main parameter "
               "\"carrier frequency\"; it is the default";
        QTest::newRow("practice in a test session")
            << QByteArray("practice,session type") << QByteArray("yes,test")
            << R"(line 2, column "practice": "yes" contradicts the session type "test")";
        QTest::newRow("no practice in a practice session")
            << QByteArray("practice,session type") << QByteArray("no,practice")
            << R"(line 2, column "practice": "no" contradicts the session type "practice")";
        QTest::newRow("more reversals than there are")
            << QByteArray("number of reversals,reversals to calculate") << QByteArray("6,7")
            << R"(line 2, column "reversals to calculate": "7" is not from 1 to 6)";
        QTest::newRow("above half the rate")
            << QByteArray("sampling rate (Hz),standard carrier frequency (Hz)")
            << QByteArray("8000,4000.5")
            << "line 2, column \"standard carrier frequency (Hz)\": \"4000.5\" is not from 1 to "
               "4000 Hz";
        QTest::newRow("longer than is played")
            << QByteArray("sampling rate (Hz),standard duration (ms)") << QByteArray("192000,43691")
            << "line 2, column \"standard duration (ms)\": \"43691\" is not from 1 to 43690 ms";
        QTest::newRow("no rate, no reversals")
            << QByteArray("sampling rate (Hz),standard duration (ms),number of reversals,"
                          "reversals to calculate")
            << QByteArray("0,0,0,2")
            << "line 2, column \"standard duration (ms)\": \"0\" is not from 1 to 209715 ms\n"
               "line 2, column \"number of reversals\": \"0\" is not from 1 to 1000\n"
               "line 2, column \"reversals to calculate\": \"2\" is not from 1 to 1\n"
               "line 2, column \"sampling rate (Hz)\": \"0\" is not from 8000 to 192000 Hz";
    }

    void badCombination_isRefused()
    {
        QFETCH(QByteArray, headings);
        QFETCH(QByteArray, cells);
        QTEST(complaintsOf(oneRow(headings, cells)), "complaints");
    }

    void badStartOfTheDeviant_isRefused_data()
    {
        QTest::addColumn<QByteArray>("headings");
        QTest::addColumn<QByteArray>("cells");
        QTest::addColumn<QString>("complaints");
        const QByteArray deviant
            = "sound type,main parameter,reset md/fd,standard carrier frequency (Hz),"
              "deviant carrier frequency (Hz),deviant frequency difference (Hz),"
              "deviant modulation depth (%)";
        QTest::newRow("depth 0 to adapt")
            << deviant << QByteArray(",,no,,,,0")
            << "line 2, column \"deviant modulation depth (%)\": \"0\" is not from 0.0001 to 100 %";
        QTest::newRow("difference 0 to adapt")
            << deviant << QByteArray("sinusoid,carrier frequency,no,2000,,0,")
            << "line 2, column \"deviant frequency difference (Hz)\": \"0\" is not from 0.0001 to "
               "1999.8 Hz";
        QTest::newRow("difference of the whole carrier")
            << deviant << QByteArray(",,no,500,,500,")
            << "line 2, column \"deviant frequency difference (Hz)\": \"500\" is not from 0 to "
               "499.95 Hz";
        QTest::newRow("deviant's carrier below 0")
            << QByteArray("reset md/fd,deviant carrier frequency (Hz)") << QByteArray("no,-1")
            << "line 2, column \"deviant carrier frequency (Hz)\": \"-1\" is not from 0 to 20000 "
               "Hz";
        QTest::newRow("two carriers")
            << deviant << QByteArray("sinusoid,carrier frequency,no,1000,950,20,")
            << "line 2, column \"deviant carrier frequency (Hz)\": \"950\" contradicts the "
               "frequency difference: the standard's carrier less it is 980.00 Hz";
        QTest::newRow("a carrier off the start")
            << deviant << QByteArray("sinusoid,carrier frequency,no,1000,980,,")
            << "line 2, column \"deviant carrier frequency (Hz)\": \"980\" contradicts the "
               "frequency difference: the standard's carrier less it is 950.00 Hz";
    }

    void badStartOfTheDeviant_isRefused() { badCombination_isRefused(); }

    void limits_areTaken_data()
    {
        QTest::addColumn<QByteArray>("headings");
        QTest::addColumn<QByteArray>("cells");
        const auto row = [](const char* headings, const char* cells) {
            QTest::addRow("%s %s", headings, cells) << QByteArray(headings) << QByteArray(cells);
        };
        row("standard carrier frequency (Hz)", "1");
        row("standard carrier frequency (Hz)", "20000");
        row("standard modulation frequency (Hz),deviant modulation frequency (Hz)", "0,20000");
        row("standard modulation depth (%)", "100");
        row("standard frequency difference (Hz)", "20000");
        row("standard duration (ms),deviant duration (ms)", "1,209715");
        row("number of reversals,reversals to calculate", "1000,1000");
        row("number of reversals,reversals to calculate", "1,1");
        row("silent interval (ms)", "0");
        row("silent interval (ms)", "60000");
        row("sampling rate (Hz)", "8000");
        row("sampling rate (Hz)", "192000");
        row("session,repeat", "999999,1000");
        row("reset md/fd,deviant modulation depth (%)", "no,0.0001");
        row("reset md/fd,deviant modulation depth (%),deviant frequency difference (Hz)",
            "no,100,999.9");
        row("practice,session type", "yes,practice");
        row("practice,session type", "no,test");
        const char* const carriers
            = "sound type,main parameter,reset md/fd,standard carrier frequency (Hz),"
              "deviant carrier frequency (Hz),deviant frequency difference (Hz)";
        row(carriers, "sinusoid,carrier frequency,no,1000,979.995,20");
        row(carriers, "sinusoid,carrier frequency,no,1000,980.005,20");
    }

    void limits_areTaken()
    {
        QFETCH(QByteArray, headings);
        QFETCH(QByteArray, cells);
        QCOMPARE(complaintsOf(oneRow(headings, cells)), QString());
    }
};

QUORIN_APPLESS_TEST(TestProtocolRow);
#include "tst_protocol_row.moc"
