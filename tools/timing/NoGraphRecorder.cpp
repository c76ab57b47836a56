// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in for recordings of PipeWire's graph where its library is not installed.
#include "timing/GraphRecorder.h"

struct GraphRecorder::Stream { };

GraphRecorder::GraphRecorder(Sink sink, int seconds, bool isAwake)
    : m_sink(std::move(sink))
    , m_seconds(seconds)
    , m_isAwake(isAwake)
{
}

GraphRecorder::~GraphRecorder() = default;

bool GraphRecorder::begin()
{
    m_errorText = "built without libpipewire-0.3-dev";
    return false;
}

void GraphRecorder::end() { }

double GraphRecorder::timeMs(qint64 /*sample*/) const
{
    return 0.0;
}
