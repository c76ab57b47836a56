// SPDX-License-Identifier: GPL-3.0-or-later
// The run that benchmarks answer: an answer, its sounds and spectra, and its repainting, timed.
#include "BenchRun.h"

#include "support/MainWindowProbe.h"
#include "support/WindowWidgets.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>

#include <chrono>

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The second call finds what the first one posted.
void comeToRest()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

// Of two windows at one place the display draws only the one in front.
void bringForward(QWidget& window)
{
    if (window.isVisible()) {
        window.raise();
        QGuiApplication::sync();
        comeToRest();
    }
}

} // namespace

BenchRun::BenchRun(const RunSettings& settings)
{
    comboBoxOf(m_window, "comboBoxSoundType")->setCurrentIndex(settings.soundType);
    comboBoxOf(m_window, "comboBoxMainParameter")->setCurrentIndex(settings.mainParameter);
    for (QLineEdit* field : {lineEditOf(m_window, "lineEditStdDuration"),
             lineEditOf(m_window, "lineEditDevDuration")}) {
        field->setText(QString::number(settings.duration));
    }
    type(m_window, "lineEditSamplingRate", QString::number(settings.rate));
    type(m_window, "lineEditNReversals", "1000000");
    if (settings.isShown) {
        m_window.setGeometry(QGuiApplication::primaryScreen()->geometry());
        m_window.show();
    }
    comeToRest();
    m_driver.open();
    m_driver.beReady();
    comeToRest();
    if (settings.isShown) {
        m_plainCharts = std::make_unique<PlainCharts>(m_window.geometry(), chartsOf(m_window));
        m_plainCharts->window().show();
    }
    comeToRest();
}

void BenchRun::respond()
{
    m_driver.answerUnheard(Probe::data(m_window).nTrials % 5 != 0);
}

void BenchRun::advanceTo(int trial)
{
    while (Probe::data(m_window).nTrials < trial) {
        respond();
    }
    comeToRest();
}

BenchRun::Turnaround BenchRun::answer()
{
    Turnaround turnaround = {};
    bringForward(m_window);
    const Clock::time_point start = Clock::now();
    respond();
    turnaround.armed = secondsSince(start);
    comeToRest();
    turnaround.free = secondsSince(start);
    const Clock::time_point computingStart = Clock::now();
    m_window.genWav();
    m_window.genFFT();
    turnaround.computing = secondsSince(computingStart);
    turnaround.plain = showPlainly();
    return turnaround;
}

double BenchRun::showPlainly()
{
    if (!m_plainCharts) {
        return 0.0;
    }
    const QVector<ChartContents> charts = chartsOf(m_window);
    bringForward(m_plainCharts->window());
    const Clock::time_point start = Clock::now();
    m_plainCharts->refresh(charts);
    comeToRest();
    return secondsSince(start);
}
