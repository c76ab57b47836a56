// SPDX-License-Identifier: GPL-3.0-or-later
// How ModalBoxes records and answers boxes.
#include "support/ModalBoxes.h"
#include "support/QuietTest.h"

#include <QPushButton>

namespace {

const QString filters("All files (*.*);; Text files (*.txt)");

QString askForFile(QWidget* parent, const QString& start)
{
    QString selected("Text files (*.txt)");
    return QFileDialog::getSaveFileName(
        parent, "Save a file", start, filters, &selected, QFileDialog::DontConfirmOverwrite);
}

QMessageBox::StandardButton askYesNoCancel(QWidget* parent)
{
    return QMessageBox::question(parent, "Close", "Really?\n",
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
}

} // namespace

class TestModalBoxes : public QuietTest {
    Q_OBJECT

private slots:
    void message_isRecorded_whenAQuestionOpens()
    {
        ModalBoxes boxes;
        QWidget parent;
        QCOMPARE(askYesNoCancel(&parent), QMessageBox::Yes);
        QCOMPARE(boxes.messages().size(), 1);
        const ModalBoxes::Message& message = boxes.messages().constFirst();
        QCOMPARE(message.title, QString("Close"));
        QCOMPARE(message.text, QString("Really?\n"));
        QCOMPARE(message.icon, QMessageBox::Question);
        QCOMPARE(message.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        QCOMPARE(message.defaultButton, QMessageBox::Yes);
        QCOMPARE(message.parent, &parent);
    }

    void message_isRecorded_whenAWarningWithoutParentOpens()
    {
        ModalBoxes boxes;
        QCOMPARE(QMessageBox::warning(nullptr, "Warning", "Invalid"), QMessageBox::Ok);
        QCOMPARE(boxes.messages().size(), 1);
        const ModalBoxes::Message& message = boxes.messages().constFirst();
        QCOMPARE(message.icon, QMessageBox::Warning);
        QCOMPARE(message.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QCOMPARE(message.defaultButton, QMessageBox::Ok);
        QVERIFY(message.parent == nullptr);
    }

    void answers_areGivenInOrder_whenQueued()
    {
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::No);
        boxes.escapeNext();
        boxes.answerNext(QMessageBox::Yes);
        QCOMPARE(boxes.unusedAnswers(), 3);
        QCOMPARE(askYesNoCancel(nullptr), QMessageBox::No);
        QCOMPARE(askYesNoCancel(nullptr), QMessageBox::Cancel);
        QCOMPARE(askYesNoCancel(nullptr), QMessageBox::Yes);
        QCOMPARE(boxes.messages().size(), 3);
        QCOMPARE(boxes.unusedAnswers(), 0);
    }

    void escape_pressesOk_whenThereIsNoOtherButton()
    {
        ModalBoxes boxes;
        boxes.escapeNext();
        QCOMPARE(QMessageBox::warning(nullptr, "Warning", "Invalid"), QMessageBox::Ok);
    }

    void defaultButton_isNone_whenTheBoxHasNone()
    {
        ModalBoxes boxes;
        QMessageBox box(QMessageBox::NoIcon, "Title", "Text", QMessageBox::No | QMessageBox::Yes);
        const int answer = box.exec();
        QCOMPARE(boxes.messages().constFirst().defaultButton, QMessageBox::NoButton);
        QCOMPARE(answer, box.standardButton(box.buttons().constFirst()));
    }

    void answer_warnsAndGivesTheDefault_whenTheBoxDoesNotHaveIt()
    {
        ModalBoxes boxes;
        boxes.answerNext(QMessageBox::Save);
        announceWarning(QString("the queued answer does not close the box: Invalid"));
        QCOMPARE(QMessageBox::warning(nullptr, "Warning", "Invalid"), QMessageBox::Ok);
        QCOMPARE(boxes.unusedAnswers(), 0);
    }

    void escape_warnsAndGivesTheDefault_whenTheBoxHasNoButtonForIt()
    {
        ModalBoxes boxes;
        boxes.escapeNext();
        announceWarning(QString("the queued answer does not close the box: Retry?"));
        const auto answer = QMessageBox::question(
            nullptr, "Title", "Retry?", QMessageBox::Retry | QMessageBox::Save, QMessageBox::Retry);
        QCOMPARE(answer, QMessageBox::Retry);
    }

    void path_warnsAndCancels_whenItIsAFolder()
    {
        const QTemporaryDir folder;
        ModalBoxes boxes;
        boxes.chooseFile(folder.path());
        announceWarning("the file dialog refuses the queued path: " + folder.path());
        QCOMPARE(askForFile(nullptr, QString()), QString());
    }

    void box_isLeftAlone_whenItIsNotModal()
    {
        ModalBoxes boxes;
        QMessageBox box(QMessageBox::NoIcon, "Title", "Text", QMessageBox::Ok);
        box.setModal(false);
        box.show();
        QCOMPARE(QMessageBox::warning(nullptr, "Warning", "Invalid"), QMessageBox::Ok);
        QVERIFY(box.isVisible());
        QCOMPARE(boxes.messages().size(), 1);
    }

    void onOpen_seesTheOpenBox_whenSet()
    {
        ModalBoxes boxes;
        QWidget* seen = nullptr;
        bool wasVisible = false;
        boxes.onOpen([&](QWidget* box) {
            seen = box;
            wasVisible = box->isVisible();
            QTest::keyClick(box, Qt::Key_Escape);
        });
        boxes.answerNext(QMessageBox::No);
        QCOMPARE(askYesNoCancel(nullptr), QMessageBox::Cancel);
        QVERIFY(seen != nullptr);
        QVERIFY(wasVisible);
        QCOMPARE(boxes.unusedAnswers(), 1);
    }

    void innerBox_isAnswered_whenItOpensFromInsideAnAnswer()
    {
        ModalBoxes boxes;
        QMessageBox box(QMessageBox::NoIcon, "Outer", "Text", QMessageBox::Ok);
        connect(box.button(QMessageBox::Ok), &QAbstractButton::clicked,
            [] { QMessageBox::warning(nullptr, "Inner", "Text"); });
        QCOMPARE(box.exec(), int(QMessageBox::Ok));
        QCOMPARE(boxes.messages().size(), 2);
        QCOMPARE(boxes.messages().at(1).title, QString("Inner"));
    }

    void fileChoice_isRecorded_whenASaveDialogOpens()
    {
        ModalBoxes boxes;
        QWidget parent;
        const QTemporaryDir folder;
        QCOMPARE(askForFile(&parent, folder.filePath("SUB001.txt")), QString());
        QCOMPARE(boxes.fileChoices().size(), 1);
        const ModalBoxes::FileChoice& choice = boxes.fileChoices().constFirst();
        QCOMPARE(choice.caption, QString("Save a file"));
        QCOMPARE(choice.directory, folder.path());
        QCOMPARE(choice.fileName, QString("SUB001.txt"));
        QCOMPARE(choice.nameFilters, QStringList({"All files (*.*)", "Text files (*.txt)"}));
        QCOMPARE(choice.selectedNameFilter, QString("Text files (*.txt)"));
        QCOMPARE(choice.options, QFileDialog::Options(QFileDialog::DontConfirmOverwrite));
        QCOMPARE(choice.acceptMode, QFileDialog::AcceptSave);
        QCOMPARE(choice.parent, &parent);
    }

    void path_isReturned_whenChosen_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("new file") << "new.txt";
        QTest::newRow("existing file") << "existing.txt";
        QTest::newRow("without a suffix") << "plain";
        QTest::newRow("with blanks") << "a b c.txt";
        QTest::newRow("not ASCII") << QString::fromUtf8("H\xc3\xb6rer \xce\xb1.txt");
        QTest::newRow("in a folder that does not exist") << "missing/further/new.txt";
    }

    void path_isReturned_whenChosen()
    {
        QFETCH(QString, path);
        const QTemporaryDir folder;
        QFile existing(folder.filePath("existing.txt"));
        QVERIFY(existing.open(QIODevice::WriteOnly));
        existing.close();
        ModalBoxes boxes;
        boxes.chooseFile(folder.filePath(path));
        QCOMPARE(askForFile(nullptr, QDir::homePath() + "/SUB001.txt"), folder.filePath(path));
        QVERIFY(boxes.messages().isEmpty());
    }

    void fileDialogs_areAnsweredInOrder_whenQueued()
    {
        const QTemporaryDir folder;
        ModalBoxes boxes;
        boxes.chooseFile(folder.filePath("first.txt"));
        boxes.cancelFile();
        boxes.chooseFile(folder.filePath("third.txt"));
        QCOMPARE(askForFile(nullptr, QString()), folder.filePath("first.txt"));
        QCOMPARE(askForFile(nullptr, QString()), QString());
        QCOMPARE(askForFile(nullptr, QString()), folder.filePath("third.txt"));
    }

    void overwriteQuestion_isAnswered_whenTheDialogAsks()
    {
        const QTemporaryDir folder;
        QFile existing(folder.filePath("existing.txt"));
        QVERIFY(existing.open(QIODevice::WriteOnly));
        ModalBoxes boxes;
        boxes.chooseFile(existing.fileName());
        boxes.answerNext(QMessageBox::Yes);
        QCOMPARE(QFileDialog::getSaveFileName(nullptr, "Save", folder.path()), existing.fileName());
        QCOMPARE(boxes.messages().size(), 1);
    }
};

QUORIN_TEST(TestModalBoxes);
#include "tst_modal_boxes.moc"
