// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace quorin {

// What the servers have in common.
constexpr auto sinkName = "lab";
constexpr int serverStartTimeoutMs = 20000;

} // namespace quorin
