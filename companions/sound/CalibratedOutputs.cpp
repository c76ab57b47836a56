// SPDX-License-Identifier: GPL-3.0-or-later
// The sound server's outputs as a calibration note has them.
#include "sound/CalibratedOutputs.h"

QVector<CalibratedOutput> calibratedOutputs(const SoundPath& path)
{
    QVector<CalibratedOutput> outputs;
    for (const OutputFacts& facts : path.outputs) {
        CalibratedOutput output {facts.name, facts.description, {}, facts.isMuted};
        for (const ChannelVolume& volume : facts.volumes) {
            output.volumes.append(volume.percent);
        }
        outputs.append(output);
    }
    return outputs;
}
