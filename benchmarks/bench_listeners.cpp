// SPDX-License-Identifier: GPL-3.0-or-later
// How long the current listener's light takes beside the hidden windows of earlier runs.
#include "app/MainWindow.h"
#include "subject/SubjectWindow.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QPushButton>

#include <benchmark/benchmark.h>

namespace {

// Stops the clock when the window's first button changes its style.
class LightWatch : public QObject {
public:
    explicit LightWatch(SubjectWindow& listener)
        : QObject(&listener)
    {
        listener.findChild<QPushButton*>("pushButtonChoice1")->installEventFilter(this);
    }

    double seconds(MainWindow& window)
    {
        constexpr double nsPerSecond = 1e9;
        m_ns = 0;
        m_clock.start();
        emit window.soundPlaying(1);
        emit window.soundPlaying(2); // dark again for the next time
        return static_cast<double>(m_ns) / nsPerSecond;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::StyleChange && m_ns == 0) {
            m_ns = m_clock.nsecsElapsed();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QElapsedTimer m_clock;
    qint64 m_ns = 0;
};

void light(benchmark::State& state)
{
    MainWindow window;
    for (int run = 0; run <= state.range(0); ++run) {
        window.on_pushButtonView_clicked();
        window.on_pushButtonGo_clicked();
        window.refreshMainWindow();
    }
    const QList<SubjectWindow*> listeners = window.findChildren<SubjectWindow*>();
    LightWatch watch(*listeners.last());
    for (auto _ : state) {
        state.SetIterationTime(watch.seconds(window));
    }
}

BENCHMARK(light)
    ->Name("listeners/light")
    ->Arg(0)
    ->Arg(20)
    ->Arg(100)
    ->Iterations(50)
    ->Repetitions(5)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

} // namespace
