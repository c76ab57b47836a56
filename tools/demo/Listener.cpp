// SPDX-License-Identifier: GPL-3.0-or-later
// A listener who hears a recording and answers by a psychometric function.
#include "demo/Listener.h"

#include "demo/HeardTrial.h"
#include "demo/Waiting.h"
#include "soundlab/SoundRecorder.h"

namespace {

constexpr int patienceMs = 3000;
constexpr int shortestSilence = 400; // samples: 10 ms, above any pause inside a sound
constexpr int otherOfTwoAndThree = 5;

} // namespace

Listener::Listener(
    const SoundRecorder& recorder, const PsychometricFunction& function, quint64 seed)
    : m_recorder(recorder)
    , m_function(function)
    , m_generator(seed)
    , m_heardUpTo(recorder.sampleCount())
{
}

int Listener::hear()
{
    HeardTrial heard = {};
    const auto isOver = [&] {
        heard = heardTrial(m_recorder.samples(m_heardUpTo), shortestSilence);
        return heard.nSounds >= 4;
    };
    if (!waitUntil(isOver, patienceMs) || heard.nSounds != 4) {
        m_errorText = QString("%1 sounds were heard instead of four").arg(heard.nSounds);
        return 0;
    }
    if (heard.deviant == 0) {
        m_errorText = "four sounds were heard, but not one of the second and the third that "
                      "differs from the first";
        return 0;
    }
    m_heardUpTo += heard.end;
    return heard.deviant;
}

int Listener::answer(int heard, double value)
{
    const bool isRight = nextFraction(m_generator) < m_function.probabilityRight(value);
    return isRight ? heard : otherOfTwoAndThree - heard;
}
