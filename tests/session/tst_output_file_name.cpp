// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Data.h"
#include "session/OutputFileName.h"
#include "support/QuietTest.h"

#include <QStandardPaths>
#include <QtTest>

class TestOutputFileName : public QuietTest {
    Q_OBJECT

private slots:
    void name_isThis_whenTheChoicesAre_data()
    {
        QTest::addColumn<QString>("subCode");
        QTest::addColumn<int>("sesType");
        QTest::addColumn<int>("sesNum");
        QTest::addColumn<int>("soundType");
        QTest::addColumn<int>("mainParameter");
        QTest::addColumn<QString>("expected");
        QTest::newRow("what the window opens with")
            << "SUB001" << 1 << 1 << 1 << 1 << "SUB001_test001_noise_modulation depth.txt";
        QTest::newRow("other choices")
            << "AB" << 0 << 7 << 0 << 0 << "AB_practice007_sinusoid_carrier frequency.txt";
        QTest::newRow("two digits")
            << "AB" << 1 << 12 << 0 << 1 << "AB_test012_sinusoid_modulation depth.txt";
        QTest::newRow("three digits")
            << "AB" << 1 << 123 << 0 << 1 << "AB_test123_sinusoid_modulation depth.txt";
        QTest::newRow("more digits")
            << "AB" << 1 << 1234 << 0 << 1 << "AB_test1234_sinusoid_modulation depth.txt";
        QTest::newRow("session 0")
            << "AB" << 1 << 0 << 0 << 1 << "AB_test000_sinusoid_modulation depth.txt";
        QTest::newRow("negative session")
            << "AB" << 1 << -5 << 0 << 1 << "AB_test0-5_sinusoid_modulation depth.txt";
        QTest::newRow("no subject code")
            << "" << 1 << 1 << 1 << 1 << "_test001_noise_modulation depth.txt";
        QTest::newRow("characters that file systems refuse")
            << "../a:b*?%1 " << 1 << 1 << 1 << 1
            << "../a:b*?%1 _test001_noise_modulation depth.txt";
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

QTEST_GUILESS_MAIN(TestOutputFileName)
#include "tst_output_file_name.moc"
