// SPDX-License-Identifier: GPL-3.0-or-later
// The results file's name, composed and read back.
#include "session/Data.h"
#include "session/OutputFileName.h"
#include "support/QuietTest.h"

class TestOutputFileName : public QuietTest {
    Q_OBJECT

private slots:
    void name_isThis_whenTheChoicesAre_data()
    {
        addColumns<QString, int, int, int, int, QString>(
            "subCode", "sesType", "sesNum", "soundType", "mainParameter", "expected");
        addRow("what the window opens with", "SUB001", 1, 1, 1, 1,
            "SUB001_test001_noise_modulation depth.txt");
        addRow("other choices", "AB", 0, 7, 0, 0, "AB_practice007_sinusoid_carrier frequency.txt");
        addRow("two digits", "AB", 1, 12, 0, 1, "AB_test012_sinusoid_modulation depth.txt");
        addRow("three digits", "AB", 1, 123, 0, 1, "AB_test123_sinusoid_modulation depth.txt");
        addRow("more digits", "AB", 1, 1234, 0, 1, "AB_test1234_sinusoid_modulation depth.txt");
        addRow("session 0", "AB", 1, 0, 0, 1, "AB_test000_sinusoid_modulation depth.txt");
        addRow("negative session", "AB", 1, -5, 0, 1, "AB_test0-5_sinusoid_modulation depth.txt");
        addRow("no subject code", "", 1, 1, 1, 1, "_test001_noise_modulation depth.txt");
        addRow("characters that file systems refuse", "../a:b*?%1 ", 1, 1, 1, 1,
            "../a:b*?%1 _test001_noise_modulation depth.txt");
    }

    void name_isThis_whenTheChoicesAre()
    {
        Data data;
        QFETCH(QString, subCode);
        QFETCH(int, sesType);
        QFETCH(int, sesNum);
        QFETCH(int, soundType);
        QFETCH(int, mainParameter);
        data.subCode = subCode;
        data.sesType = sesType;
        data.sesNum = sesNum;
        data.soundType = soundType;
        data.mainParameter = mainParameter;
        QTEST(composedFileName(data), "expected");
        QCOMPARE(data.fileName, QString("SUB001.txt"));
    }

    void choices_areReadBack_fromTheirName_data() { name_isThis_whenTheChoicesAre_data(); }

    void choices_areReadBack_fromTheirName()
    {
        QFETCH(QString, expected);
        Data data;
        QVERIFY(readFileName(expected, data));
        QTEST(data.subCode, "subCode");
        QTEST(data.sesType, "sesType");
        QTEST(data.sesNum, "sesNum");
        QTEST(data.soundType, "soundType");
        QTEST(data.mainParameter, "mainParameter");
    }

    void subject_isReadBack_whenItLooksLikeAName()
    {
        Data data;
        QVERIFY(readFileName(
            "A_test001_noise_modulation depth.txt\n_practice2147483647_noise_modulation depth.txt",
            data));
        QCOMPARE(data.subCode, QString("A_test001_noise_modulation depth.txt\n"));
        QCOMPARE(data.sesNum, 2147483647);
    }

    void otherNames_changeNothing_data()
    {
        QTest::addColumn<QString>("name");
        addRow("empty", "");
        addRow("another text", "A.txt");
        addRow("two digits", "A_test01_noise_modulation depth.txt");
        addRow("a zero too many", "A_test0001_noise_modulation depth.txt");
        addRow("number beyond an int", "A_test2147483648_noise_modulation depth.txt");
        addRow("no number", "A_test_noise_modulation depth.txt");
        addRow("sign only", "A_test00-_noise_modulation depth.txt");
        addRow("another session type", "A_retest001_noise_modulation depth.txt");
        addRow("another sound", "A_test001_click_modulation depth.txt");
        addRow("another parameter", "A_test001_noise_level.txt");
        addRow("another suffix", "A_test001_noise_modulation depth.csv");
        addRow("capitals", "A_TEST001_noise_modulation depth.txt");
        addRow("line end behind it", "A_test001_noise_modulation depth.txt\n");
        addRow("without a subject's separator", "test001_noise_modulation depth.txt");
    }

    void otherNames_changeNothing()
    {
        QFETCH(QString, name);
        Data data;
        data.sesNum = 7;
        QVERIFY(!readFileName(name, data));
        QCOMPARE(data.subCode, QString("SUB001"));
        QCOMPARE(data.sesNum, 7);
        QCOMPARE(data.sesType, 0);
        QCOMPARE(data.soundType, 0);
        QCOMPARE(data.mainParameter, 0);
    }

    void name_usesTheRecordsLists_whenTheyAreOthers()
    {
        Data data;
        data.sesTypes = QStringList({"a", "b"});
        data.soundTypes = QStringList({"c", "d"});
        data.mainParameters = QStringList({"e", "f"});
        QCOMPARE(composedFileName(data), QString("SUB001_a001_c_e.txt"));
    }

    void name_lacksTheChoice_whenNoneIsMade()
    {
        Data data;
        data.sesType = -1;
        data.soundType = 2;
        data.mainParameter = -1;
        QCOMPARE(composedFileName(data), QString("SUB001_001__.txt"));
    }

    void folder_isTheDesktop_whenAsked()
    {
        QCOMPARE(
            desktopFolder(), QStandardPaths::writableLocation(QStandardPaths::DesktopLocation));
        QVERIFY(!desktopFolder().isEmpty());
    }
};

QUORIN_GUILESS_TEST(TestOutputFileName);
#include "tst_output_file_name.moc"
