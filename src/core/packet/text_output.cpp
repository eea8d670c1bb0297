#include "core/packet/text_output.h"

#include <cstdint>

namespace xmpl {
namespace {

constexpr std::array<bool, 256> specialAre(std::string_view characters) {
  std::array<bool, 256> special{};
  for (std::size_t control = 0; control < 0x20; ++control) special[control] = true;
  for (const char c : characters) special[static_cast<unsigned char>(c)] = true;
  return special;
}

template <Place kPlace>
constexpr std::array<bool, 256> kSpecial = specialAre("&<>\"");
template <>
constexpr std::array<bool, 256> kSpecial<Place::element> = specialAre("&<>");
// The toolkit writes '>' here as it is, and a load takes it.
template <>
constexpr std::array<bool, 256> kSpecial<Place::toolkitForgets> = specialAre("&<\"");

constexpr std::size_t kMostEscaped = 6;  // bytes that one becomes

constexpr std::size_t kBlock = 16;
using Block = unsigned char __attribute__((vector_size(kBlock)));

// Whether nothing in a block is escaped, in any place.
bool isPlain(const char* from) {
  Block block;
  std::memcpy(&block, from, kBlock);
  const auto special =
      (block < 0x20) | (block == '&') | (block == '<') | (block == '>') | (block == '"');
  std::array<std::uint64_t, 2> halves;
  static_assert(sizeof halves == sizeof special);
  std::memcpy(halves.data(), &special, sizeof halves);
  return (halves[0] | halves[1]) == 0;
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

}  // namespace

void TextOutput::flush() {
  text_.append(buffer_.data(), static_cast<std::size_t>(at_ - buffer_.data()));
  at_ = buffer_.data();
  if (text_.size() > limit_) refuse_();
}

template <Place kPlace>
void TextOutput::escape(std::string_view text) {
  while (!text.empty()) {
    std::size_t plain = 0;
    while (text.size() - plain >= kBlock && isPlain(text.data() + plain)) plain += kBlock;
    if (plain > 0) append(text.substr(0, plain));
    room(kBlock * kMostEscaped);
    text.remove_prefix(plain + escapeEach(kSpecial<kPlace>, text.substr(plain, kBlock)));
  }
  room(0);
}

void TextOutput::append(std::string_view text) {
  for (; !text.empty(); text.remove_prefix(std::min(text.size(), kLongest))) {
    room(std::min(text.size(), kLongest));
    put(text.substr(0, kLongest));
  }
}

std::size_t TextOutput::escapeEach(const Special& special, std::string_view text) {
  char* to = at_;
  std::size_t i = 0;
  while (i < text.size() && !special[static_cast<unsigned char>(text[i])]) *to++ = text[i++];
  at_ = to;
  if (i == text.size()) return i;
  put(escaped(text[i]));
  return i + 1;
}

template void TextOutput::escape<Place::element>(std::string_view);
template void TextOutput::escape<Place::attribute>(std::string_view);
template void TextOutput::escape<Place::toolkitForgets>(std::string_view);

void TextOutput::blanks(std::size_t count) {
  room(count);
  std::memset(at_, ' ', count);
  at_ += count;
  room(0);
}

}  // namespace xmpl
