// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SoundProgram.h"
#include "soundlab/ChildProcess.h"

#include <QFileInfo>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QVector>

#include <cstring>

/// What a client of a server needs to find it.
struct Client {
    QProcessEnvironment environment;

    template <typename Server>
    explicit Client(const Server& server)
        : environment(server.environment())
    {
        environment.insert("PULSE_SERVER", server.address());
    }

    /// Runs a program to its end.
    /// @return its output, or what it complained of
    QString run(
        const QString& program, const QStringList& arguments, const QByteArray& input = {}) const
    {
        ChildProcess process;
        process.setProcessEnvironment(environment);
        process.start(program, arguments);
        process.write(input);
        process.closeWriteChannel();
        const bool isGood = process.waitForFinished()
            && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
        return isGood ? QString(process.readAllStandardOutput())
                      : program + ": " + process.readAllStandardError();
    }

    void pactl(const QString& command) const { run("pactl", command.split(' ')); }
};

/// Records both channels of an output.
class StereoRecorder {
public:
    StereoRecorder(const Client& client, const QString& source, int rate = 48000)
    {
        m_process.setProcessEnvironment(client.environment);
        m_process.setStandardOutputFile(m_folder.filePath("recording"));
        m_process.start("parec",
            {"--device", source, "--rate", QString::number(rate), "--channels", "2", "--format",
                "float32le", "--raw", "--latency-msec", "10"});
    }

    bool hasBegun() const { return QFileInfo(m_folder.filePath("recording")).size() > 0; }

    QVector<float> channel(int index) const
    {
        const QByteArray bytes = bytesOf(m_folder.filePath("recording"));
        QVector<float> both(bytes.size() / int(sizeof(float)) / 2 * 2);
        std::memcpy(both.data(), bytes.constData(), size_t(both.size()) * sizeof(float));
        QVector<float> samples;
        for (int i = index; i < both.size(); i += 2) {
            samples.append(both[i]);
        }
        return samples;
    }

private:
    QTemporaryDir m_folder;
    ChildProcess m_process;
};
