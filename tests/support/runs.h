// SPDX-License-Identifier: Apache-2.0
// Runs of references, counted before anything is expanded.
#pragma once

#include <strings.h>

#include <algorithm>
#include <cstdlib>

#include "XMPlib.h"

inline bool isRun(const std::string& name) { return strncasecmp(name.c_str(), "files:", 6) == 0; }

// The number of files in all runs.
inline std::int64_t filesIn(const std::vector<XMPlExtRef>& refs) {
  std::int64_t files = 0;
  for (const XMPlExtRef& ref : refs) {
    const std::string& name = ref.instanceID;
    const std::size_t hash = name.rfind('#'), dash = name.find('-', hash);
    if (!isRun(name) || hash == name.npos || dash == name.npos) continue;
    const std::int64_t first = std::atoi(name.substr(hash + 1, dash - hash - 1).c_str());
    files += std::max<std::int64_t>(std::atoi(name.substr(dash + 1).c_str()) - first + 1, 0);
  }
  return files;
}

// Too many to wait for, too few to be refused.
inline bool isSlow(std::int64_t files) { return files > 10'000 && files <= 1'000'000; }
