// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QTextEdit;

/// Shows the listener a text and waits for Return; closing the window is the same. The text is as
/// large as fits, down to a size that is still easy to read; a longer one scrolls, by the keys too.
/// All other keys do nothing, and neither does one that is held. The main window waits meanwhile.
/// Deletes itself.
class TextWindow : public QWidget {
    Q_OBJECT

public:
    /// @param text plain, not empty
    TextWindow(const QString& text, QWidget* parent);

signals:
    /// The listener goes on.
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void fitText();

    QTextEdit* m_text;
};
