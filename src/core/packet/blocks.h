// SPDX-License-Identifier: Apache-2.0
// Sixteen characters of a text, looked at in one go.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace xmpl {

inline constexpr std::size_t kBlockBytes = 16;
// Comparing one with a character gives another, which has all bits set where it holds.
using Block = unsigned char __attribute__((vector_size(kBlockBytes)));

inline Block blockAt(const char* from) {
  Block block;
  std::memcpy(&block, from, kBlockBytes);
  return block;
}

// As many bytes, once or twice.
template <std::size_t kBytes>
void copyEnds(char* to, const char* from, std::size_t size) {
  std::memcpy(to, from, kBytes);
  std::memcpy(to + size - kBytes, from + size - kBytes, kBytes);
}

// Fewer characters than a block has: two moves that overlap are less than a call.
inline void copyShort(char* to, const char* from, std::size_t size) {
  if (size >= 8) {
    copyEnds<8>(to, from, size);
  } else if (size >= 4) {
    copyEnds<4>(to, from, size);
  } else {
    for (std::size_t i = 0; i < size; ++i) to[i] = from[i];
  }
}

// Fewer characters, and blanks behind them.
inline Block blockAt(const char* from, std::size_t size) {
  std::array<char, kBlockBytes> characters;
  characters.fill(' ');
  copyShort(characters.data(), from, size);
  return blockAt(characters.data());
}

// The characters for which a comparison of their block holds.
class Found {
 public:
#ifdef __SSE2__
  template <class Comparison>
  explicit Found(const Comparison& comparison)
      : bits_(static_cast<unsigned>(_mm_movemask_epi8(reinterpret_cast<__m128i>(comparison)))) {}

  bool any() const { return bits_ != 0; }
  // How many stand before the first, if there is any.
  std::size_t before() const { return static_cast<std::size_t>(std::countr_zero(bits_)); }

 private:
  unsigned bits_;
#else
  template <class Comparison>
  explicit Found(const Comparison& comparison) {
    static_assert(sizeof halves_ == sizeof comparison);
    std::memcpy(halves_.data(), &comparison, sizeof halves_);
  }

  bool any() const { return (halves_[0] | halves_[1]) != 0; }
  // How many stand before the first, if there is any.
  std::size_t before() const {
    return halves_[0] != 0 ? zeroBytes(halves_[0]) : kBlockBytes / 2 + zeroBytes(halves_[1]);
  }

 private:
  static std::size_t zeroBytes(std::uint64_t bytes) {
    const bool isLittle = std::endian::native == std::endian::little;
    return static_cast<std::size_t>(isLittle ? std::countr_zero(bytes) : std::countl_zero(bytes)) /
           8;
  }

  std::array<std::uint64_t, 2> halves_;
#endif
};

}  // namespace xmpl
