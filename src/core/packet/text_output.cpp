// SPDX-License-Identifier: Apache-2.0
#include "core/packet/text_output.h"

#include <algorithm>
#include <utility>

#include "core/packet/blocks.h"

namespace xmpl {
namespace {

// A load makes a blank of it, but not of a reference to it.
constexpr unsigned char kDelete = 0x7F;

using Special = std::array<bool, 256>;

constexpr Special specialAre(std::string_view characters) {
  Special special{};
  for (std::size_t control = 0; control < 0x20; ++control) special[control] = true;
  special[kDelete] = true;
  for (const char c : characters) special[static_cast<unsigned char>(c)] = true;
  return special;
}

template <Place kPlace>
constexpr Special kSpecial = specialAre("&<>\"");
template <>
constexpr Special kSpecial<Place::element> = specialAre("&<>");
// The toolkit writes '>' here as it is, and a load takes it.
template <>
constexpr Special kSpecial<Place::toolkitForgets> = specialAre("&<\"");

constexpr std::size_t kMostEscaped = 6;  // bytes that one becomes

// What is escaped somewhere. The last two comparisons are each for two characters that differ in
// one bit.
auto specialIn(const Block& block) {
  static_assert(('&' | 0x04) == ('"' | 0x04) && ('<' | 0x02) == ('>' | 0x02));
  return (block < 0x20) | (block == kDelete) | ((block | 0x04) == '&') | ((block | 0x02) == '>');
}

struct Escape {
  std::array<char, kMostEscaped + 2> text;  // so long that it is copied in one go
  std::size_t size;
};

constexpr Escape kBlank{{' '}, 1};  // as a Set stores what XML cannot hold

const Escape& escapeOf(char c) {
  static constexpr std::pair<char, Escape> kEscapes[] = {
      {'\n', {{'&', '#', 'x', 'A', ';'}, 5}},
      {'&', {{'&', 'a', 'm', 'p', ';'}, 5}},
      {'<', {{'&', 'l', 't', ';'}, 4}},
      {'>', {{'&', 'g', 't', ';'}, 4}},
      {'"', {{'&', 'q', 'u', 'o', 't', ';'}, 6}},
      {'\t', {{'&', '#', 'x', '9', ';'}, 5}},
      {'\r', {{'&', '#', 'x', 'D', ';'}, 5}},
      {char{kDelete}, {{'&', '#', '1', '2', '7', ';'}, 6}},
  };
  for (const auto& [character, escape] : kEscapes) {
    if (character == c) return escape;
  }
  return kBlank;
}

// Writes to `to` what `text` becomes; answers its end. May write kBlockBytes more.
char* escapeTo(char* to, std::string_view text, const Special& special) {
  const char* from = text.data();
  const char* const end = from + text.size();
  while (from != end) {
    if (static_cast<std::size_t>(end - from) >= kBlockBytes) {
      const Block block = blockAt(from);
      std::memcpy(to, &block, kBlockBytes);
      const std::size_t plain = charactersBefore(specialIn(block));
      from += plain;
      to += plain;
      if (plain == kBlockBytes) continue;
    }
    while (from != end && !special[static_cast<unsigned char>(*from)]) *to++ = *from++;
    if (from == end) break;
    const Escape& escape = escapeOf(*from++);
    std::memcpy(to, escape.text.data(), escape.text.size());
    to += escape.size;
  }
  return to;
}

}  // namespace

void TextOutput::flush() {
  text_.append(buffer_.data(), static_cast<std::size_t>(at_ - buffer_.data()));
  at_ = buffer_.data();
  if (text_.size() > limit_.bytes) limit_.onMore(text_);
}

template <Place kPlace>
void TextOutput::escape(std::string_view text) {
  constexpr std::size_t kPiece = 256;
  for (; text.size() > kPiece; text.remove_prefix(kPiece)) {
    room(kPiece * kMostEscaped);
    at_ = escapeTo(at_, text.substr(0, kPiece), kSpecial<kPlace>);
  }
  room(kPiece * kMostEscaped);
  at_ = escapeTo(at_, text, kSpecial<kPlace>);
}

template void TextOutput::escape<Place::element>(std::string_view);
template void TextOutput::escape<Place::attribute>(std::string_view);
template void TextOutput::escape<Place::toolkitForgets>(std::string_view);

void TextOutput::blanks(std::size_t count) {
  for (; count > kRoom; count -= kRoom) blanks(kRoom);
  room(count);
  std::memset(at_, ' ', count);
  at_ += count;
}

}  // namespace xmpl
