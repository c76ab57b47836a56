// SPDX-License-Identifier: GPL-3.0-or-later
// Records what a private server's sink plays, by parec.
#include "soundlab/SoundRecorder.h"

#include "soundlab/SoundServer.h"

#include <QFile>
#include <QFileInfo>
#include <QtCore/qtestsupport_core.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr int timeoutMs = 20000;
constexpr qint64 bytesPerSample = sizeof(float);

} // namespace

SoundRecorder::SoundRecorder(const SoundServer& server, int latencyMs)
    : m_server(server)
    , m_latencyMs(latencyMs)
{
}

bool SoundRecorder::start()
{
    m_process.end();
    m_process.setProcessEnvironment(m_server.environment());
    m_process.setStandardOutputFile(fileName());
    m_process.start("parec",
        {"--server", m_server.address(), "--device", m_server.monitor(), "--rate",
            QString::number(m_server.settings().rate), "--channels", "1", "--format", "float32le",
            "--raw", "--latency-msec", QString::number(m_latencyMs)});
    const auto isDecided
        = [this] { return m_process.state() == QProcess::NotRunning || sampleCount() > 0; };
    if (m_process.waitForStarted() && QTest::qWaitFor(isDecided, timeoutMs) && sampleCount() > 0)
        return true;
    m_process.end();
    m_errorText = m_process.whatFailed();
    return false;
}

QVector<float> SoundRecorder::stop()
{
    const qint64 enough = sampleCount() + m_server.settings().rate / 10;
    const auto isComplete
        = [&] { return m_process.state() == QProcess::NotRunning || sampleCount() >= enough; };
    if (!QTest::qWaitFor(isComplete, timeoutMs))
        m_errorText = "the server has stopped sending samples";
    m_process.end();
    return samples();
}

QVector<float> SoundRecorder::samples(qint64 from) const
{
    QFile file(fileName());
    const qint64 offset = std::max(from, qint64(0)) * bytesPerSample;
    if (!file.open(QIODevice::ReadOnly) || offset >= file.size() || !file.seek(offset))
        return {};
    const QByteArray bytes = file.readAll();
    QVector<float> read(int(bytes.size() / bytesPerSample));
    std::memcpy(read.data(), bytes.constData(), size_t(read.size() * bytesPerSample));
    return read;
}

qint64 SoundRecorder::sampleCount() const
{
    return QFileInfo(fileName()).size() / bytesPerSample;
}

QString SoundRecorder::fileName() const
{
    return m_folder.filePath("recording.raw");
}
