// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Calls visit(name, field) for every field of the session record in its order, but for the
/// answered trials: these are lines of their own. The name is that of the field.
/// @param data a Data, to read from it or to write to it
template <typename AnyData, typename Visit> void eachSetting(AnyData& data, Visit& visit)
{
    visit("nTrials", data.nTrials);
    visit("fs", data.fs);
    visit("dur", data.dur);
    visit("nSamples", data.nSamples);
    visit("durToPlot", data.durToPlot);
    visit("nPointsToPlot", data.nPointsToPlot);
    visit("freqToPlot", data.freqToPlot);
    visit("nFreqPointsToPlot", data.nFreqPointsToPlot);
    visit("defaultDir", data.defaultDir);
    visit("outputDir", data.outputDir);
    visit("subCode", data.subCode);
    visit("fileName", data.fileName);
    visit("sesTypes", data.sesTypes);
    visit("sesType", data.sesType);
    visit("soundTypes", data.soundTypes);
    visit("soundType", data.soundType);
    visit("mainParameters", data.mainParameters);
    visit("mainParameter", data.mainParameter);
    visit("sesNum", data.sesNum);
    visit("wavNames", data.wavNames);
    visit("amp", data.amp);
    visit("mf", data.mf);
    visit("md", data.md);
    visit("fd", data.fd);
    visit("cf", data.cf);
    visit("cfPhaseDeg", data.cfPhaseDeg);
    visit("mfPhaseDeg", data.mfPhaseDeg);
    visit("cfPhase", data.cfPhase);
    visit("mfPhase", data.mfPhase);
    visit("normalizeMd", data.normalizeMd);
    visit("equalizeRms", data.equalizeRms);
    visit("nReversals", data.nReversals);
    visit("nReversalsToCalculate", data.nReversalsToCalculate);
    visit("silentInterval", data.silentInterval);
    visit("reversals", data.reversals);
    visit("stepFactorIncorrect", data.stepFactorIncorrect);
    visit("stepFactorCorrect", data.stepFactorCorrect);
    visit("stepFactor", data.stepFactor);
    visit("reversalCount", data.reversalCount);
    visit("stepSizes", data.stepSizes);
    visit("deviantPosition", data.deviantPosition);
    visit("threshold", data.threshold);
    visit("meanReactionTime", data.meanReactionTime);
    visit("meanReactionTimeCorrect", data.meanReactionTimeCorrect);
    visit("meanReactionTimeIncorrect", data.meanReactionTimeIncorrect);
    visit("resetMdFd", data.resetMdFd);
    visit("saveData", data.saveData);
}
