// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorin {

// What the companions take for a sampling rate, Hz: the rates that sound cards have.
constexpr int slowestRate = 8000;
constexpr int fastestRate = 192000;

} // namespace quorin
