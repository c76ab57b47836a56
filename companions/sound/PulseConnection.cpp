// SPDX-License-Identifier: GPL-3.0-or-later
// Requests to the sound server by libpulse, with an end to the patience for their answers.
#include "sound/PulseConnection.h"

#include <pulse/pulseaudio.h>

namespace {

constexpr qint64 patienceMs = 5000;

}

PulseConnection::PulseConnection()
    : m_loop(pa_mainloop_new())
    , m_context(pa_context_new(pa_mainloop_get_api(m_loop), "quorin-sound"))
{
}

PulseConnection::~PulseConnection()
{
    pa_context_disconnect(m_context);
    pa_context_unref(m_context);
    pa_mainloop_free(m_loop);
}

bool PulseConnection::open()
{
    m_clock.start();
    if (pa_context_connect(m_context, nullptr, PA_CONTEXT_NOFLAGS, nullptr) < 0) {
        return false;
    }
    while (pa_context_get_state(m_context) != PA_CONTEXT_READY) {
        if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context)) || !step()) {
            return false;
        }
    }
    return true;
}

bool PulseConnection::await(pa_operation* operation)
{
    if (operation == nullptr) {
        return false;
    }
    m_clock.start();
    bool isGood = true;
    while (isGood && pa_operation_get_state(operation) == PA_OPERATION_RUNNING) {
        isGood = step();
    }
    isGood = isGood && pa_operation_get_state(operation) == PA_OPERATION_DONE;
    if (!isGood) {
        pa_operation_cancel(operation); // nothing may be kept any more: its place goes
    }
    pa_operation_unref(operation);
    return isGood;
}

QString PulseConnection::error() const
{
    return isOverdue() ? QString("it does not answer")
                       : QString(pa_strerror(pa_context_errno(m_context)));
}

bool PulseConnection::isOverdue() const
{
    return m_clock.elapsed() >= patienceMs;
}

bool PulseConnection::step()
{
    constexpr int longestWaitUs = 100000;
    return !isOverdue() && pa_mainloop_prepare(m_loop, longestWaitUs) >= 0
        && pa_mainloop_poll(m_loop) >= 0 && pa_mainloop_dispatch(m_loop) >= 0;
}
