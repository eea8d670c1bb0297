// SPDX-License-Identifier: Apache-2.0
#include "files/packet_wrapper.h"

#include <cstring>

namespace vxmeta {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

// A character of ASCII, NUL for any other; `at` is where its code unit begins.
char characterAt(std::string_view text, std::size_t at, Encoding encoding) {
  if (encoding == Encoding::utf8) return text[at];
  const std::size_t high = encoding == Encoding::utf16be ? 0 : 1;
  return text[at + high] == '\0' ? text[at + 1 - high] : '\0';
}

bool isBlank(char c) { return c != '\0' && std::strchr(" \t\r\n", c) != nullptr; }

std::size_t blanksBefore(std::string_view text, std::size_t end, Encoding encoding) {
  const std::size_t unit = encoding == Encoding::utf8 ? 1 : 2;
  std::size_t blanks = 0;
  while (end >= unit * (blanks + 1) &&
         isBlank(characterAt(text, end - unit * (blanks + 1), encoding))) {
    ++blanks;
  }
  return blanks;
}

}  // namespace

PacketFacts packetFacts(std::string_view text) {
  PacketFacts facts;
  facts.encoding = encodingOf(text);
  facts.bytes = text.size();
  const auto find = [&](std::string_view what, std::size_t from) {
    return text.find(stored(what, facts.encoding), from);
  };
  const std::size_t begin = find("<?xpacket begin", 0);
  const std::size_t end = text.rfind(stored("<?xpacket end=", facts.encoding));
  if (begin == kNone || end == kNone || end < begin) return facts;
  const std::size_t close = find("?>", end);
  if (close == kNone) return facts;

  facts.hasWrapper = true;
  facts.bytes = close + stored("?>", facts.encoding).size() - begin;
  facts.padding = blanksBefore(text, end, facts.encoding);
  const std::string line = asAscii(text.substr(end, close - end), facts.encoding);
  facts.writable = line.find("end=\"w\"") != kNone || line.find("end='w'") != kNone;
  return facts;
}

}  // namespace vxmeta
