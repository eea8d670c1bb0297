// SPDX-License-Identifier: Apache-2.0
#include "files/packet_text.h"

#include <algorithm>
#include <cstdint>

#include "files/packet_file.h"
#include "files/packet_wrapper.h"

namespace vxmeta {
namespace {

constexpr std::size_t kNone = std::string::npos;
constexpr std::size_t kLine = 100;  // blanks in a line of padding

void appendUnit(std::string& text, std::uint32_t unit, Encoding encoding) {
  const char high = static_cast<char>(unit >> 8);
  const char low = static_cast<char>(unit & 0xFF);
  text += encoding == Encoding::utf16be ? high : low;
  text += encoding == Encoding::utf16be ? low : high;
}

void appendCharacter(std::string& text, std::uint32_t character, Encoding encoding) {
  if (character < 0x10000) return appendUnit(text, character, encoding);
  appendUnit(text, 0xD800 + ((character - 0x10000) >> 10), encoding);
  appendUnit(text, 0xDC00 + ((character - 0x10000) & 0x3FF), encoding);
}

[[noreturn]] void throwNotUtf8() {
  throw FileError("the new packet is not UTF-8, and cannot be made UTF-16 as the old one is");
}

// Takes the first character from the text.
std::uint32_t takeCharacter(std::string_view& utf8) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
  const std::size_t length = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
  if (length > utf8.size() || (byte(0) & 0xC0) == 0x80) throwNotUtf8();
  std::uint32_t character = length == 1 ? byte(0) : byte(0) & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) throwNotUtf8();
    character = character << 6 | (byte(i) & 0x3FU);
  }
  utf8.remove_prefix(length);
  return character;
}

std::size_t unitOf(Encoding encoding) { return encoding == Encoding::utf8 ? 1 : 2; }

std::string padding(std::size_t characters, Encoding encoding) {
  std::string blanks(characters, ' ');
  for (std::size_t i = 0; i < characters; i += kLine + 1) blanks[i] = '\n';
  if (characters > 0) blanks.back() = '\n';
  return stored(blanks, encoding);
}

// A packet in its parts, one behind the other.
struct Parts {
  std::string_view before;  // through the first line of the wrapper, or the prolog
  std::string_view body;
  std::string_view padding;
  std::string_view after;  // from the last line of the wrapper
  PacketFacts facts;
};

// Where the element begins in a text without wrapper.
std::size_t elementIn(std::string_view text, Encoding encoding) {
  for (const char* root : {"<x:xmpmeta", "<x:xapmeta", "<rdf:RDF"}) {
    const std::size_t at = text.find(stored(root, encoding));
    if (at != kNone) return at;
  }
  return 0;
}

Parts withoutWrapper(std::string_view text, const PacketFacts& facts) {
  Parts parts;
  parts.facts = facts;
  const std::size_t begin = elementIn(text, facts.encoding);
  const std::size_t close = text.rfind(stored(">", facts.encoding));
  const std::size_t end = close == kNone ? text.size() : close + unitOf(facts.encoding);
  parts.before = text.substr(0, begin);
  parts.body = text.substr(begin, std::max(begin, end) - begin);
  parts.padding = text.substr(std::max(begin, end));
  return parts;
}

Parts partsOf(std::string_view text) {
  const PacketFacts facts = packetFacts(text);
  if (!facts.hasWrapper) return withoutWrapper(text, facts);
  const std::size_t unit = unitOf(facts.encoding);
  const std::size_t begin = text.find(stored("<?xpacket begin", facts.encoding));
  const std::string close = stored("?>", facts.encoding);
  const std::size_t body = text.find(close, begin) + close.size();
  const std::size_t end = text.rfind(stored("<?xpacket end=", facts.encoding));
  if (body > end) return withoutWrapper(text, facts);
  const std::size_t blanks = std::min(facts.padding * unit, end - body);
  Parts parts;
  parts.facts = facts;
  parts.before = text.substr(0, body);
  parts.body = text.substr(body, end - blanks - body);
  parts.padding = text.substr(end - blanks, blanks);
  parts.after = text.substr(end);
  return parts;
}

std::string joined(const Parts& parts, std::string_view padded) {
  std::string text;
  for (const std::string_view part : {parts.before, parts.body, padded, parts.after}) text += part;
  return text;
}

// A declaration that the text, as UTF-8, would not fulfil.
bool namesOtherEncoding(std::string_view prolog) {
  const bool isUtf8 = prolog.find("UTF-8") != kNone || prolog.find("utf-8") != kNone;
  return prolog.find("encoding") != kNone && !isUtf8;
}

}  // namespace

std::string storedText(std::string_view utf8, Encoding encoding) {
  if (encoding == Encoding::utf8) return std::string(utf8);
  std::string text;
  while (!utf8.empty()) appendCharacter(text, takeCharacter(utf8), encoding);
  return text;
}

std::string inPlaceOf(const std::string& old, const std::string& body) {
  Parts parts = partsOf(old);
  const Encoding encoding = parts.facts.encoding;
  std::string text = storedText(body, encoding);
  const std::string lineEnd = stored("\n", encoding);
  if (parts.facts.hasWrapper && !parts.before.empty()) text = lineEnd + text;
  parts.body = text;
  if (encoding == Encoding::utf8 && namesOtherEncoding(parts.before)) parts.before = {};
  std::string packet = joined(parts, parts.padding.empty() ? lineEnd : parts.padding);
  if (!parts.facts.writable) return packet;
  return atLength(packet, old.size()).value_or(packet);
}

std::optional<std::string> atLength(const std::string& packet, std::size_t bytes) {
  if (packet.size() == bytes) return packet;
  const Parts parts = partsOf(packet);
  const std::size_t unit = unitOf(parts.facts.encoding);
  const std::size_t rest = packet.size() - parts.padding.size();
  if (bytes < rest || (bytes - rest) % unit != 0) return std::nullopt;
  return joined(parts, padding((bytes - rest) / unit, parts.facts.encoding));
}

bool isSameButPadding(const std::string& a, const std::string& b) {
  return joined(partsOf(a), "") == joined(partsOf(b), "");
}

}  // namespace vxmeta
