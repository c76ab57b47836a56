// SPDX-License-Identifier: GPL-3.0-or-later
// A module of the sound server, loaded for a time.
#include "sound/NullSink.h"

#include "sound/PulseConnection.h"

#include <QCoreApplication>

#include <pulse/pulseaudio.h>

namespace {

void keepIndex(pa_context* /*context*/, uint32_t index, void* user)
{
    *static_cast<uint32_t*>(user) = index;
}

} // namespace

// PulseAudio takes a sink that may not rewind at its word; PipeWire does not know the argument.
NullSink::NullSink(int rate)
    : m_name(QString("quorin_sound_%1").arg(QCoreApplication::applicationPid()))
    , m_module(PA_INVALID_INDEX)
{
    const QString arguments = QString("sink_name=%1 rate=%2 channels=1 channel_map=mono "
                                      "format=float32le norewinds=1 "
                                      "sink_properties=device.description=quorin-sound")
                                  .arg(m_name)
                                  .arg(rate);
    PulseConnection connection;
    const bool isAnswered = connection.open()
        && connection.await(pa_context_load_module(connection.context(), "module-null-sink",
            arguments.toUtf8().constData(), keepIndex, &m_module));
    if (!isAnswered || m_module == PA_INVALID_INDEX) {
        m_obstacle = "the sound server makes no null sink: " + connection.error();
    }
}

NullSink::~NullSink()
{
    PulseConnection connection;
    if (m_module != PA_INVALID_INDEX && connection.open()) {
        connection.await(
            pa_context_unload_module(connection.context(), m_module, nullptr, nullptr));
    }
}
