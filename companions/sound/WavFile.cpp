// SPDX-License-Identifier: GPL-3.0-or-later
// WAV files, made in memory.
#include "sound/WavFile.h"

#include <QBuffer>

#include <sndfile.h>

namespace {

QBuffer& bufferOf(void* user)
{
    return *static_cast<QBuffer*>(user);
}

sf_count_t lengthOf(void* user)
{
    return bufferOf(user).size();
}

sf_count_t seek(sf_count_t offset, int whence, void* user)
{
    QBuffer& buffer = bufferOf(user);
    const qint64 from = whence == SEEK_CUR ? buffer.pos() : whence == SEEK_END ? buffer.size() : 0;
    return buffer.seek(from + offset) ? buffer.pos() : -1;
}

sf_count_t readInto(void* destination, sf_count_t count, void* user)
{
    return bufferOf(user).read(static_cast<char*>(destination), count);
}

sf_count_t writeFrom(const void* source, sf_count_t count, void* user)
{
    return bufferOf(user).write(static_cast<const char*>(source), count);
}

sf_count_t place(void* user)
{
    return bufferOf(user).pos();
}

} // namespace

QByteArray wavFile(const QVector<float>& samples, int rate)
{
    QBuffer buffer;
    buffer.open(QIODevice::ReadWrite);
    SF_VIRTUAL_IO access {lengthOf, seek, readInto, writeFrom, place};
    SF_INFO info {};
    info.samplerate = rate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
    SNDFILE* const file = sf_open_virtual(&access, SFM_WRITE, &info, &buffer);
    if (file == nullptr) {
        return {};
    }
    // The chunk of peaks has the time of writing in it.
    sf_command(file, SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    const bool isWritten
        = sf_write_float(file, samples.constData(), samples.size()) == samples.size();
    const bool isClosed = sf_close(file) == 0; // which writes the lengths
    return isWritten && isClosed ? buffer.data() : QByteArray();
}
