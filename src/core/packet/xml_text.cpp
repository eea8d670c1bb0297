#include "core/packet/xml_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace xmpl {
namespace {

bool isXmlCharacter(std::uint32_t c) {
  return c == 0x9 || c == 0xA || c == 0xD || (c >= 0x20 && c <= 0xD7FF) ||
         (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF);
}

// The character that "&name;" stands for. Nothing where XML knows none.
std::optional<std::uint32_t> referencedBy(std::string_view name) {
  constexpr std::pair<std::string_view, char> kNamed[] = {
      {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [known, character] : kNamed) {
    if (name == known) return character;
  }
  if (!name.starts_with('#')) return {};
  const bool isHexadecimal = name.starts_with("#x");
  name.remove_prefix(isHexadecimal ? 2 : 1);
  const char* const end = name.data() + name.size();
  std::uint32_t character = 0;
  const auto [stop, error] = std::from_chars(name.data(), end, character, isHexadecimal ? 16 : 10);
  if (error != std::errc() || stop != end || !isXmlCharacter(character)) return {};
  return character;
}

std::string utf8(std::uint32_t character) {
  if (character < 0x80) return {static_cast<char>(character)};
  const auto tail = [character](int shift) {
    return static_cast<char>(0x80 | (character >> shift & 0x3F));
  };
  const auto lead = [character](unsigned marker, int shift) {
    return static_cast<char>(marker | character >> shift);
  };
  if (character < 0x800) return {lead(0xC0, 6), tail(0)};
  if (character < 0x10000) return {lead(0xE0, 12), tail(6), tail(0)};
  return {lead(0xF0, 18), tail(12), tail(6), tail(0)};
}

// As it may stand between double quotes. Bare control characters would become blanks.
std::string quotable(std::uint32_t character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '"':
      return "&quot;";
    default:
      if (character < ' ' || character == 0x7F) return "&#" + std::to_string(character) + ";";
      return utf8(character);
  }
}

}  // namespace

std::string_view attributeName(std::string_view before) {
  before = before.substr(0, before.rfind('='));
  while (!before.empty() && !isNameCharacter(before.back())) before.remove_suffix(1);
  std::size_t begin = before.size();
  while (begin > 0 && isNameCharacter(before[begin - 1])) --begin;
  return before.substr(begin);
}

std::size_t declarationIn(std::string_view before) {
  constexpr std::string_view kWord = "xmlns";
  const std::size_t begin = before.find(kWord);
  if (begin == kNone || (begin > 0 && isNameCharacter(before[begin - 1]))) return kNone;
  const std::string_view rest = before.substr(begin + kWord.size());
  return rest.starts_with(':') || rest.empty() || !isNameCharacter(rest[0]) ? begin : kNone;
}

std::string_view declaredPrefix(std::string_view declaration) {
  constexpr std::string_view kDefaultPrefix = "_dflt_";
  const auto mayBeInName = [](char c) {
    return isNameCharacter(c) || static_cast<unsigned char>(c) >= 0x80;
  };
  const auto end = std::find_if_not(declaration.begin(), declaration.end(), mayBeInName);
  const std::string_view name(declaration.begin(), end);
  const std::size_t colon = name.find(':');
  return colon == kNone ? kDefaultPrefix : name.substr(colon + 1);
}

std::optional<std::string> quotable(std::string_view value) {
  std::string text;
  while (!value.empty()) {
    std::size_t length = 1;
    if (value[0] == '&') {
      length = std::min(value.find(';'), value.size() - 1) + 1;
      const auto character = referencedBy(value.substr(1, length - 2));
      if (!character || value[length - 1] != ';') return {};
      text += quotable(*character);
    } else if (value[0] == '"') {
      text += "&quot;";
    } else {
      text += value[0];
    }
    value.remove_prefix(length);
  }
  return text;
}

std::string replaced(std::string_view text, char character, std::string_view by) {
  std::string result;
  for (const char c : text) {
    if (c == character) {
      result += by;
    } else {
      result += c;
    }
  }
  return result;
}

Encoding encodingOf(std::string_view packet) {
  if (packet.size() < 2) return Encoding::bytes;
  const auto first = static_cast<unsigned char>(packet[0]);
  if (first == 0 || first == 0xFE) return Encoding::utf16BigEndian;
  if (first == 0xEF || (first < 0x80 && packet[1] != 0)) return Encoding::bytes;
  return Encoding::utf16LittleEndian;
}

std::string narrowed(std::string_view packet, Encoding encoding) {
  const std::size_t high = encoding == Encoding::utf16BigEndian ? 0 : 1;
  std::string text;
  text.reserve(packet.size() / 2);
  for (std::size_t i = 0; i + 1 < packet.size(); i += 2) {
    const auto highByte = static_cast<unsigned char>(packet[i + high]);
    const auto lowByte = static_cast<unsigned char>(packet[i + 1 - high]);
    if (highByte != 0 || lowByte >= 0x80) text += static_cast<char>(highByte | 0x80);
    text += static_cast<char>(highByte != 0 ? lowByte | 0x80 : lowByte);
  }
  return text;
}

}  // namespace xmpl
