// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

class QFileDialog;
class QMessageBox;

/// Answers the modal boxes that open while it lives, with the mouse, after they could be seen: the
/// save dialog gets a path, a question gets Yes, and a message is kept and gets its default button.
/// Needs file dialogs that are not the desktop's own (Qt::AA_DontUseNativeDialogs).
class BoxAnswers : public QObject {
    Q_OBJECT

public:
    /// @param path of the file that the save dialog is told to save
    explicit BoxAnswers(QString path);

    /// The text of the last message that was not a question: what went wrong.
    QString message() const { return m_message; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void answer();

private:
    void saveIn(QFileDialog& dialog);
    void agreeTo(QMessageBox& box);

    QString m_path;
    QString m_message;
};
