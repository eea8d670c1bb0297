// SPDX-License-Identifier: Apache-2.0
#include "report/html.h"

#include "text/characters.h"

namespace vxmeta {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool isNoCharacter(const Character& character) {
  const char32_t code = character.code;
  return !character.isValid || code == 0xFFFE || code == 0xFFFF || (code >= 0x80 && code < 0xA0);
}

// U+2400 and on have pictures of the controls in their order; U+2421 is that of DEL.
std::string pictureOf(char32_t control) {
  const auto place = static_cast<char>(control == 0x7F ? 0xA1 : 0x80 + control);
  return std::string("\xE2\x90") + place;
}

bool isControl(char32_t code) {
  return (code < 0x20 && code != '\n' && code != '\t') || code == 0x7F;
}

std::string escaped(std::string_view bytes, const Character& character) {
  switch (character.code) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    default:
      return std::string(bytes);
  }
}

std::string shown(std::string_view bytes, const Character& character) {
  if (isNoCharacter(character)) return std::string(kReplacement);
  if (isControl(character.code)) return pictureOf(character.code);
  return escaped(bytes, character);
}

std::string escapedText(std::string_view text) {
  std::string html;
  html.reserve(text.size());
  while (!text.empty()) {
    const Character character = firstOf(text);
    html += shown(text.substr(0, character.bytes), character);
    text.remove_prefix(character.bytes);
  }
  return html;
}

// In an attribute a parser takes line feeds and tabs for blanks, unless they come as references.
std::string escapedAttribute(std::string_view text) {
  std::string html;
  for (const char byte : escapedText(text)) {
    if (byte == '\n') {
      html += "&#10;";
    } else if (byte == '\t') {
      html += "&#9;";
    } else {
      html += byte;
    }
  }
  return html;
}

std::string openTag(std::string_view name, Attributes attributes) {
  std::string tag = "<" + std::string(name);
  for (const Attribute& attribute : attributes) {
    if (attribute.value.empty()) continue;
    tag += " " + std::string(attribute.name) + "=\"" + escapedAttribute(attribute.value) + "\"";
  }
  return tag;
}

}  // namespace

Markup plain(std::string_view text) { return {escapedText(text)}; }

Markup value(std::string_view text) {
  return text.empty() ? Markup{} : element("bdi", plain(text));
}

std::string isolated(std::string_view text) {
  return "\u2068" + std::string(text) + "\u2069";  // NOLINT(misc-misleading-bidirectional)
}

Markup element(std::string_view name, Attributes attributes, const Markup& content) {
  return {openTag(name, attributes) + ">" + content.html + "</" + std::string(name) + ">"};
}

Markup single(std::string_view name, Attributes attributes) {
  return {openTag(name, attributes) + "/>"};
}

Markup link(const std::string& id, const Markup& content) {
  return id.empty() ? content : element("a", {{"href", "#" + id}}, content);
}

}  // namespace vxmeta
