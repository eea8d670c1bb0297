// SPDX-License-Identifier: Apache-2.0
// The characters of a text in UTF-8.
#pragma once

#include <cstddef>
#include <string_view>

namespace vxmeta {

// One character of a text, or a byte that is none.
struct Character {
  char32_t code = 0;
  std::size_t bytes = 1;
  bool isValid = false;
};

// Of a text that is not empty.
Character firstOf(std::string_view text);

// Columns that it takes in a terminal: 0, 1 or 2.
std::size_t widthOf(const Character& character);

}  // namespace vxmeta
