// SPDX-License-Identifier: Apache-2.0
#include "text/characters.h"

namespace vxmeta {
namespace {

std::size_t bytesBehind(unsigned char lead) {
  if (lead < 0x80) return 0;
  if (lead >= 0xC2 && lead < 0xE0) return 1;
  if (lead >= 0xE0 && lead < 0xF0) return 2;
  return lead >= 0xF0 && lead < 0xF5 ? 3 : 4;
}

bool isInRange(char32_t code, std::size_t bytes) {
  constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
  return code >= kLeast[bytes] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

}  // namespace

Character firstOf(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t behind = bytesBehind(lead);
  if (behind > 3 || behind >= text.size()) return {lead, 1, false};
  char32_t code = behind == 0 ? lead : lead & (0x3FU >> behind);
  for (std::size_t i = 1; i <= behind; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0U) != 0x80U) return {lead, 1, false};
    code = code << 6U | (next & 0x3FU);
  }
  if (!isInRange(code, behind + 1)) return {lead, 1, false};
  return {code, behind + 1, true};
}

}  // namespace vxmeta
