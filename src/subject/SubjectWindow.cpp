// SPDX-License-Identifier: GPL-3.0-or-later
// The listener's window: its states, lights, keys and the result.
#include "subject/SubjectWindow.h"

#include "app/WindowParts.h"
#include "subject/ResultText.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

using namespace quorin;

namespace {

constexpr auto darkGreyStyle
    = " QPushButton {background-color: rgb(190, 190, 190); border: none;} ";
constexpr auto greenStyle
    = " QPushButton {background-color: rgb(0, 255, 0); border: 1px solid rgb(180, 180, 180);} ";
constexpr auto lightGreyStyle
    = " QPushButton {background-color: rgb(240, 240, 240); border: 1px solid rgb(180, 180, 180);} ";
constexpr auto hoverStyle
    = "QPushButton:hover {background-color: rgb(0, 255, 255); border: 1px solid blue;}";

// The style sheets leave the colour of the numbers open: in that of a dark desktop, or of disabled
// buttons, they could not be read.
QPalette choicePalette()
{
    const QColor button(240, 240, 240);
    const QColor disabledNumber(90, 90, 90);
    QPalette palette(button);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, disabledNumber);
    return palette;
}

// Where AltGr arrives as Ctrl and Alt, a digit that it typed is the key's text; a command has none.
bool isCommand(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers altGr = Qt::ControlModifier | Qt::AltModifier;
    const Qt::KeyboardModifiers held = event.modifiers() & (altGr | Qt::MetaModifier);
    const bool isTyped = event.text() == QString(QChar(event.key()));
    return held != Qt::NoModifier && !(held == altGr && isTyped);
}

} // namespace

SubjectWindow::SubjectWindow(QWidget* parent)
    : QMainWindow(parent)
    , pushButtonChoice1(named(new QPushButton("1"), "pushButtonChoice1"))
    , pushButtonChoice2(named(new QPushButton("2"), "pushButtonChoice2"))
    , pushButtonChoice3(named(new QPushButton("3"), "pushButtonChoice3"))
    , pushButtonChoice4(named(new QPushButton("4"), "pushButtonChoice4"))
    , pushButtonIAmReady(named(new QPushButton("I am ready"), "pushButtonIAmReady"))
    , pushButtonDone(named(new QPushButton("Done"), "pushButtonDone"))
    , labelThreshold(named(new QLabel("Threshold = "), "labelThreshold"))
    , gridLayout(named(new QGridLayout, "gridLayout"))
    , centralWidget(named(new QWidget, "centralWidget"))
    , reservedColors {0, 240, 240, 240, 255, 255, 255, 0, 255}
    , centerWindow(true)
    , widthFraction(0.55)
    , heightFraction(0.3)
{
    connect(pushButtonIAmReady, SIGNAL(clicked()), this, SLOT(on_pushButtonIAmReady_clicked()));
    connect(pushButtonDone, SIGNAL(clicked()), this, SLOT(close()));
    connect(pushButtonChoice2, SIGNAL(clicked()), this, SLOT(on_pushButtonChoice2_clicked()));
    connect(pushButtonChoice3, SIGNAL(clicked()), this, SLOT(on_pushButtonChoice3_clicked()));
    setupGUISubjectWindow();
}

SubjectWindow::~SubjectWindow()
{
    deleteAndNull(pushButtonChoice1);
    deleteAndNull(pushButtonChoice2);
    deleteAndNull(pushButtonChoice3);
    deleteAndNull(pushButtonChoice4);
    deleteAndNull(pushButtonIAmReady);
    deleteAndNull(pushButtonDone);
    deleteAndNull(labelThreshold);
    deleteAndNull(gridLayout);
    deleteAndNull(centralWidget);
}

void SubjectWindow::setupGUISubjectWindow()
{
    centerAndResizeSubjectWindow(centerWindow, widthFraction, heightFraction);
    setWindowTitle("Quorin Lab | Frequency Discrimination and Modulation Detection (v062) | "
                   "Subject Window");

    const std::initializer_list<GridPlace> places = {
        {pushButtonChoice1, 0, 0, 1, 1},
        {pushButtonChoice2, 0, 1, 1, 1},
        {pushButtonChoice3, 0, 2, 1, 1},
        {pushButtonChoice4, 0, 3, 1, 1},
        {pushButtonIAmReady, 2, 1, 1, 2},
        {pushButtonDone, 3, 1, 1, 2},
        {labelThreshold, 1, 0, 1, 4},
    };
    placeAllInGrid(gridLayout, places);
    centralWidget->setLayout(gridLayout);
    setCentralWidget(centralWidget);

    for (QPushButton* button : choiceButtons()) {
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        button->setPalette(choicePalette());
        // A focus frame would favour one of the two answers, and Space would give it.
        button->setFocusPolicy(Qt::NoFocus);
        button->hide();
    }
    labelThreshold->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    labelThreshold->setAlignment(Qt::AlignHCenter);
    labelThreshold->setTextInteractionFlags(Qt::TextSelectableByMouse);
    labelThreshold->hide();
    pushButtonDone->hide();

    // The interval buttons have none: it would cover their lights, and could pass for a hint.
    pushButtonIAmReady->setToolTip(
        "Start the run (Return); answer with the buttons or keys 2 and 3");
    pushButtonDone->setToolTip("Close this window (Return)");
}

void SubjectWindow::centerAndResizeSubjectWindow(
    bool center, double newWidthFraction, double newHeightFraction)
{
    setGeometry(windowRectangle(
        availableScreenSize(), geometry().topLeft(), center, newWidthFraction, newHeightFraction));
}

void SubjectWindow::on_pushButtonIAmReady_clicked()
{
    setEnabled(false);
    disableAllChoiceButtons();
    for (QPushButton* button : choiceButtons()) {
        button->show();
    }
    pushButtonIAmReady->hide();
    pushButtonDone->hide();
    emit subjectResponded(readyResponse);
}

void SubjectWindow::on_pushButtonChoice2_clicked()
{
    setEnabled(false);
    emit subjectResponded(2);
}

void SubjectWindow::on_pushButtonChoice3_clicked()
{
    setEnabled(false);
    emit subjectResponded(3);
}

// A style sheet stays until the next one replaces it, so the answer buttons keep their highlight
// into the next trial.
void SubjectWindow::updateSubjectWindow(int state)
{
    setEnabled(false);
    disableAllChoiceButtons();
    switch (state) {
    case 1:
        pushButtonChoice1->setStyleSheet(greenStyle);
        break;
    case 2:
        pushButtonChoice1->setStyleSheet(darkGreyStyle);
        pushButtonChoice2->setStyleSheet(greenStyle);
        break;
    case 3:
        pushButtonChoice2->setStyleSheet(lightGreyStyle);
        pushButtonChoice3->setStyleSheet(greenStyle);
        break;
    case 4:
        pushButtonChoice3->setStyleSheet(lightGreyStyle);
        pushButtonChoice4->setStyleSheet(greenStyle);
        break;
    case answerState:
        pushButtonChoice4->setStyleSheet(darkGreyStyle);
        pushButtonChoice2->setStyleSheet(hoverStyle);
        pushButtonChoice3->setStyleSheet(hoverStyle);
        pushButtonChoice2->setEnabled(true);
        pushButtonChoice3->setEnabled(true);
        setEnabled(true);
        break;
    default:
        break;
    }
}

void SubjectWindow::finishExperiment(
    qreal threshold, qreal reactionTime, qint32 mainParameter, qreal carrierFrequency)
{
    for (QPushButton* button : choiceButtons()) {
        button->hide();
    }
    labelThreshold->setText(resultText(threshold, reactionTime, mainParameter, carrierFrequency));
    labelThreshold->show();
    pushButtonDone->show();
    setEnabled(true);
}

void SubjectWindow::disableAllChoiceButtons()
{
    for (QPushButton* button : choiceButtons()) {
        button->setEnabled(false);
    }
}

void SubjectWindow::giveUpPicture()
{
    if (!isVisible()) {
        destroy();
    }
}

std::array<QPushButton*, 4> SubjectWindow::choiceButtons() const
{
    return {pushButtonChoice1, pushButtonChoice2, pushButtonChoice3, pushButtonChoice4};
}

QPushButton* SubjectWindow::buttonOfKey(int key) const
{
    switch (key) {
    case Qt::Key_2:
        return pushButtonChoice2;
    case Qt::Key_3:
        return pushButtonChoice3;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return pushButtonDone->isVisible() ? pushButtonDone : pushButtonIAmReady;
    default:
        return nullptr;
    }
}

// Shortcuts of the buttons would answer 100 ms late, as they show the press first. Shift and AltGr
// are allowed: some keyboards have their digits there.
void SubjectWindow::keyPressEvent(QKeyEvent* event)
{
    QPushButton* const button
        = isCommand(*event) || event->isAutoRepeat() ? nullptr : buttonOfKey(event->key());
    if (button != nullptr && button->isVisible()) {
        button->click();
    } else {
        QMainWindow::keyPressEvent(event);
    }
}

void SubjectWindow::closeEvent(QCloseEvent* event)
{
    const auto answer = QMessageBox::question(this, "Confirmation MessageBox",
        tr("Do you want to close this window?\n"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer == QMessageBox::Yes) {
        emit subjectWindowClosed();
        event->accept();
    } else {
        event->ignore();
    }
}
