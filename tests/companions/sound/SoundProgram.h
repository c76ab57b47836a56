// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QProcess>
#include <QtEndian>

/// What quorin-sound said.
struct SoundProgramEnd {
    int status; ///< -1: it did not end by itself
    QString output;
    QString errors;
};

inline SoundProgramEnd runSoundProgram(const QStringList& arguments, const QString& folder = {})
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(SOUND_PROGRAM, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit) {
        return {-1, {}, process.errorString()};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

/// The content of a chunk of a WAV file; empty if there is none.
inline QByteArray wavChunk(const QByteArray& wav, const char* name)
{
    constexpr int headSize = 8;
    int place = 12; // after RIFF, the size and WAVE
    while (place + headSize <= wav.size()) {
        const auto size = static_cast<int>(qFromLittleEndian<quint32>(wav.constData() + place + 4));
        if (wav.mid(place, 4) == name) {
            return wav.mid(place + headSize, size);
        }
        place += headSize + size + size % 2;
    }
    return {};
}
