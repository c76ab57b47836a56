// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog that asks for a session's folder, alone and in the program, with a window manager.
#include "session/FolderChoice.h"
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"
#include "system/ManagedScreen.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class TestFolderChoice : public QuietTest {
    Q_OBJECT

public:
    explicit TestFolderChoice(ManagedScreen& screen)
        : m_screen(screen)
    {
    }

private slots:
    void folder_isTheOneChosen()
    {
        const QTemporaryDir folder;
        ModalBoxes boxes;
        boxes.chooseFile(folder.path());
        QCOMPARE(chosenFolder(), folder.path());
        QCOMPARE(boxes.fileChoices().size(), 1);
        const ModalBoxes::FileChoice& choice = boxes.fileChoices()[0];
        QCOMPARE(choice.caption, QString("Choose the folder for the records"));
        QCOMPARE(choice.directory, QDir::homePath());
        QCOMPARE(choice.options,
            QFileDialog::Options(QFileDialog::ShowDirsOnly | QFileDialog::DontUseNativeDialog));
        QCOMPARE(choice.acceptMode, QFileDialog::AcceptOpen);
    }

    void folder_isEmpty_whenTheDialogIsCancelled()
    {
        ModalBoxes boxes;
        boxes.cancelFile();
        QCOMPARE(chosenFolder(), QString());
        QCOMPARE(boxes.fileChoices().size(), 1);
    }

    // Keys that come before the dialog go nowhere.
    void program_endsWell_whenTheDialogIsCancelled()
    {
        QProcess program;
        program.start(SESSION_PROGRAM, {"--ask-folder"});
        QTRY_VERIFY(m_screen.press("Escape") && program.state() == QProcess::NotRunning);
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
        QCOMPARE(program.readAllStandardOutput() + program.readAllStandardError(), QByteArray());
    }

    void program_recordsInTheFolderChosen()
    {
        const QTemporaryDir home; // where the dialog opens
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("HOME", home.path());
        QProcess program;
        program.setProcessEnvironment(environment);
        program.start(SESSION_PROGRAM, {"--ask-folder"});
        QTRY_VERIFY(m_screen.press("Return")
            && QFile::exists(QDir(home.path()).filePath(".quorin-session.lock")));
        QCOMPARE(program.state(), QProcess::Running);
        program.kill();
        QVERIFY(program.waitForFinished());
    }

private:
    ManagedScreen& m_screen;
};

QUORIN_MANAGED_SCREEN_TEST(TestFolderChoice);
#include "tst_folder_choice.moc"
