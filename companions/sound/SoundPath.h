// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// A channel of an output and its volume.
struct ChannelVolume {
    QString channel; ///< "front-left" and the like
    double percent; ///< as the desktop shows it; 100 leaves samples as they are
};

/// An output (a sink) of the sound server.
struct OutputFacts {
    QString name;
    QString description;
    int rate = 0; ///< Hz
    QString format; ///< the server's name, such as "s16le"
    QVector<ChannelVolume> volumes; ///< one a channel
    bool isMuted = false;
    double latencyMs = 0.0; ///< that it is set to at present
    QString module; ///< that made it; empty where that is not known
    QString moduleArguments; ///< of that module
    QString sleepsAfter; ///< s, PipeWire's property; empty without it
};

/// What PipeWire is set to, from its metadata "settings".
struct PipeWireSettings {
    int quantum = 0; ///< samples that it handles at a time unless asked otherwise; 0: unknown
    int forcedQuantum = 0; ///< 0: none
    QVector<int> allowedRates; ///< that it switches to for a stream, Hz

    /// Samples that it handles at a time: a forced number acts as the next smaller power of two.
    int quantumInForce() const;
};

/// The way from a program to the card, as the sound server tells it.
struct SoundPath {
    QString serverName;
    QString serverVersion;
    QVector<OutputFacts> outputs; ///< the default output first, then what that one plays on
    bool hasSuspendOnIdle = false; ///< whether PulseAudio puts idle outputs to sleep
    std::optional<PipeWireSettings> pipeWire; ///< none: it is not PipeWire
};

/// A path, or why there is none.
struct FoundPath {
    SoundPath path;
    QString obstacle; ///< empty: there is one
};
