// SPDX-License-Identifier: Apache-2.0
// Text that grows at its end, at a few instructions per piece: room is made once for several, which
// are then put without a look at the bounds. They gather in a buffer that is appended to the text
// when it is full: a string cannot grow without being filled first.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "core/packet/blocks.h"

namespace xmpl {

// Where a text stands decides what is escaped in it.
enum class Place { element, attribute, toolkitForgets };

class TextOutput {
 public:
  // What to do when the text is longer than `bytes`: throw, or empty it.
  struct Limit {
    std::size_t bytes;
    void (*onMore)(std::string& text);
  };

  TextOutput(std::string& text, const Limit& limit) : text_(text), limit_(limit) {}

  // Makes room for kRoom bytes.
  void room() { room(0); }

  // These put without a look.
  template <std::size_t kSize>
  void put(const char (&literal)[kSize]) {
    std::memcpy(at_, literal, kSize - 1);
    at_ += kSize - 1;
  }
  void put(std::string_view piece) {
    copy(piece.data(), piece.size());
    at_ += piece.size();
  }
  void indent(std::size_t levels) {
    constexpr std::size_t kLevelBytes = 3;
    const std::size_t bytes = kLevelBytes * levels;
    std::memcpy(at_, kBlanks, kSmallIndent);
    if (bytes > kSmallIndent) std::memset(at_, ' ', bytes);
    at_ += bytes;
  }

  // These make their own room, and leave kRoom.
  template <Place kPlace>
  void escape(std::string_view text);
  void blanks(std::size_t count);

  // Puts what is left into the text.
  void flush();

  // Enough for a line end, the deepest indentation, the longest name and the signs of a tag.
  static constexpr std::size_t kRoom = 1024;

 private:
  static constexpr std::size_t kSmallIndent = 64;
  static constexpr char kBlanks[kSmallIndent + 1] =
      "                                                                ";

  void room(std::size_t more) {
    if (static_cast<std::size_t>(buffer_.data() + buffer_.size() - at_) < more + kRoom) flush();
  }

  // Most pieces are short.
  void copy(const char* from, std::size_t size) {
    if (size > 2 * kBlockBytes) {
      std::memcpy(at_, from, size);
    } else if (size >= kBlockBytes) {
      copyEnds<kBlockBytes>(at_, from, size);
    } else {
      copyShort(at_, from, size);
    }
  }

  std::string& text_;
  Limit limit_;
  std::array<char, 4096> buffer_;
  char* at_ = buffer_.data();
};

}  // namespace xmpl
