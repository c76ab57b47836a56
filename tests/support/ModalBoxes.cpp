// SPDX-License-Identifier: GPL-3.0-or-later
// Answers and records message boxes and file dialogs.
#include "support/ModalBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <utility>

namespace {

constexpr int lookEveryMs = 1;

// In the queue of answers: the Escape key.
constexpr QMessageBox::StandardButton escape = QMessageBox::NoButton;

void pressDefault(QMessageBox* box)
{
    if (box->defaultButton() != nullptr) {
        box->defaultButton()->click();
    } else if (!box->buttons().isEmpty()) {
        box->buttons().constFirst()->click();
    } else {
        box->reject();
    }
}

void press(QMessageBox* box, QMessageBox::StandardButton answer)
{
    QAbstractButton* const button = box->button(answer);
    if (answer == escape) {
        QTest::keyClick(box, Qt::Key_Escape);
    } else if (button != nullptr) {
        button->click();
    }
}

QLineEdit* nameField(const QFileDialog* dialog)
{
    return dialog->findChild<QLineEdit*>("fileNameEdit");
}

void accept(QFileDialog* dialog, const QString& path)
{
    nameField(dialog)->setText(path);
    const auto which = dialog->acceptMode() == QFileDialog::AcceptSave ? QDialogButtonBox::Save
                                                                       : QDialogButtonBox::Open;
    dialog->findChild<QDialogButtonBox*>("buttonBox")->button(which)->click();
}

} // namespace

ModalBoxes::ModalBoxes(QObject* parent)
    : QObject(parent)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_timer.setSingleShot(true);
    m_timer.setInterval(lookEveryMs);
    connect(&m_timer, &QTimer::timeout, this, &ModalBoxes::look);
    m_timer.start();
}

void ModalBoxes::answerNext(QMessageBox::StandardButton button)
{
    m_answers.enqueue(button);
}

void ModalBoxes::escapeNext()
{
    m_answers.enqueue(escape);
}

void ModalBoxes::chooseFile(const QString& path)
{
    m_paths.enqueue(path);
}

void ModalBoxes::cancelFile()
{
    m_paths.enqueue(QString());
}

void ModalBoxes::onOpen(std::function<void(QWidget*)> function)
{
    m_onOpen = std::move(function);
}

void ModalBoxes::look()
{
    // A box may open from inside an answer. A running timer does not fire within its own slot, but
    // one that was started anew does.
    m_timer.start();
    QWidget* const active = QApplication::activeModalWidget();
    if (active == nullptr || m_beingMet.contains(active))
        return;

    m_beingMet.append(active);
    if (auto* box = qobject_cast<QMessageBox*>(active)) {
        meet(box);
    } else if (auto* dialog = qobject_cast<QFileDialog*>(active)) {
        meet(dialog);
    }
    m_beingMet.removeOne(active);
}

void ModalBoxes::meet(QMessageBox* box)
{
    // standardButton() gives NoButton for a null button.
    m_messages.append({box->windowTitle(), box->text(), box->icon(), box->standardButtons(),
        box->standardButton(box->defaultButton()), box->parentWidget()});
    if (!showAndAskWhetherOpen(box))
        return;

    const QPointer<QMessageBox> open(box);
    if (!m_answers.isEmpty()) {
        press(box, m_answers.dequeue());
        if (open.isNull() || !open->isVisible())
            return;
        qWarning("the queued answer does not close the box: %s", qUtf8Printable(box->text()));
    }
    pressDefault(box);
}

void ModalBoxes::meet(QFileDialog* dialog)
{
    m_fileChoices.append({dialog->windowTitle(), dialog->directory().absolutePath(),
        nameField(dialog)->text(), dialog->nameFilters(), dialog->selectedNameFilter(),
        dialog->options(), dialog->acceptMode(), dialog->parentWidget()});
    if (!showAndAskWhetherOpen(dialog))
        return;

    const QString path = m_paths.isEmpty() ? QString() : m_paths.dequeue();
    const QPointer<QFileDialog> open(dialog);
    if (!path.isEmpty()) {
        accept(dialog, path);
        if (open.isNull() || !open->isVisible())
            return;
        qWarning("the file dialog refuses the queued path: %s", qUtf8Printable(path));
    }
    dialog->reject();
}

bool ModalBoxes::showAndAskWhetherOpen(QWidget* box)
{
    const QPointer<QWidget> open(box);
    // A copy: the function may replace itself.
    const std::function<void(QWidget*)> function = m_onOpen;
    if (function)
        function(box);
    return !open.isNull() && open->isVisible();
}
