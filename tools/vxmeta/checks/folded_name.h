// SPDX-License-Identifier: Apache-2.0
// Names as people compare them.
#pragma once

#include <string>
#include <string_view>

namespace vxmeta {

// The name without blanks, its Latin, Greek and Cyrillic letters small, for comparison alone.
// Letters of old or scholarly spelling stay as they are.
std::u32string folded(std::string_view name);

}  // namespace vxmeta
