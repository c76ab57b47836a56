// SPDX-License-Identifier: GPL-3.0-or-later
// Answers the boxes of the demonstration with the mouse.
#include "demo/BoxAnswers.h"

#include "demo/Mouse.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <utility>

namespace {

constexpr int seenMs = 600;

}

BoxAnswers::BoxAnswers(QString path)
    : m_path(std::move(path))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool BoxAnswers::eventFilter(QObject* watched, QEvent* event)
{
    const bool isBox = qobject_cast<QDialog*>(watched) != nullptr;
    if (isBox && event->type() == QEvent::Show) {
        QTimer::singleShot(seenMs, this, SLOT(answer()));
    }
    return QObject::eventFilter(watched, event);
}

void BoxAnswers::answer()
{
    QWidget* const open = QApplication::activeModalWidget();
    if (auto* const dialog = qobject_cast<QFileDialog*>(open)) {
        saveIn(*dialog);
    } else if (auto* const box = qobject_cast<QMessageBox*>(open)) {
        agreeTo(*box);
    }
}

void BoxAnswers::saveIn(QFileDialog& dialog)
{
    // The path is typed: selectFile() changes nothing while the cursor is in the field.
    auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
    const auto* const buttons = dialog.findChild<QDialogButtonBox*>();
    if (name == nullptr || buttons == nullptr) {
        dialog.reject();
        return;
    }
    name->setText(m_path);
    if (!press(*buttons->button(QDialogButtonBox::Save))) {
        dialog.reject();
    }
}

void BoxAnswers::agreeTo(QMessageBox& box)
{
    if (box.icon() != QMessageBox::Question) {
        m_message = box.text();
    }
    QAbstractButton* const yes = box.button(QMessageBox::Yes);
    if (!press(yes != nullptr ? *yes : *box.defaultButton())) {
        box.reject();
    }
}
