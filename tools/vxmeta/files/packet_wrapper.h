// SPDX-License-Identifier: Apache-2.0
// What a packet's wrapper says, and how the packet is stored.
#pragma once

#include <cstddef>
#include <string_view>

#include "files/encoding.h"

namespace vxmeta {

struct PacketFacts {
  std::size_t bytes = 0;    // from the begin of the wrapper through its end; without one, all
  std::size_t padding = 0;  // blanks and line ends before the closing wrapper line, in characters
  bool writable = false;    // the wrapper ends in end="w"
  bool hasWrapper = false;
  Encoding encoding = Encoding::utf8;
};

// Takes time in step with the text.
PacketFacts packetFacts(std::string_view text);

}  // namespace vxmeta
