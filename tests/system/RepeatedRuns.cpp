// SPDX-License-Identifier: GPL-3.0-or-later
#include "system/RepeatedRuns.h"

#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"
#include "support/RunDriver.h"

#include <QAudioOutput>
#include <QBuffer>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <algorithm>

using Probe = MainWindowProbe;

namespace {

int countAlive(const QVector<QPointer<QObject>>& objects)
{
    return static_cast<int>(std::count_if(
        objects.begin(), objects.end(), [](const auto& object) { return !object.isNull(); }));
}

} // namespace

AliveSounds soundsLeftBy(MainWindow& window, ModalBoxes& boxes, int nRuns)
{
    QVector<QPointer<QObject>> outputs;
    QVector<QPointer<QObject>> buffers;
    RunDriver driver(window);
    for (int run = 0; run < nRuns; ++run) {
        SubjectWindow& subject = driver.open();
        driver.beReady();
        for (int tick = 0; tick < ticksPerRepeatedRun; ++tick) {
            driver.startSound();
            outputs.append(Probe::audioOutput(window));
            buffers.append(Probe::audioBuffer(window));
        }
        boxes.answerNext(QMessageBox::Yes);
        subject.close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return {countAlive(outputs), countAlive(buffers)};
}
