// SPDX-License-Identifier: GPL-3.0-or-later
// The defaults of a session.
#include "session/Data.h"

#include "session/AdaptedParameter.h"
#include "session/Counts.h"
#include "session/OutputFileName.h"
#include "signal/SampleArithmetic.h"

using namespace quorin;

namespace {

QVector<double> inRadians(const QVector<double>& degrees)
{
    return {degrees[standard] * radiansPerDegree, degrees[deviant] * radiansPerDegree};
}

} // namespace

// Both sample counts come from the standard's duration; reading the panel later recomputes each
// from its own.
Data::Data()
    : nTrials(0)
    , fs(40000.0)
    , dur({0.6, 0.6})
    , nSamples(2, soundLength(fs, dur[standard]))
    , durToPlot({0.05, 0.05})
    , nPointsToPlot({flooredCount(fs * durToPlot[standard]), flooredCount(fs * durToPlot[deviant])})
    , freqToPlot({2000.0, 2000.0})
    , nFreqPointsToPlot({truncatedCount(freqToPlot[standard] * dur[standard]),
          truncatedCount(freqToPlot[deviant] * dur[deviant])})
    , defaultDir(desktopFolder())
    , outputDir(defaultDir)
    , subCode("SUB001")
    , fileName(subCode + ".txt")
    , sesTypes({"practice", "test"})
    , sesType(0)
    , soundTypes({"sinusoid", "noise"})
    , soundType(sinusoidCarrier)
    , mainParameters(adaptedParameterNames())
    , mainParameter(carrierFrequencyParameter)
    , sesNum(1)
    , wavNames({"standard.wav", "deviant.wav"})
    , amp({1.0, 1.0})
    , mf({40.0, 40.0})
    , md({0.0, 0.5})
    , fd({0.0, 0.05})
    , cf({1000.0, 1000.0})
    , cfPhaseDeg({0.0, 0.0})
    , mfPhaseDeg({180.0, 180.0})
    , cfPhase(inRadians(cfPhaseDeg))
    , mfPhase(inRadians(mfPhaseDeg))
    , normalizeMd(true)
    , equalizeRms(true)
    , nReversals(14)
    , nReversalsToCalculate(8)
    , silentInterval(1.0)
    , reversals(nReversals, 0.0)
    , stepFactorIncorrect(2)
    , stepFactorCorrect(-1)
    , stepFactor(stepFactorCorrect)
    , reversalCount(0)
    , stepSizes({2, 2, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1})
    , deviantPosition(0)
    , threshold(0.0)
    , meanReactionTime(0.0)
    , meanReactionTimeCorrect(0.0)
    , meanReactionTimeIncorrect(0.0)
    , resetMdFd(true)
    , saveData(false)
{
}

Data::~Data() = default;
