// SPDX-License-Identifier: GPL-3.0-or-later
// A recording stream of libpulse, with libpulse's own thread.
#include "sound/MonitorRecorder.h"

#include <algorithm>
#include <pulse/pulseaudio.h>
#include <utility>

namespace {

// Blocks so large that they do not make the server handle less at a time than our sounds alone
// would: PipeWire would otherwise play more of a sound's end while it is recorded.
constexpr int blockMs = 200;

} // namespace

struct MonitorRecorder::Stream {
    QByteArray source;
    pa_sample_spec format {};
    pa_threaded_mainloop* loop = pa_threaded_mainloop_new();
    pa_context* context = pa_context_new(pa_threaded_mainloop_get_api(loop), "quorin-sound");
    pa_stream* stream = nullptr;
    QVector<float> samples;

    void connectStream();
    void keep();
};

void MonitorRecorder::Stream::connectStream()
{
    constexpr uint32_t unset = 0xFFFFFFFF;
    constexpr int msPerSecond = 1000;
    stream = pa_stream_new(context, "measurement", &format, nullptr);
    if (stream == nullptr) {
        return;
    }
    pa_stream_set_read_callback(
        stream,
        [](pa_stream* /*stream*/, size_t /*size*/, void* user) {
            static_cast<Stream*>(user)->keep();
        },
        this);
    const auto blockSize = static_cast<uint32_t>(pa_bytes_per_second(&format)) * blockMs;
    const pa_buffer_attr buffer {unset, unset, unset, unset, blockSize / msPerSecond};
    const auto flags
        = static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_DONT_MOVE);
    pa_stream_connect_record(stream, source.constData(), &buffer, flags);
}

void MonitorRecorder::Stream::keep()
{
    const void* data = nullptr;
    size_t size = 0;
    while (pa_stream_peek(stream, &data, &size) == 0 && size > 0) {
        const auto n = static_cast<int>(size / sizeof(float));
        if (data == nullptr) { // a hole, which was not recorded
            samples.insert(samples.size(), n, 0.0F);
        } else {
            const auto* const from = static_cast<const float*>(data);
            samples.resize(samples.size() + n);
            std::copy_n(from, n, samples.end() - n);
        }
        pa_stream_drop(stream);
    }
}

MonitorRecorder::MonitorRecorder(const QString& sink, int rate)
    : m_stream(std::make_unique<Stream>())
{
    Stream& s = *m_stream;
    s.source = (sink + ".monitor").toUtf8();
    s.format = {PA_SAMPLE_FLOAT32LE, static_cast<uint32_t>(rate), 1};
    pa_context_set_state_callback(
        s.context,
        [](pa_context* context, void* user) {
            if (pa_context_get_state(context) == PA_CONTEXT_READY) {
                static_cast<Stream*>(user)->connectStream();
            }
        },
        &s);
    pa_context_connect(s.context, nullptr, PA_CONTEXT_NOFLAGS, nullptr);
    pa_threaded_mainloop_start(s.loop);
}

MonitorRecorder::~MonitorRecorder()
{
    Stream& s = *m_stream;
    pa_threaded_mainloop_stop(s.loop);
    if (s.stream != nullptr) {
        pa_stream_disconnect(s.stream);
        pa_stream_unref(s.stream);
    }
    pa_context_disconnect(s.context);
    pa_context_unref(s.context);
    pa_threaded_mainloop_free(s.loop);
}

int MonitorRecorder::sampleCount() const
{
    pa_threaded_mainloop_lock(m_stream->loop);
    const int n = m_stream->samples.size();
    pa_threaded_mainloop_unlock(m_stream->loop);
    return n;
}

QVector<float> MonitorRecorder::take()
{
    pa_threaded_mainloop_lock(m_stream->loop);
    QVector<float> taken = std::exchange(m_stream->samples, {});
    pa_threaded_mainloop_unlock(m_stream->loop);
    return taken;
}
