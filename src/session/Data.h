// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "session/Record.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace quorin {

/// Indices into every two-element vector of a trial's stimuli.
constexpr int standard = 0;
constexpr int deviant = 1;

/// Indices of the three combo boxes' choices.
constexpr int sinusoidCarrier = 0;
constexpr int noiseCarrier = 1;
constexpr int carrierFrequencyParameter = 0; ///< the deviant's frequency difference is adapted
constexpr int modulationDepthParameter = 1; ///< the deviant's modulation depth is adapted

} // namespace quorin

/// The one record of an experimental run: the stimuli, the staircase, the answers and the results.
///
/// Every two-element vector holds the standard's value and then the deviant's. Quantities are in
/// seconds and hertz; depths and frequency differences are fractions. The panel shows milliseconds,
/// percent and hertz.
class Data {
public:
    /// Every field at its default, the derived ones computed from the defaults above them.
    Data();
    ~Data();

    int nTrials; ///< trials started so far in the run
    double fs; ///< sampling rate, Hz
    QVector<double> dur; ///< durations, s
    QVector<int> nSamples; ///< samples of each stimulus, floor(fs * duration); may be negative
    QVector<double> durToPlot; ///< stretch of each waveform that the charts show, s
    QVector<int> nPointsToPlot; ///< samples in that stretch, at most nSamples; may be negative
    QVector<double> freqToPlot; ///< highest frequency that the spectrum charts show, Hz
    QVector<int> nFreqPointsToPlot; ///< spectrum bins that the charts show
    QString defaultDir; ///< the user's desktop folder
    QString outputDir; ///< folder of the results file; the whole chosen path after a save
    QString subCode; ///< subject code
    QString fileName; ///< name of the results file
    QStringList sesTypes; ///< items of the session-type box
    int sesType; ///< index into sesTypes
    QStringList soundTypes; ///< items of the sound-type box
    int soundType; ///< index into soundTypes
    QStringList mainParameters; ///< items of the main-parameter box
    int mainParameter; ///< index into mainParameters: the parameter that the staircase adapts
    int sesNum; ///< session number
    QVector<QString> wavNames; ///< names of the two stimuli
    QVector<double> amp; ///< amplitude factors, 1 is digital full scale
    QVector<double> mf; ///< modulation frequencies, Hz
    QVector<double> md; ///< modulation depths, fractions of full modulation
    QVector<double> fd; ///< frequency differences, fractions of the standard's carrier frequency
    QVector<double> cf; ///< carrier frequencies, Hz
    QVector<double> cfPhaseDeg; ///< starting phases of the carrier sine, degrees
    QVector<double> mfPhaseDeg; ///< starting phases of the modulating cosine, degrees
    QVector<double> cfPhase; ///< cfPhaseDeg in radians
    QVector<double> mfPhase; ///< mfPhaseDeg in radians
    bool normalizeMd; ///< whether each modulated sample is divided by 1 + depth
    bool equalizeRms; ///< whether the standard is scaled to the deviant's RMS
    int nReversals; ///< reversals after which the run ends
    int nReversalsToCalculate; ///< how many of the last reversals the threshold averages
    double silentInterval; ///< silence after the longer stimulus of a trial, s
    QVector<double> reversals; ///< value of the adapted parameter at each reversal
    int stepFactorIncorrect; ///< step multiplier after a wrong answer
    int stepFactorCorrect; ///< step multiplier after a correct answer
    int stepFactor; ///< the multiplier in force
    int reversalCount; ///< reversals counted so far
    QVector<int> stepSizes; ///< step sizes in dB, by reversalCount; the last one goes on
    QVector<Record> records; ///< the answered trials, in order
    int deviantPosition; ///< interval that holds the deviant in the current trial
    double threshold; ///< result: mean of the last reversals, in the unit of Record::value
    double meanReactionTime; ///< result: over all trials, ms
    double meanReactionTimeCorrect; ///< result: over the correct trials, ms
    double meanReactionTimeIncorrect; ///< result: over the wrong trials, ms
    bool resetMdFd; ///< whether reading the panel puts the deviant to its starting values
    bool saveData; ///< whether the run's trials are saved at its end
};
