// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's grids, sizes, texts and place on the screen.
#include "app/MainWindow.h"
#include "app/WindowParts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

// Moves the rows of a grid together where the window would be too low for the layout that holds it.
// The window grows downwards by what is still missing; it says so if its end leaves the screen.
void fitInHeight(QGridLayout* grid, QLayout* holder, const QRect& window)
{
    if (holder->totalMinimumSize().height() <= window.height()) {
        return;
    }
    grid->setVerticalSpacing(0);
    holder->invalidate(); // it does not notice by itself
    const int leastHeight = holder->totalMinimumSize().height();
    grid->setVerticalSpacing(fittingSpacing(window.height() - leastHeight, grid->rowCount()));
    holder->invalidate();
    const int offScreen = window.top() + leastHeight - availableScreenSize().height();
    if (offScreen > 0) {
        qWarning("The screen is too low for the main window by %d pixels", offScreen);
    }
}

} // namespace

void MainWindow::setupGUIMainWindow()
{
    centerAndResizeMainWindow(centerWindow, widthFraction, heightFraction);
    setWindowTitle(
        "Quorin Lab | Frequency Discrimination and Modulation Detection (v062) | Main Window");
    fillParameterGrid();
    gridLayoutMain->addLayout(gridLayoutParameters, 0, 0);
    gridLayoutMain->addLayout(gridLayoutCharts, 0, 1);
    gridLayoutMain->setColumnStretch(0, 1);
    gridLayoutMain->setColumnStretch(1, 2);
    centralWidget->setLayout(gridLayoutMain);
    setCentralWidget(centralWidget);

    for (QLineEdit* field : {lineEditStdCarrierFreq, lineEditStdModFreq, lineEditStdModDepth,
             lineEditStdFreqDiff, lineEditStdDuration, lineEditDevCarrierFreq, lineEditDevModFreq,
             lineEditDevModDepth, lineEditDevFreqDiff, lineEditDevDuration, lineEditNReversals,
             lineEditNReversalsToCalc, lineEditSilentInterval}) {
        field->setAlignment(Qt::AlignHCenter);
    }
    for (QLabel* heading : {labelStandard, labelDeviant}) {
        constexpr int leastWidth = 100;
        heading->setAlignment(Qt::AlignHCenter);
        heading->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
        heading->setMinimumWidth(leastWidth);
    }
    describePanel();
    fitInHeight(gridLayoutParameters, gridLayoutMain, geometry()); // no chart is there yet
}

void MainWindow::fillParameterGrid()
{
    const std::initializer_list<GridPlace> places = {
        {labelSesType, 0, 0, 1, 1},
        {comboBoxSesType, 0, 1, 1, 2},
        {labelSoundType, 1, 0, 1, 1},
        {comboBoxSoundType, 1, 1, 1, 2},
        {labelMainParameter, 2, 0, 1, 1},
        {comboBoxMainParameter, 2, 1, 1, 2},
        {labelStandard, 3, 1, 1, 1},
        {labelDeviant, 3, 2, 1, 1},
        {labelCarrierFreq, 4, 0, 1, 1},
        {lineEditStdCarrierFreq, 4, 1, 1, 1},
        {lineEditDevCarrierFreq, 4, 2, 1, 1},
        {labelModFreq, 5, 0, 1, 1},
        {lineEditStdModFreq, 5, 1, 1, 1},
        {lineEditDevModFreq, 5, 2, 1, 1},
        {labelModDepth, 6, 0, 1, 1},
        {lineEditStdModDepth, 6, 1, 1, 1},
        {lineEditDevModDepth, 6, 2, 1, 1},
        {labelFreqDiff, 7, 0, 1, 1},
        {lineEditStdFreqDiff, 7, 1, 1, 1},
        {lineEditDevFreqDiff, 7, 2, 1, 1},
        {labelDuration, 8, 0, 1, 1},
        {lineEditStdDuration, 8, 1, 1, 1},
        {lineEditDevDuration, 8, 2, 1, 1},
        {labelNReversals, 9, 0, 1, 1},
        {lineEditNReversals, 9, 1, 1, 1},
        {labelNReversalsToCalc, 10, 0, 1, 1},
        {lineEditNReversalsToCalc, 10, 1, 1, 1},
        {labelSilentInterval, 11, 0, 1, 1},
        {lineEditSilentInterval, 11, 1, 1, 1},
        {labelSamplingRate, 13, 0, 1, 1},
        {lineEditSamplingRate, 13, 1, 1, 1},
        {checkBoxSaveData, 13, 2, 1, 1},
        {labelSubCode, 14, 0, 1, 1},
        {lineEditSubCode, 14, 1, 1, 1},
        {checkBoxResetMdFd, 14, 2, 1, 1},
        {labelSesNum, 15, 0, 1, 1},
        {lineEditSesNum, 15, 1, 1, 2},
    };
    placeAllInGrid(gridLayoutParameters, places);

    for (QPushButton* button : {pushButtonView, pushButtonGo, pushButtonQuit}) {
        hBoxLayoutButtons->addWidget(button);
    }
    hBoxLayoutFilePath->addWidget(labelFilePath);
    hBoxLayoutFilePath->addWidget(lineEditFilePath);
    hBoxLayoutFileName->addWidget(labelFileName);
    hBoxLayoutFileName->addWidget(lineEditFileName);
    gridLayoutParameters->addLayout(hBoxLayoutButtons, 12, 0, 1, 3);
    gridLayoutParameters->addLayout(hBoxLayoutFilePath, 16, 0, 1, 3);
    gridLayoutParameters->addLayout(hBoxLayoutFileName, 17, 0, 1, 3);
}

void MainWindow::centerAndResizeMainWindow(
    bool center, double newWidthFraction, double newHeightFraction)
{
    setGeometry(windowRectangle(
        availableScreenSize(), geometry().topLeft(), center, newWidthFraction, newHeightFraction));
}
