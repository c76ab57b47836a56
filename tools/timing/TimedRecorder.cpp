// SPDX-License-Identifier: GPL-3.0-or-later
// Records a sink and the time of each block, in a thread of its own.
#include "timing/TimedRecorder.h"

#include "soundlab/ChildProcess.h"

#include <QtCore/qtestsupport_core.h>

#include <cstring>
#include <utility>

namespace {

constexpr int readTimeoutMs = 200;

} // namespace

TimedRecorder::TimedRecorder(RecordingSource source)
    : m_source(std::move(source))
{
}

TimedRecorder::~TimedRecorder()
{
    requestInterruption();
    wait();
}

bool TimedRecorder::begin()
{
    start();
    const auto isDecided = [this] { return isFinished() || m_nSamples > 0; };
    if (QTest::qWaitFor(isDecided, timeoutMs) && m_nSamples > 0)
        return true;
    requestInterruption();
    wait();
    return false;
}

void TimedRecorder::end()
{
    const qint64 enough = m_nSamples + m_source.rate * 3 / 10;
    const auto isComplete = [&] { return isFinished() || m_nSamples >= enough; };
    if (!QTest::qWaitFor(isComplete, timeoutMs))
        m_errorText = "the server has stopped sending samples";
    requestInterruption();
    wait();
}

double TimedRecorder::timeMs(qint64 sample) const
{
    return SampleClock(m_arrivals, m_source.rate).timeMs(sample);
}

void TimedRecorder::run()
{
    ChildProcess process;
    process.setProcessEnvironment(m_source.environment);
    QStringList arguments = {"--device", m_source.monitor, "--rate", QString::number(m_source.rate),
        "--channels", "1", "--format", "float32le", "--raw", "--latency-msec",
        QString::number(m_source.latencyMs)};
    if (!m_source.address.isEmpty())
        arguments += {"--server", m_source.address};
    process.start("parec", arguments);
    process.waitForStarted();
    QByteArray bytes;
    while (!isInterruptionRequested() && process.state() != QProcess::NotRunning) {
        if (!process.waitForReadyRead(readTimeoutMs))
            continue;
        const double nowMs = monotonicMs();
        bytes += process.readAllStandardOutput();
        m_nSamples = bytes.size() / qint64(sizeof(float));
        m_arrivals.append({m_nSamples, nowMs});
    }
    process.end();
    if (!isInterruptionRequested() || bytes.isEmpty())
        m_errorText = process.whatFailed();
    m_samples.resize(int(m_nSamples));
    std::memcpy(m_samples.data(), bytes.constData(), size_t(m_samples.size()) * sizeof(float));
}
