// SPDX-License-Identifier: Apache-2.0
// Packets in the bytes of a file of any kind, found by their wrappers.
#pragma once

#include <cstdint>
#include <vector>

#include "files/input_file.h"

namespace vxmeta {

struct Extent {
  std::uint64_t offset = 0;
  std::uint64_t length = 0;
};

// In the order of the file. Reads it once, in pieces; finds UTF-8 and UTF-16.
std::vector<Extent> scanForPackets(const InputFile& file);

}  // namespace vxmeta
