// SPDX-License-Identifier: GPL-3.0-or-later
// The save dialog and the file that it leads to.
#include "procedure/SavedRun.h"
#include "procedure/SilentRun.h"
#include "support/WindowTest.h"

#include <QDialogButtonBox>

#include <cmath>

using namespace quorin;

namespace {

/// The characters from the first to the last one, but the slash, which parts folders, and the
/// quotation mark, between which Qt's dialog takes several names.
QString charactersFrom(ushort first, ushort last)
{
    QString characters;
    for (ushort code = first; code <= last; ++code) {
        if (code != '/' && code != '"') {
            characters += QChar(code);
        }
    }
    return characters;
}

} // namespace

class TestResultsFile : public WindowTest {
    Q_OBJECT

private slots:
    void dialog_startsAtTheComposedPath()
    {
        announceWarning(QString(unnamedFile));
        SavedRun run;
        run.save(QString());
        QCOMPARE(run.boxes.fileChoices().size(), 1);
        const ModalBoxes::FileChoice choice = run.boxes.fileChoices().first();
        QCOMPARE(choice.caption, QString("Save a file"));
        QCOMPARE(choice.directory, QDir(run.folder.path()).absolutePath());
        QCOMPARE(choice.fileName, QString("run.txt"));
        QCOMPARE(choice.nameFilters, (QStringList {"All files (*.*)", "Text files (*.txt)"}));
        QCOMPARE(choice.selectedNameFilter, QString("Text files (*.txt)"));
        QCOMPARE(choice.options, QFileDialog::Options(QFileDialog::DontConfirmOverwrite));
        QCOMPARE(choice.acceptMode, QFileDialog::AcceptSave);
        QCOMPARE(choice.parent, &run.window);
    }

    void file_holdsHeaderAndTrials_whenDepthIsAdapted()
    {
        SavedRun run;
        run.save(run.path("depth.txt"));
        QCOMPARE(contentOf(run.path("depth.txt")), SavedRun::expectedBytes());
        QCOMPARE(run.names(), QStringList {"depth.txt"});
        QVERIFY(run.boxes.messages().isEmpty());
    }

    void file_holdsHeaderAndTrials_whenFrequencyIsAdapted()
    {
        SavedRun run;
        run.data.mainParameter = carrierFrequencyParameter;
        run.data.cf[standard] = 2000.0;
        run.save(run.path("frequency.txt"));
        QCOMPARE(contentOf(run.path("frequency.txt")),
            QByteArray("frequency difference (Hz)\tstimulus position\tresponse position\t"
                       "correctness\treaction time (ms)\r\n1000.000000\t2\t2\t1\t734\r\n"
                       "500.000000\t2\t3\t0\t65\r\n"));
    }

    void file_isEmpty_forAnyOtherParameter()
    {
        SavedRun run;
        run.data.mainParameter = 2;
        run.save(run.path("other.txt"));
        QCOMPARE(contentOf(run.path("other.txt")), QByteArray());
        QVERIFY(run.boxes.messages().isEmpty());
    }

    void file_isEmpty_withoutTrials()
    {
        SavedRun run;
        run.data.records.clear();
        fillFile(run.path("none.txt"), "an earlier run");
        run.save(run.path("none.txt"));
        QCOMPARE(contentOf(run.path("none.txt")), QByteArray());
        QVERIFY(run.boxes.messages().isEmpty());
    }

    void fortyTrials_giveFortyOneLines()
    {
        SavedRun run;
        run.data.records = QVector<Record>(40, answered(true, 0.5, 734));
        run.save(run.path("forty.txt"));
        const QByteArray content = contentOf(run.path("forty.txt"));
        QCOMPARE(content.count("\r\n"), 41);
        QCOMPARE(content.count('\n'), 41);
        QCOMPARE(content.count('\r'), 41);
        QVERIFY(content.endsWith("50.000000\t2\t2\t1\t734\r\n"));
    }

    void longerFile_isReplacedWithoutAQuestion()
    {
        SavedRun run;
        fillFile(run.path("run.txt"), QByteArray(100000, 'x'));
        run.save(run.path("run.txt"));
        QCOMPARE(contentOf(run.path("run.txt")), SavedRun::expectedBytes());
        QVERIFY(run.boxes.messages().isEmpty());
        QCOMPARE(run.boxes.fileChoices().size(), 1);
    }

    void choice_isKeptInTheRecordAlone()
    {
        SavedRun run;
        const QString shownPath = textOf(run.window, "lineEditFilePath");
        const QString shownName = textOf(run.window, "lineEditFileName");
        QDir(run.folder.path()).mkdir("sub");
        const QString path = run.path("sub/chosen.txt");
        run.save(path);
        QCOMPARE(run.data.outputDir, path);
        QCOMPARE(run.data.fileName, QString("chosen.txt"));
        QCOMPARE(textOf(run.window, "lineEditFilePath"), shownPath);
        QCOMPARE(textOf(run.window, "lineEditFileName"), shownName);
        run.save(path);
        QCOMPARE(run.boxes.fileChoices().last().fileName, QString("chosen.txt"));
        QCOMPARE(contentOf(path), SavedRun::expectedBytes());
    }

    void panelsPath_isReadAgain_atTheNextView()
    {
        SavedRun run;
        run.save(run.path("chosen.txt"));
        type(run.window, "lineEditFilePath", run.folder.path());
        buttonOf(run.window, "pushButtonView")->click();
        QCOMPARE(run.data.outputDir, run.folder.path());
        QCOMPARE(run.data.fileName, textOf(run.window, "lineEditFileName"));
    }

    void file_isWritten_underAnyName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blanks") << QString("  my run  ");
        QTest::newRow("no suffix") << QString("run");
        QTest::newRow("hidden") << QString(".run");
        QTest::newRow("dash") << QString("-run");
        QTest::newRow("patterns") << QString("*?[a]{b}|;&!$#~.txt");
        QTest::newRow("place markers") << QString("%1 %s %n.txt");
        QTest::newRow("backslash and apostrophe") << QString("a\\b'c.txt");
        QTest::newRow("mark-up") << QString("<b>run<&amp;.txt");
        QTest::newRow("accents") << QString::fromUtf8("g\u00e9n\u00e8re e\u0301.txt");
        QTest::newRow("other scripts") << QString::fromUtf8("\u5b9f\u9a13 \u05d0\u05d1.txt");
        QTest::newRow("emoji") << QString::fromUtf8("\U0001F3A7.txt");
        QTest::newRow("control characters") << QString("a\tb\nc\x01.txt");
        QTest::newRow("every ASCII character") << charactersFrom(0x01, 0x7f);
        QTest::newRow("every other Latin-1 character") << charactersFrom(0x80, 0xfe);
        QTest::newRow("invisible characters") << charactersFrom(0x2000, 0x202f) + QChar(0xfeff);
        QTest::newRow("blanks and dots at the end") << QString("run.. . ");
        QTest::newRow("another user's home") << QString("~root");
        QTest::newRow("255 bytes") << QString(255, 'x');
        QTest::newRow("255 bytes in other script") << QString(85, QChar(0x5b9f));
    }

    void file_isWritten_underAnyName()
    {
        QFETCH(QString, name);
        SavedRun run;
        run.save(run.path(name));
        QVERIFY(run.boxes.messages().isEmpty());
        QCOMPARE(run.names(), QStringList {name});
        QCOMPARE(contentOf(run.path(name)), SavedRun::expectedBytes());
        QCOMPARE(run.data.outputDir, run.path(name));
        QCOMPARE(run.data.fileName, name);
    }

    // The subject code goes into the offered name as it is.
    void file_isWritten_underTheOfferedName_data()
    {
        QTest::addColumn<QString>("subject");
        QTest::newRow("empty") << QString();
        QTest::newRow("every ASCII character") << charactersFrom(0x01, 0x7f);
        QTest::newRow("emoji") << QString::fromUtf8("\U0001F3A7");
        QTest::newRow("255 bytes in all") << QString(220, 'x');
    }

    void file_isWritten_underTheOfferedName()
    {
        QFETCH(QString, subject);
        const QString name = subject + "_test001_noise_modulation depth.txt";
        SavedRun run;
        type(run.window, "lineEditSubCode", subject);
        run.boxes.onOpen([](QWidget* box) {
            auto* const buttons = box->findChild<QDialogButtonBox*>("buttonBox");
            buttons->button(QDialogButtonBox::Save)->click();
        });
        run.window.writeDataToTxt();
        QCOMPARE(run.names(), QStringList {name});
        QCOMPARE(contentOf(run.path(name)), SavedRun::expectedBytes());
        QVERIFY(run.boxes.messages().isEmpty());
    }

    void listener_seesTheResult_beforeTheDialogOpens()
    {
        SilentRun run(modulationDepthParameter, 1);
        const QTemporaryDir folder;
        ModalBoxes boxes;
        checkBoxOf(run.window, "checkBoxSaveData")->setChecked(true);
        run.driver.open();
        QString shown;
        boxes.onOpen([&](QWidget*) {
            const SubjectWindow& subject = run.subject();
            QVERIFY(labelOf(subject, "labelThreshold")->isVisible());
            QVERIFY(buttonOf(subject, "pushButtonDone")->isVisible());
            shown = labelOf(subject, "labelThreshold")->text();
        });
        boxes.chooseFile(folder.filePath("run.txt"));
        run.play("cw");
        QCOMPARE(boxes.fileChoices().size(), 1);
        QCOMPARE(shown, QString("Modulation Threshold = 39.7164 %,   Reaction Time = 0 ms"));
        const QList<QByteArray> lines = contentOf(folder.filePath("run.txt")).split('\n');
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines[1].startsWith("50.000000\t"));
        QVERIFY(lines[1].endsWith("\t1\t0\r"));
        QVERIFY(lines[2].startsWith("39.716412\t"));
        QVERIFY(lines[2].endsWith("\t0\t0\r"));
    }

    void nothingIsAsked_whenSavingWasNotAskedFor()
    {
        SilentRun run(modulationDepthParameter, 1);
        ModalBoxes boxes;
        run.driver.open();
        checkBoxOf(run.window, "checkBoxSaveData")->setChecked(true);
        run.play("cw");
        QVERIFY(std::isfinite(run.data.threshold) && run.data.threshold > 0.0);
        QVERIFY(boxes.fileChoices().isEmpty());
        QVERIFY(boxes.messages().isEmpty());
    }
};

QUORIN_TEST(TestResultsFile);
#include "tst_results_file.moc"
