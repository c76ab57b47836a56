// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/WindowTest.h"

void WindowTest::init()
{
    QuietTest::init();
    tolerateWarning(QRegularExpression("^PulseAudioService: pa_context_connect\\(\\) failed$"));
    tolerateWarning(QRegularExpression("^using null output device, none available$"));
    tolerateWarning(
        QRegularExpression("^Raw audio format not supported by backend, cannot play audio\\.$"));
}
