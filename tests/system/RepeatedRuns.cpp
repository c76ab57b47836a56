// SPDX-License-Identifier: GPL-3.0-or-later
// Many runs one after the other, each left after six sounds.
#include "system/RepeatedRuns.h"

#include "drivers/RunDriver.h"
#include "support/MainWindowProbe.h"
#include "support/ModalBoxes.h"

#include <QAudioOutput>
#include <QBuffer>
#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <algorithm>

namespace {

int countAlive(const QVector<QPointer<QObject>>& objects)
{
    return static_cast<int>(std::count_if(
        objects.begin(), objects.end(), [](const auto& object) { return !object.isNull(); }));
}

} // namespace

QString pileAfterRuns(MainWindow& window, ModalBoxes& boxes, int nRuns)
{
    QVector<QPointer<QObject>> outputs;
    QVector<QPointer<QObject>> buffers;
    RunDriver driver(window);
    for (int run = 0; run < nRuns; ++run) {
        SubjectWindow& subject = driver.begin();
        for (int tick = 0; tick < ticksPerRepeatedRun; ++tick) {
            driver.startSound();
            outputs.append(Probe::audioOutput(window));
            buffers.append(Probe::audioBuffer(window));
        }
        boxes.answerNext(QMessageBox::Yes);
        subject.close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const int nOutputs = countAlive(outputs);
    const int nBuffers = countAlive(buffers);
    const int nChildren = window.findChildren<QAudioOutput*>().size();
    if (nOutputs == 1 && nBuffers == 1 && nChildren == 1) {
        return {};
    }
    return QString("%1 outputs, %2 of them the window's, %3 buffers")
        .arg(nOutputs)
        .arg(nChildren)
        .arg(nBuffers);
}
