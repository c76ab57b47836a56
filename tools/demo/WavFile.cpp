// SPDX-License-Identifier: GPL-3.0-or-later
// WAV files of 32-bit floats.
#include "demo/WavFile.h"

#include <QDataStream>
#include <QIODevice>
#include <QSaveFile>

namespace {

constexpr quint32 formatBytes = 18;
constexpr quint32 factBytes = 4;
constexpr quint32 chunkHeadBytes = 8; // a name of four letters and a size
constexpr quint32 waveNameBytes = 4;
constexpr quint16 floatFormat = 3;
constexpr quint16 channels = 1;
constexpr quint16 sampleBytes = sizeof(float);

void writeName(QDataStream& stream, const char* name)
{
    stream.writeRawData(name, 4);
}

} // namespace

QByteArray wavHeader(int nSamples, int rate)
{
    const quint32 dataBytes = quint32(nSamples) * sampleBytes;
    QByteArray header;
    QDataStream stream(&header, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    writeName(stream, "RIFF");
    stream << waveNameBytes + 3 * chunkHeadBytes + formatBytes + factBytes + dataBytes;
    writeName(stream, "WAVE");
    writeName(stream, "fmt ");
    constexpr quint16 bitsPerByte = 8;
    constexpr quint16 extensionBytes = 0;
    stream << formatBytes << floatFormat << channels << quint32(rate)
           << quint32(rate) * channels * sampleBytes << quint16(channels * sampleBytes)
           << quint16(sampleBytes * bitsPerByte) << extensionBytes;
    writeName(stream, "fact");
    stream << factBytes << quint32(nSamples);
    writeName(stream, "data");
    stream << dataBytes;
    return header;
}

bool writeWavFile(const QString& path, const QVector<float>& samples, int rate)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.write(wavHeader(samples.size(), rate));
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    for (const float sample : samples) {
        stream << sample;
    }
    return file.commit();
}
