// SPDX-License-Identifier: GPL-3.0-or-later
// Samples as the bytes that are played.
#include "app/PlayedSound.h"

#include <algorithm>
#include <cstring>

QByteArray encodedPcm(const QVector<double>& samples, int nSamples)
{
    constexpr int bytesPerSample = sizeof(float);
    QByteArray bytes(std::max(nSamples, 0) * bytesPerSample, '\0');
    const int nEncoded = std::min(nSamples, samples.size());
    char* destination = bytes.data();
    for (int i = 0; i < nEncoded; ++i) {
        const auto sample = static_cast<float>(samples[i]);
        std::memcpy(destination, &sample, bytesPerSample);
        destination += bytesPerSample;
    }
    return bytes;
}
