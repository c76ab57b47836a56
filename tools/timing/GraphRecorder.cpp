// SPDX-License-Identifier: GPL-3.0-or-later
// Records a sink and the begin of each cycle by a stream in PipeWire's graph.
#include "timing/GraphRecorder.h"

#include <QtCore/qtestsupport_core.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <pipewire/pipewire.h>
#include <spa/param/audio/format-utils.h>
#include <utility>

namespace {

constexpr int afterwardsMs = 300;
constexpr int shortestCycle = 16; // samples; PipeWire's least quantum
constexpr double nsPerMs = 1e6;

} // namespace

struct GraphRecorder::Stream {
    pw_thread_loop* loop = nullptr;
    pw_context* context = nullptr;
    pw_core* core = nullptr;
    pw_stream* stream = nullptr;
    spa_hook listener {};
    pw_stream_events events {};
    QVector<float> samples;
    QVector<Arrival> cycles;
    double originMs = monotonicOriginMs();
    std::atomic<bool> isConnected {false};
    std::atomic<int> nSamples {0};
    std::atomic<int> nCycles {0};

    void process();
    void setState(pw_stream_state state);
};

// Called in PipeWire's own thread once a cycle: nothing here may wait or allocate.
void GraphRecorder::Stream::process()
{
    pw_buffer* const buffer = pw_stream_dequeue_buffer(stream);
    if (buffer == nullptr)
        return;
    pw_time time {};
    pw_stream_get_time_n(stream, &time, sizeof(time));
    const spa_data& data = *buffer->buffer->datas;
    const auto* const from
        = static_cast<const float*>(data.data) + data.chunk->offset / sizeof(float);
    const int n = int(data.chunk->size / sizeof(float));
    const int begin = nSamples;
    const int cycle = nCycles;
    if (n > 0 && begin + n <= samples.size() && cycle < cycles.size()) {
        std::copy_n(from, n, samples.begin() + begin);
        cycles[cycle] = {begin, double(time.now) / nsPerMs - originMs};
        nCycles = cycle + 1;
        nSamples = begin + n;
    }
    pw_stream_queue_buffer(stream, buffer);
}

void GraphRecorder::Stream::setState(pw_stream_state state)
{
    isConnected = state == PW_STREAM_STATE_PAUSED || state == PW_STREAM_STATE_STREAMING;
}

GraphRecorder::GraphRecorder(Sink sink, int seconds, bool isAwake)
    : m_sink(std::move(sink))
    , m_seconds(seconds)
    , m_isAwake(isAwake)
    , m_stream(std::make_unique<Stream>())
{
}

GraphRecorder::~GraphRecorder()
{
    Stream& s = *m_stream;
    if (s.loop == nullptr)
        return;
    pw_thread_loop_stop(s.loop);
    if (s.stream != nullptr)
        pw_stream_destroy(s.stream);
    if (s.core != nullptr)
        pw_core_disconnect(s.core);
    pw_context_destroy(s.context);
    pw_thread_loop_destroy(s.loop);
}

bool GraphRecorder::begin()
{
    prepare();
    Stream& s = *m_stream;
    pw_thread_loop_lock(s.loop);
    const bool isRequested = connectStream();
    pw_thread_loop_unlock(s.loop);
    if (isRequested && QTest::qWaitFor([&s] { return s.isConnected.load(); }, timeoutMs))
        return true;
    m_errorText = "PipeWire at " + m_sink.socket + " lets nobody record " + m_sink.name;
    return false;
}

void GraphRecorder::prepare()
{
    Stream& s = *m_stream;
    s.samples.resize(m_sink.rate * m_seconds);
    s.cycles.resize(s.samples.size() / shortestCycle);
    pw_init(nullptr, nullptr);
    s.loop = pw_thread_loop_new("recorder", nullptr);
    // A recorder that waits for the processor would hold up the graph.
    s.context = pw_context_new(pw_thread_loop_get_loop(s.loop),
        pw_properties_new(PW_KEY_CONFIG_NAME, "client-rt.conf", nullptr), 0);
    pw_thread_loop_start(s.loop);
}

bool GraphRecorder::connectStream()
{
    Stream& s = *m_stream;
    s.core = pw_context_connect(s.context,
        pw_properties_new(PW_KEY_REMOTE_NAME, m_sink.socket.toLocal8Bit().constData(), nullptr), 0);
    if (s.core == nullptr)
        return false;
    s.stream = pw_stream_new(s.core, "recorder",
        pw_properties_new(PW_KEY_MEDIA_TYPE, "Audio", PW_KEY_MEDIA_CATEGORY, "Capture",
            PW_KEY_STREAM_CAPTURE_SINK, "true", PW_KEY_NODE_PASSIVE, m_isAwake ? "false" : "true",
            "target.object", m_sink.name.toLatin1().constData(), nullptr));
    s.events.version = PW_VERSION_STREAM_EVENTS;
    s.events.process = [](void* data) { static_cast<Stream*>(data)->process(); };
    s.events.state_changed
        = [](void* data, pw_stream_state /*before*/, pw_stream_state now, const char* /*error*/) {
              static_cast<Stream*>(data)->setState(now);
          };
    pw_stream_add_listener(s.stream, &s.listener, &s.events, &s);

    std::array<uint8_t, 1024> memory {};
    spa_pod_builder builder {};
    spa_pod_builder_init(&builder, memory.data(), memory.size());
    spa_audio_info_raw format {};
    format.format = SPA_AUDIO_FORMAT_F32;
    format.rate = uint32_t(m_sink.rate);
    format.channels = 1;
    const spa_pod* wanted = spa_format_audio_raw_build(&builder, SPA_PARAM_EnumFormat, &format);
    const auto flags = pw_stream_flags(
        PW_STREAM_FLAG_AUTOCONNECT | PW_STREAM_FLAG_MAP_BUFFERS | PW_STREAM_FLAG_RT_PROCESS);
    return pw_stream_connect(s.stream, PW_DIRECTION_INPUT, PW_ID_ANY, flags, &wanted, 1) == 0;
}

void GraphRecorder::end()
{
    // A sink that rests sends no samples to wait for.
    QTest::qWait(afterwardsMs);
    Stream& s = *m_stream;
    pw_thread_loop_stop(s.loop);
    m_samples = s.samples.mid(0, s.nSamples);
    m_arrivals = s.cycles.mid(0, s.nCycles);
    fillPauses(m_samples, m_arrivals, m_sink.rate);
}

double GraphRecorder::timeMs(qint64 sample) const
{
    return timeInCyclesMs(m_arrivals, m_sink.rate, sample);
}
