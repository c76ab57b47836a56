// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// When the next sound of a trial is due, beside the timer that starts it. All times in ms on one
/// clock.
class SoundPacing {
public:
    /// A tick that comes later than this after the sound was due is late. Undisturbed ones come
    /// within 3 ms.
    static constexpr double mostLatenessMs = 10.0;

    /// A trial begins: its first sound is due one period later.
    /// @param periodMs from one sound's onset to the next, at least 1
    void begin(double nowMs, int periodMs);
    /// The next sound is due after this time instead.
    void dueAfter(double nowMs, double ms) { m_dueMs = nowMs + ms; }
    /// A sound has started: the next one is due one period after this one was. A repeating timer
    /// that is more than a period behind leaves out what it missed; so does this.
    void soundStarted(double nowMs);

    int periodMs() const { return m_periodMs; }
    /// How long ago the next sound was due; negative before that.
    double latenessMs(double nowMs) const { return nowMs - m_dueMs; }
    bool isLate(double nowMs) const { return isTooMuch(latenessMs(nowMs)); }
    /// Whether a sound that comes so much after it was due is a late one.
    static constexpr bool isTooMuch(double latenessMs) { return latenessMs > mostLatenessMs; }

private:
    int m_periodMs = 1;
    double m_dueMs = 0.0;
};
