// SPDX-License-Identifier: GPL-3.0-or-later
// Construction and destruction of the main window, View, and the small slots.
#include "app/MainWindow.h"

#include "app/ReactionClock.h"
#include "app/WindowParts.h"
#include "session/OutputFileName.h"
#include "subject/SubjectWindow.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace quorin;

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent)
    , labelSesType(named(new QLabel("Session type"), "labelSesType"))
    , labelSoundType(named(new QLabel("Sound type"), "labelSoundType"))
    , labelMainParameter(named(new QLabel("Main parameter"), "labelMainParameter"))
    , labelStandard(named(new QLabel("Standard"), "labelStandard"))
    , labelDeviant(named(new QLabel("Deviant"), "labelDeviant"))
    , labelCarrierFreq(named(new QLabel("Carrier frequency (Hz)"), "labelCarrierFreq"))
    , labelModFreq(named(new QLabel("Modulation frequency (Hz)"), "labelModFreq"))
    , labelModDepth(named(new QLabel("Modulation depth (%)"), "labelModDepth"))
    , labelFreqDiff(named(new QLabel("Frequency difference (Hz)"), "labelFreqDiff"))
    , labelDuration(named(new QLabel("Duration (ms)"), "labelDuration"))
    , labelNReversals(named(new QLabel("Number of reversals"), "labelNReversals"))
    , labelNReversalsToCalc(named(new QLabel("Reversals to calculate"), "labelNReversalsToCalc"))
    , labelSilentInterval(named(new QLabel("Silent interval (ms)"), "labelSilentInterval"))
    , labelSamplingRate(named(new QLabel("Sampling rate"), "labelSamplingRate"))
    , labelSubCode(named(new QLabel("Subject code"), "labelSubCode"))
    , labelSesNum(named(new QLabel("Session"), "labelSesNum"))
    , labelFilePath(named(new QLabel("Filepath"), "labelFilePath"))
    , labelFileName(named(new QLabel("Filename"), "labelFileName"))
    , comboBoxSesType(named(new QComboBox, "comboBoxSesType"))
    , comboBoxSoundType(named(new QComboBox, "comboBoxSoundType"))
    , comboBoxMainParameter(named(new QComboBox, "comboBoxMainParameter"))
    , lineEditStdCarrierFreq(named(new QLineEdit("1000.00"), "lineEditStdCarrierFreq"))
    , lineEditStdModFreq(named(new QLineEdit("40.00"), "lineEditStdModFreq"))
    , lineEditStdModDepth(named(new QLineEdit("0.0000"), "lineEditStdModDepth"))
    , lineEditStdFreqDiff(named(new QLineEdit("0.0000"), "lineEditStdFreqDiff"))
    , lineEditStdDuration(named(new QLineEdit("600.00"), "lineEditStdDuration"))
    , lineEditDevCarrierFreq(named(new QLineEdit("1000.00"), "lineEditDevCarrierFreq"))
    , lineEditDevModFreq(named(new QLineEdit("40.00"), "lineEditDevModFreq"))
    , lineEditDevModDepth(named(new QLineEdit("0.0000"), "lineEditDevModDepth"))
    , lineEditDevFreqDiff(named(new QLineEdit("0.2000"), "lineEditDevFreqDiff"))
    , lineEditDevDuration(named(new QLineEdit("600.00"), "lineEditDevDuration"))
    , lineEditNReversals(named(new QLineEdit("14"), "lineEditNReversals"))
    , lineEditNReversalsToCalc(named(new QLineEdit("8"), "lineEditNReversalsToCalc"))
    , lineEditSilentInterval(named(new QLineEdit("1000.00"), "lineEditSilentInterval"))
    , lineEditSamplingRate(named(new QLineEdit("40000"), "lineEditSamplingRate"))
    , lineEditSubCode(named(new QLineEdit("SUB001"), "lineEditSubCode"))
    , lineEditSesNum(named(new QLineEdit("1"), "lineEditSesNum"))
    , filePath(desktopFolder())
    , lineEditFilePath(named(new QLineEdit(filePath), "lineEditFilePath"))
    , lineEditFileName(named(new QLineEdit("SUB001.dat"), "lineEditFileName"))
    , pushButtonView(named(new QPushButton("View"), "pushButtonView"))
    , pushButtonGo(named(new QPushButton("Go"), "pushButtonGo"))
    , pushButtonQuit(named(new QPushButton("Quit"), "pushButtonQuit"))
    , checkBoxSaveData(named(new QCheckBox("Save data to file"), "checkBoxSaveData"))
    , checkBoxResetMdFd(named(new QCheckBox("Reset md/fd"), "checkBoxResetMdFd"))
    , hBoxLayoutButtons(named(new QHBoxLayout, "hBoxLayoutButtons"))
    , hBoxLayoutFilePath(named(new QHBoxLayout, "hBoxLayoutFilePath"))
    , hBoxLayoutFileName(named(new QHBoxLayout, "hBoxLayoutFileName"))
    , gridLayoutParameters(named(new QGridLayout, "gridLayoutParameters"))
    , gridLayoutCharts(named(new QGridLayout, "gridLayoutCharts"))
    , gridLayoutMain(named(new QGridLayout, "gridLayoutMain"))
    , centralWidget(named(new QWidget, "centralWidget"))
{
    makeConnections();
    setupGUIMainWindow();
    initParameters();
    genWav();
    displayWav();
    genFFT();
    displayFFT();
    displayTrend();
}

// No slot may run while the members are deleted one by one: connections are cut first. Then sounds
// that still play are deleted, while the window is whole: the sound backends run the event loop in
// their destructors. The subject windows are children, which the base class deletes last.
MainWindow::~MainWindow()
{
    timerPlay->stop();
    timerInterruption->stop();
    const QList<QObject*> children = findChildren<QObject*>();
    for (QObject* child : children) {
        child->disconnect(this);
    }
    deleteAllSounds();
    deleteCharts();
    deleteAndNull(timerPlay);
    deleteAndNull(timerReaction);
    deleteWidgets();
}

void MainWindow::makeConnections()
{
    connect(pushButtonView, SIGNAL(clicked()), this, SLOT(on_pushButtonView_clicked()));
    connect(pushButtonGo, SIGNAL(clicked()), this, SLOT(on_pushButtonGo_clicked()));
    connect(pushButtonQuit, SIGNAL(clicked()), this, SLOT(close()));
    connect(comboBoxSesType, SIGNAL(currentIndexChanged(int)), this,
        SLOT(on_comboBoxSesType_currentIndexChanged(int)));
    connect(comboBoxSoundType, SIGNAL(currentIndexChanged(int)), this,
        SLOT(on_comboBoxSoundType_currentIndexChanged(int)));
    connect(comboBoxMainParameter, SIGNAL(currentIndexChanged(int)), this,
        SLOT(on_comboBoxMainParameter_currentIndexChanged(int)));
    connect(lineEditSubCode, SIGNAL(textChanged(QString)), this,
        SLOT(on_lineEditSubCode_textChanged(QString)));
    connect(lineEditSesNum, SIGNAL(textChanged(QString)), this,
        SLOT(on_lineEditSesNum_textChanged(QString)));
}

void MainWindow::on_pushButtonView_clicked()
{
    getParameters();
    pushButtonGo->setEnabled(true);
    genWav();
    displayWav();
    genFFT();
    displayFFT();
    resetTrend();
    displayTrend();
}

void MainWindow::refreshMainWindow()
{
    setEnabled(true);
    pushButtonView->setEnabled(true);
    pushButtonGo->setEnabled(false);
}

void MainWindow::disableAllComponents()
{
    setEnabled(false);
}

void MainWindow::doNothing() { }

// In front of the listener's window, which is smaller, this one would hide it and get its keys.
// Some window managers raise a window without activating it: then the press of the mouse tells.
bool MainWindow::event(QEvent* event)
{
    const bool comesForward
        = event->type() == QEvent::WindowActivate || event->type() == QEvent::MouseButtonPress;
    if (comesForward && !isEnabled()) {
        bringSubjectWindowForward();
    }
    return QMainWindow::event(event);
}

// While a message box or a dialog is open, it stays in front.
void MainWindow::bringSubjectWindowForward()
{
    const bool isShown = subjectWindow != nullptr && subjectWindow->isVisible();
    if (!isShown || QApplication::activeModalWidget() != nullptr) {
        return;
    }
    subjectWindow->setWindowState(subjectWindow->windowState() & ~Qt::WindowMinimized);
    subjectWindow->raise();
    subjectWindow->activateWindow();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (event->spontaneous() && !isEnabled()) {
        event->ignore();
        return;
    }
    QMainWindow::closeEvent(event);
}

// A view owns its chart and a chart its series and axes: each group is deleted from the inside out.
void MainWindow::deleteCharts()
{
    for (Chart* pair : {waveCharts, spectrumCharts}) {
        deleteChart(pair[standard]);
        deleteChart(pair[deviant]);
    }
    deleteAndNull(trendSeries);
    deleteAndNull(trendAxisX);
    deleteAndNull(trendAxisY);
    deleteAndNull(trendChart);
    deleteAndNull(trendView);
}

void MainWindow::deleteWidgets()
{
    deleteAndNull(labelSesType);
    deleteAndNull(labelSoundType);
    deleteAndNull(labelMainParameter);
    deleteAndNull(comboBoxSesType);
    deleteAndNull(comboBoxSoundType);
    deleteAndNull(comboBoxMainParameter);
    deleteAndNull(labelStandard);
    deleteAndNull(labelDeviant);
    deleteAndNull(labelCarrierFreq);
    deleteAndNull(labelModFreq);
    deleteAndNull(labelModDepth);
    deleteAndNull(labelFreqDiff);
    deleteAndNull(labelDuration);
    deleteAndNull(labelNReversals);
    deleteAndNull(labelNReversalsToCalc);
    deleteAndNull(labelSilentInterval);
    deleteAndNull(labelSamplingRate);
    deleteAndNull(labelSubCode);
    deleteAndNull(labelSesNum);
    deleteAndNull(labelFilePath);
    deleteAndNull(labelFileName);
    deleteAndNull(lineEditStdCarrierFreq);
    deleteAndNull(lineEditStdModFreq);
    deleteAndNull(lineEditStdModDepth);
    deleteAndNull(lineEditStdFreqDiff);
    deleteAndNull(lineEditStdDuration);
    deleteAndNull(lineEditDevCarrierFreq);
    deleteAndNull(lineEditDevModFreq);
    deleteAndNull(lineEditDevModDepth);
    deleteAndNull(lineEditDevFreqDiff);
    deleteAndNull(lineEditDevDuration);
    deleteAndNull(lineEditNReversals);
    deleteAndNull(lineEditNReversalsToCalc);
    deleteAndNull(lineEditSilentInterval);
    deleteAndNull(lineEditSamplingRate);
    deleteAndNull(lineEditSubCode);
    deleteAndNull(lineEditSesNum);
    deleteAndNull(lineEditFilePath);
    deleteAndNull(lineEditFileName);
    deleteAndNull(pushButtonView);
    deleteAndNull(pushButtonGo);
    deleteAndNull(pushButtonQuit);
    deleteAndNull(checkBoxSaveData);
    deleteAndNull(checkBoxResetMdFd);
    deleteAndNull(hBoxLayoutButtons);
    deleteAndNull(hBoxLayoutFilePath);
    deleteAndNull(hBoxLayoutFileName);
    deleteAndNull(gridLayoutCharts);
    deleteAndNull(gridLayoutParameters);
    deleteAndNull(gridLayoutMain);
    deleteAndNull(centralWidget);
}
