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
    int largestQuantum = 0; ///< which a sound gets that plays alone, samples; 0: unknown
    int forcedQuantum = 0; ///< for all streams; 0: none
    int forcedForUs = 0; ///< by a rule for programs of our names; 0: none
    QVector<int> allowedRates; ///< that it switches to for a stream, Hz
    int usualRate = 0; ///< that it runs at where it does not switch, Hz; 0: unknown
    int forcedRate = 0; ///< for all streams, Hz; 0: none

    /// The rate that it runs at while one of our sounds plays and nothing else, Hz; 0: unknown.
    int rateFor(int soundRate) const;

    /// Samples that it handles at a time while one of our sounds plays: a power of two. A forced
    /// number counts at every rate, where two are forced the larger is assumed; the largest quantum
    /// is for the usual rate.
    /// @param rate that it runs at, Hz
    /// @return 0: unknown
    int quantumAt(int rate) const;
};

/// The way from a program to the card, as the sound server tells it.
struct SoundPath {
    QString serverName;
    QString serverVersion;
    QVector<OutputFacts> outputs; ///< the default output first, then what that one plays on
    bool hasSuspendOnIdle = false; ///< whether PulseAudio puts idle outputs to sleep
    std::optional<PipeWireSettings> pipeWire; ///< none: it is not PipeWire

    /// The rate that all streams are forced to, or that of the first output, if it is another one
    /// than the sounds'; theirs if there is none.
    /// @param soundRate of the sounds, Hz
    int otherRate(int soundRate) const
    {
        const int forced = pipeWire ? pipeWire->forcedRate : 0;
        if (forced > 0 && forced != soundRate) {
            return forced;
        }
        for (const OutputFacts& output : outputs) {
            if (output.rate != soundRate) {
                return output.rate;
            }
        }
        return soundRate;
    }
};

/// A path, or why there is none.
struct FoundPath {
    SoundPath path;
    int forcedQuantum = 0; ///< by a rule of PipeWire's PulseAudio server for our programs
    QString obstacle; ///< empty: there is one
};
