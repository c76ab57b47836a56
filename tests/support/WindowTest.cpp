// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows may say on a machine without a sound device.
#include "support/WindowTest.h"

#include <QAudioDeviceInfo>

void WindowTest::init()
{
    QuietTest::init();
    tolerateWarning(QRegularExpression("^PulseAudioService: pa_context_connect\\(\\) failed$"));
    tolerateWarning(QRegularExpression("^using null output device, none available$"));
    if (QAudioDeviceInfo::defaultOutputDevice().isNull()) {
        tolerateWarning(QRegularExpression(
            "^Raw audio format not supported by backend, cannot play audio\\.$"));
    }
}

void WindowTest::tolerateUndefinedChartValues()
{
    tolerateWarning(QRegularExpression("^Ignored NaN, Inf, or -Inf value\\.$"));
    tolerateWarning(QRegularExpression(
        "^Attempting to set invalid range for value axis: \\[.*(nan|inf).*\\]$"));
}
