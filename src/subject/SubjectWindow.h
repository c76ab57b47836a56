// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

#include <array>

class QGridLayout;
class QLabel;
class QPushButton;

namespace quorin {

/// What the two windows tell each other beside the numbers of intervals.
constexpr int readyResponse = 0; ///< from the listener: start the run
constexpr int answerState = -1; ///< to the listener: the answer may be given

} // namespace quorin

/// The listener's window: four interval buttons that light up while the sounds of a trial play, of
/// which "2" and "3" take the answer; "I am ready" before the run and the result with "Done" after
/// it. It knows nothing of stimuli or data.
class SubjectWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit SubjectWindow(QWidget* parent);
    ~SubjectWindow() override;

signals:
    /// readyResponse, or 2 or 3: the interval chosen.
    void subjectResponded(int response);
    /// The listener confirmed closing the window.
    void subjectWindowClosed();

public slots:
    /// Shows the disabled interval buttons and tells that the listener is ready.
    void on_pushButtonIAmReady_clicked();
    /// Shows a state of the trial: 1 to 4, that interval's sound starts; answerState. Any other
    /// value leaves window and interval buttons disabled.
    void updateSubjectWindow(int state);
    // The answers; the window is disabled at once, so that each trial gets one.
    void on_pushButtonChoice2_clicked();
    void on_pushButtonChoice3_clicked();
    /// Shows the result of the run; see resultText for the arguments.
    void finishExperiment(
        qreal threshold, qreal reactionTime, qint32 mainParameter, qreal carrierFrequency);

public:
    /// Places the widgets and sets sizes, title and what is hidden.
    void setupGUISubjectWindow();
    /// The window's geometry on the primary screen; see windowRectangle.
    void centerAndResizeSubjectWindow(bool center, double widthFraction, double heightFraction);
    /// Disables the four interval buttons.
    void disableAllChoiceButtons();
    /// Frees what Qt and the window system keep for a window on the screen, its image above all.
    /// Does nothing while the window is shown; showing it again makes all of that anew.
    void giveUpPicture();

protected:
    /// The keys 2 and 3 answer, Return and Enter press "I am ready" or "Done": at once, and only
    /// while the button can be pressed. A held key presses once; with Ctrl, Alt or Meta none does,
    /// but digits that Shift or AltGr types do.
    void keyPressEvent(QKeyEvent* event) override;
    /// Asks for confirmation; only Yes closes the window.
    void closeEvent(QCloseEvent* event) override;

private:
    friend struct MainWindowProbe;

    std::array<QPushButton*, 4> choiceButtons() const;
    QPushButton* buttonOfKey(int key) const;

    // NOLINTBEGIN(readability-identifier-naming)
    QPushButton* pushButtonChoice1;
    QPushButton* pushButtonChoice2;
    QPushButton* pushButtonChoice3;
    QPushButton* pushButtonChoice4;
    QPushButton* pushButtonIAmReady;
    QPushButton* pushButtonDone;
    QLabel* labelThreshold;
    QGridLayout* gridLayout;
    QWidget* centralWidget;
    std::array<int, 9> reservedColors; ///< read by nothing
    bool centerWindow;
    double widthFraction;
    double heightFraction;
}; // NOLINTEND(readability-identifier-naming)
