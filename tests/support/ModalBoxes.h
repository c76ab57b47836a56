// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileDialog>
#include <QMessageBox>
#include <QObject>
#include <QQueue>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QVector>

#include <functional>

/// Answers the modal QMessageBoxes and QFileDialogs that open while it lives, those of the static
/// functions too, and keeps what they showed. Without a queued answer a message box gets its
/// default button and a file dialog is cancelled, so no test hangs. Other modal windows are left
/// alone. Native dialogs are switched off for the whole process.
class ModalBoxes : public QObject {
    Q_OBJECT

public:
    /// What a message box showed when it opened.
    struct Message {
        QString title;
        QString text;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
        /// The button that Return presses. A static function that was given none makes the first
        /// one with the accept role (Ok, Save, Open...) the default.
        QMessageBox::StandardButton defaultButton;
        QWidget* parent;
    };

    /// What a file dialog showed when it opened.
    struct FileChoice {
        QString caption;
        QString directory; ///< absolute path
        QString fileName; ///< text of the field for the file's name
        QStringList nameFilters;
        QString selectedNameFilter;
        QFileDialog::Options options;
        QFileDialog::AcceptMode acceptMode;
        QWidget* parent;
    };

    explicit ModalBoxes(QObject* parent = nullptr);

    /// The next message box without an earlier answer gets this button. A box that does not have
    /// it warns and gets its default button.
    void answerNext(QMessageBox::StandardButton button);
    /// The next message box without an earlier answer gets the Escape key. A box that stays open
    /// (more than one button and none for Escape) warns and gets its default button.
    void escapeNext();

    /// The next file dialog without an earlier answer gets this path typed and is accepted. A
    /// dialog that refuses it (an existing folder, for one) warns and is cancelled.
    void chooseFile(const QString& path);
    /// The next file dialog without an earlier answer is cancelled.
    void cancelFile();

    /// Calls a function with every box that opens, after it was recorded and before it is answered.
    /// A box that the function closed gets no answer and uses none up.
    void onOpen(std::function<void(QWidget*)> function);

    /// The message boxes that opened so far, in order.
    const QVector<Message>& messages() const { return m_messages; }
    /// The file dialogs that opened so far, in order.
    const QVector<FileChoice>& fileChoices() const { return m_fileChoices; }
    /// Answers that were queued and not yet given.
    int unusedAnswers() const { return m_answers.size() + m_paths.size(); }

private slots:
    void look();

private:
    void meet(QMessageBox* box);
    void meet(QFileDialog* dialog);
    bool showAndAskWhetherOpen(QWidget* box);

    QTimer m_timer;
    std::function<void(QWidget*)> m_onOpen;
    QVector<QWidget*> m_beingMet;
    QQueue<QMessageBox::StandardButton> m_answers;
    QQueue<QString> m_paths;
    QVector<Message> m_messages;
    QVector<FileChoice> m_fileChoices;
};

/// Fails the test unless a box is an advisory one with this title, text and parent.
inline void verifyWarning(const ModalBoxes::Message& message, const QString& text,
    const QWidget* parent = nullptr, const QString& title = "Warning")
{
    QCOMPARE(message.title, title);
    QCOMPARE(message.text, text);
    QCOMPARE(message.icon, QMessageBox::Warning);
    QCOMPARE(message.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(message.parent, parent);
}

/// Fails the test unless exactly one box was shown, such a one.
inline void verifyOneWarning(
    const ModalBoxes& boxes, const QString& text, const QWidget* parent = nullptr)
{
    QCOMPARE(boxes.messages().size(), 1);
    verifyWarning(boxes.messages().constFirst(), text, parent);
}
