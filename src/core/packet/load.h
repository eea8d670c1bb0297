// SPDX-License-Identifier: Apache-2.0
// A packet's text into metadata.
#pragma once

#include <string>
#include <string_view>

#include "core/toolkit/client.h"

namespace xmpl {

// Fills empty metadata. Answers what is wrong with the packet, in words for the error text; empty
// when nothing is. The metadata is empty then, whatever was read before the fault.
std::string loadPacket(std::string_view packet, Metadata& metadata);

}  // namespace xmpl
