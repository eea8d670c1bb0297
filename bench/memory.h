// SPDX-License-Identifier: Apache-2.0
// Peaks of memory, each measured in a process of its own.
#pragma once

#include <string_view>

namespace bench {

// Prints how many bytes the process has at most when `side` ("ours", "by_hand") loads a list of
// 50 MB, in a line as for a case; for "text", how long that packet is. Answers the exit code.
int printPeak(std::string_view side);

}  // namespace bench
