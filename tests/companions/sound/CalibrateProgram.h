// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SoundClients.h"
#include "record/CalibrationNote.h"
#include "sound/CalibrationSound.h"
#include "soundlab/SoundServer.h"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <iterator>
#include <unistd.h>

constexpr int calibrationTimeoutMs = 60000;

/// A terminal, by whose keys a program is answered. No program is ended when it goes.
class Terminal {
public:
    Terminal()
        : m_keys(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        ::grantpt(m_keys);
        ::unlockpt(m_keys);
        m_lines = ::open(::ptsname(m_keys), O_RDWR | O_NOCTTY | O_CLOEXEC);
    }
    ~Terminal()
    {
        ::close(m_lines);
        ::close(m_keys);
    }
    Q_DISABLE_COPY(Terminal)

    int lines() const { return m_lines; } // what is typed waits there
    bool type(const QByteArray& keys) const
    {
        return ::write(m_keys, keys.constData(), size_t(keys.size())) == keys.size();
    }

private:
    int m_keys;
    int m_lines;
};

/// A program that reads from a terminal or, at -1, from a pipe.
class Program : public ChildProcess { // clazy:exclude=missing-qobject-macro
public:
    explicit Program(int terminal)
        : m_terminal(terminal)
    {
    }

protected:
    void setupChildProcess() override
    {
        ChildProcess::setupChildProcess();
        if (m_terminal >= 0) {
            ::dup2(m_terminal, STDIN_FILENO);
        }
    }

private:
    int m_terminal;
};

/// A calibration under way.
class Calibration {
public:
    Calibration(const SoundServer& server, const QString& options, const QStringList& more = {},
        const Terminal* terminal = nullptr)
        : m_process(terminal == nullptr ? -1 : terminal->lines())
    {
        m_process.setProcessEnvironment(Client(server).environment);
        m_process.start(SOUND_PROGRAM,
            QStringList("calibrate") + options.split(' ', Qt::SkipEmptyParts) + more
                + QStringList(m_folder.path()));
    }

    void type(const QByteArray& text) { m_process.write(text); }
    bool waitForOutput(const QByteArray& text, int times = 1)
    {
        while (m_process.peek(m_process.bytesAvailable()).count(text) < times) {
            if (!m_process.waitForReadyRead(calibrationTimeoutMs)) {
                return false;
            }
        }
        return true;
    }
    void interrupt() const { ::kill(static_cast<pid_t>(m_process.processId()), SIGINT); }

    SoundProgramEnd end()
    {
        m_process.closeWriteChannel();
        const bool isGood = m_process.waitForFinished(calibrationTimeoutMs)
            && m_process.exitStatus() == QProcess::NormalExit;
        return {isGood ? m_process.exitCode() : -1, m_process.readAllStandardOutput(),
            m_process.readAllStandardError()};
    }

    QStringList notes() const
    {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
    }
    CalibrationNote note() const
    {
        return readCalibrationNote(m_folder.filePath(notes().value(0))).note;
    }

private:
    QTemporaryDir m_folder;
    Program m_process;
};

/// Whatever gaps a busy machine made, the samples between them are those that were handed over.
inline QVector<float> withoutZeros(const QVector<float>& samples)
{
    QVector<float> rest;
    std::copy_if(samples.cbegin(), samples.cend(), std::back_inserter(rest),
        [](float sample) { return sample != 0.0F; });
    return rest;
}

/// What is heard of a calibration, without zeros.
inline QVector<float> expectedSamples(const CalibrationSound& sound, double levelDb)
{
    QVector<float> samples;
    const QVector<double> exact = calibrationSamples(sound, levelDb);
    for (const double sample : exact) {
        samples.append(static_cast<float>(sample));
    }
    return withoutZeros(samples);
}
