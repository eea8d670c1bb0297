// SPDX-License-Identifier: Apache-2.0
// Names and texts as people compare them.
#pragma once

#include <string>
#include <string_view>

namespace vxmeta {

// The name without case, blanks and characters that nothing shows, accents apart from their
// letters: for comparison alone. What is no UTF-8 stays as it is.
std::u32string folded(std::string_view name);

// The text composed, without blanks and controls at its end, line feeds for all ends of lines: for
// comparison alone. What is no UTF-8 stays as it is.
std::string settled(std::string_view text);

}  // namespace vxmeta
