// SPDX-License-Identifier: Apache-2.0
#include "text/characters.h"

#include <utf8proc.h>

namespace vxmeta {

Character firstOf(std::string_view text) {
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  utf8proc_int32_t code = 0;
  const auto length = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code);
  if (length <= 0) return {bytes[0], 1, false};
  return {static_cast<char32_t>(code), static_cast<std::size_t>(length), true};
}

std::size_t widthOf(const Character& character) {
  const auto code = static_cast<utf8proc_int32_t>(character.code);
  return character.isValid ? static_cast<std::size_t>(utf8proc_charwidth(code)) : 1;
}

}  // namespace vxmeta
