// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The constants of the sounds as the doubles that every sample is computed with.
constexpr double pi = 3.141592653589793;
constexpr double twoPi = 6.283185307179586;
constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double largestDraw = 2147483647.0; ///< qrand() gives integers from 0 to this
