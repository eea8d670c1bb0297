#include "core/packet/text_output.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace xmpl {
namespace {

using Special = std::array<bool, 256>;

constexpr Special specialAre(std::string_view characters) {
  Special special{};
  for (std::size_t control = 0; control < 0x20; ++control) special[control] = true;
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

// A vector of characters, looked at in one go.
constexpr std::ptrdiff_t kBlock = 16;
using Block = unsigned char __attribute__((vector_size(kBlock)));

std::ptrdiff_t leadingZeroBytes(std::uint64_t bytes) {
  const bool isLittle = std::endian::native == std::endian::little;
  return (isLittle ? std::countr_zero(bytes) : std::countl_zero(bytes)) / 8;
}

// How many characters at the beginning of a block are escaped nowhere.
std::ptrdiff_t plainBytes(const char* from) {
  Block block;
  std::memcpy(&block, from, kBlock);
  const auto special =
      (block < 0x20) | (block == '&') | (block == '<') | (block == '>') | (block == '"');
  std::array<std::uint64_t, 2> halves;
  static_assert(sizeof halves == sizeof special);
  std::memcpy(halves.data(), &special, sizeof halves);
  if ((halves[0] | halves[1]) == 0) return kBlock;
  return halves[0] != 0 ? leadingZeroBytes(halves[0]) : kBlock / 2 + leadingZeroBytes(halves[1]);
}

std::string_view escaped(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#x9;";
    case '\n':
      return "&#xA;";
    case '\r':
      return "&#xD;";
    default:
      return " ";  // as a Set stores what XML cannot hold
  }
}

// Writes to `to` what `text` becomes; answers its end. May write kBlock bytes more.
char* escapeTo(char* to, std::string_view text, const Special& special) {
  const char* from = text.data();
  const char* const end = from + text.size();
  while (from != end) {
    if (end - from >= kBlock) {
      std::memcpy(to, from, kBlock);
      const std::ptrdiff_t plain = plainBytes(from);
      from += plain;
      to += plain;
      if (plain == kBlock) continue;
    }
    while (from != end && !special[static_cast<unsigned char>(*from)]) *to++ = *from++;
    if (from == end) break;
    for (const char c : escaped(*from++)) *to++ = c;
  }
  return to;
}

}  // namespace

void TextOutput::flush() {
  text_.append(buffer_.data(), static_cast<std::size_t>(at_ - buffer_.data()));
  at_ = buffer_.data();
  if (text_.size() > limit_) refuse_();
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
