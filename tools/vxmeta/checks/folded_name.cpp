// SPDX-License-Identifier: Apache-2.0
#include "checks/folded_name.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "text/characters.h"

namespace vxmeta {
namespace {

// Capitals from `first` to `last`, and how far their small letters are from them. Where capitals
// and small letters take turns, every second one is a capital.
struct Capitals {
  char32_t first, last;
  char32_t step;
  std::int32_t toSmall;
};

constexpr Capitals kCapitals[] = {
    {U'A', U'Z', 1, 32},
    // Latin-1 and Latin Extended-A
    {0xC0, 0xD6, 1, 32},
    {0xD8, 0xDE, 1, 32},
    {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},
    {0x139, 0x147, 2, 1},
    {0x14A, 0x176, 2, 1},
    {0x178, 0x178, 1, -121},
    {0x179, 0x17D, 2, 1},
    // Greek; a final sigma is a sigma
    {0x386, 0x386, 1, 38},
    {0x388, 0x38A, 1, 37},
    {0x38C, 0x38C, 1, 64},
    {0x38E, 0x38F, 1, 63},
    {0x391, 0x3A1, 1, 32},
    {0x3A3, 0x3AB, 1, 32},
    {0x3C2, 0x3C2, 1, 1},
    // Cyrillic
    {0x400, 0x40F, 1, 80},
    {0x410, 0x42F, 1, 32},
    {0x48A, 0x4BE, 2, 1},
    {0x4D0, 0x52E, 2, 1},
    // Latin Extended Additional, for Vietnamese
    {0x1E00, 0x1E94, 2, 1},
    {0x1EA0, 0x1EFE, 2, 1},
};

char32_t small(char32_t letter) {
  const auto isOf = [&](const Capitals& range) {
    return letter >= range.first && letter <= range.last &&
           (letter - range.first) % range.step == 0;
  };
  const auto* range = std::find_if(std::begin(kCapitals), std::end(kCapitals), isOf);
  if (range == std::end(kCapitals)) return letter;
  return static_cast<char32_t>(static_cast<std::int32_t>(letter) + range->toSmall);
}

struct Blanks {
  char32_t first, last;
};

constexpr Blanks kBlanks[] = {
    {0x09, 0x0D},     {0x20, 0x20},     {0xA0, 0xA0},     {0x2000, 0x200B},
    {0x202F, 0x202F}, {0x205F, 0x205F}, {0x3000, 0x3000}, {0xFEFF, 0xFEFF},
};

bool isBlank(char32_t character) {
  return std::any_of(std::begin(kBlanks), std::end(kBlanks), [&](const Blanks& range) {
    return character >= range.first && character <= range.last;
  });
}

}  // namespace

std::u32string folded(std::string_view name) {
  std::u32string result;
  while (!name.empty()) {
    const Character next = firstOf(name);
    if (!isBlank(next.code)) result += small(next.code);
    name.remove_prefix(next.bytes);
  }
  return result;
}

}  // namespace vxmeta
