// SPDX-License-Identifier: Apache-2.0
// Sixteen characters of a text, looked at in one go.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace xmpl {

inline constexpr std::size_t kBlockBytes = 16;
// Comparing one with a character gives another, which has all bits set where it holds.
using Block = unsigned char __attribute__((vector_size(kBlockBytes)));

inline Block blockAt(const char* from) {
  Block block;
  std::memcpy(&block, from, kBlockBytes);
  return block;
}

// How many characters stand before the first for which a comparison of their block holds.
template <class Comparison>
std::size_t charactersBefore(const Comparison& comparison) {
  std::array<std::uint64_t, 2> halves;
  static_assert(sizeof halves == sizeof comparison);
  std::memcpy(halves.data(), &comparison, sizeof halves);
  if ((halves[0] | halves[1]) == 0) return kBlockBytes;
  const auto zeroBytes = [](std::uint64_t bytes) {
    const bool isLittle = std::endian::native == std::endian::little;
    return static_cast<std::size_t>(isLittle ? std::countr_zero(bytes) : std::countl_zero(bytes)) /
           8;
  };
  return halves[0] != 0 ? zeroBytes(halves[0]) : kBlockBytes / 2 + zeroBytes(halves[1]);
}

}  // namespace xmpl
