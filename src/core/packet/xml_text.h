// What must be known of XML as text, before it is parsed.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace xmpl {

inline constexpr std::size_t kNone = std::string_view::npos;

// A set of characters, to be asked for every character of a packet.
class CharacterSet {
 public:
  consteval explicit CharacterSet(std::string_view characters) {
    for (const char c : characters) has_[static_cast<unsigned char>(c)] = true;
  }
  constexpr bool has(char c) const { return has_[static_cast<unsigned char>(c)]; }

 private:
  std::array<bool, 256> has_{};
};

inline constexpr CharacterSet kNameCharacters(
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789:_-.");

// Of ASCII alone.
inline bool isNameCharacter(char c) { return kNameCharacters.has(c); }
inline bool isXmlBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

inline std::string_view localName(std::string_view name) {
  const std::size_t colon = name.find(':');
  return colon == kNone ? name : name.substr(colon + 1);
}

// What stands in a tag before a quoted value: blanks, the name, "=", blanks. Much is a blank there:
// before it parses, the toolkit makes blanks of control characters, of references to them and of
// some bytes that are not UTF-8.
std::string_view attributeName(std::string_view before);
std::size_t declarationIn(std::string_view before);  // the place of "xmlns" or "xmlns:prefix"

// The prefix of a text that begins with "xmlns"; for "xmlns" alone, the toolkit's name for it.
std::string_view declaredPrefix(std::string_view declaration);

// The value of an attribute as it may stand between double quotes, with no more references than it
// needs. Nothing where it has one that XML does not know.
std::optional<std::string> quotable(std::string_view value);

std::string replaced(std::string_view text, char character, std::string_view by);

enum class Encoding { bytes, utf16BigEndian, utf16LittleEndian };

// As the toolkit tells them apart. What is neither, such as UTF-32, the XML parser refuses.
Encoding encodingOf(std::string_view packet);

// A UTF-16 packet with one byte a character: structure is ASCII, and what is not becomes two bytes
// that are not, so that different names stay different.
std::string narrowed(std::string_view packet, Encoding encoding);

}  // namespace xmpl
