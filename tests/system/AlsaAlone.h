// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibraryInfo>
#include <QTemporaryDir>

/// Gives Qt a folder of plugins with ALSA's backend alone, and ALSA a configuration: where Qt's
/// PulseAudio backend is installed, it is the default one even if there is no server. Make it
/// before the first use of Qt's audio classes; it must outlive the last one.
class AlsaAlone {
public:
    /// @param configuration all of ALSA's; Qt takes the first device that has a description
    explicit AlsaAlone(const QByteArray& configuration)
    {
        QFile settings(m_folder.filePath("alsa.conf"));
        const QString backend("/audio/libqtaudio_alsa.so");
        m_isMade = settings.open(QIODevice::WriteOnly)
            && settings.write(configuration) == configuration.size()
            && QDir(m_folder.path()).mkdir("audio")
            && QFile::link(QLibraryInfo::location(QLibraryInfo::PluginsPath) + backend,
                m_folder.path() + backend);
        qputenv("ALSA_CONFIG_PATH", QFile::encodeName(settings.fileName()));
        QCoreApplication::setLibraryPaths({m_folder.path()});
    }

    bool isMade() const { return m_isMade; }

private:
    QTemporaryDir m_folder;
    bool m_isMade;
};
