// SPDX-License-Identifier: Apache-2.0
#include "files/encoding.h"

#include <algorithm>
#include <iterator>

namespace vxmeta {
namespace {

bool beginsWith(std::string_view text, std::string_view begin) {
  return text.substr(0, begin.size()) == begin;
}

std::string_view withoutMark(std::string_view text) {
  const bool hasMark = beginsWith(text, "\xEF\xBB\xBF");
  return hasMark ? text.substr(3) : text;
}

char narrowed(char high, char low) {
  const bool isMark = (high == '\xFE' && low == '\xFF');
  if (isMark) return ' ';
  return high == '\0' && static_cast<unsigned char>(low) < 0x80 ? low : '?';
}

}  // namespace

const char* nameOf(Encoding encoding) {
  constexpr const char* kNames[] = {"UTF-8", "UTF-16BE", "UTF-16LE"};
  return kNames[static_cast<int>(encoding)];
}

Encoding encodingOf(std::string_view text) {
  using namespace std::string_view_literals;
  if (beginsWith(text, "\xFE\xFF"sv) || beginsWith(text, "\0<"sv)) return Encoding::utf16be;
  if (beginsWith(text, "\xFF\xFE"sv) || beginsWith(text, "<\0"sv)) return Encoding::utf16le;
  return Encoding::utf8;
}

bool isUtf32(std::string_view text) {
  using namespace std::string_view_literals;
  constexpr std::string_view kBegins[] = {"\0\0\xFE\xFF"sv, "\xFF\xFE\0\0"sv, "\0\0\0<"sv,
                                          "<\0\0\0"sv};
  return std::any_of(std::begin(kBegins), std::end(kBegins),
                     [&](std::string_view begin) { return beginsWith(text, begin); });
}

std::string declaredEncoding(std::string_view text) {
  text = withoutMark(text);
  const std::string_view line = text.substr(0, text.find("?>"));
  const std::size_t name = line.find("encoding");
  if (!beginsWith(line, "<?xml ") || name == std::string_view::npos) return "";
  const std::size_t begin = line.find_first_of("\"'", name);
  if (begin == std::string_view::npos) return "";
  const std::size_t end = line.find(line[begin], begin + 1);
  return std::string(line.substr(begin + 1, std::min(end, line.size()) - begin - 1));
}

std::string stored(std::string_view ascii, Encoding encoding) {
  if (encoding == Encoding::utf8) return std::string(ascii);
  std::string text;
  for (const char c : ascii) {
    if (encoding == Encoding::utf16be) text += '\0';
    text += c;
    if (encoding == Encoding::utf16le) text += '\0';
  }
  return text;
}

std::string asAscii(std::string_view text, Encoding encoding) {
  std::string ascii;
  if (encoding == Encoding::utf8) {
    for (const char c : withoutMark(text)) ascii += static_cast<unsigned char>(c) < 0x80 ? c : '?';
    return ascii;
  }
  const std::size_t high = encoding == Encoding::utf16be ? 0 : 1;
  for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
    ascii += narrowed(text[i + high], text[i + 1 - high]);
  }
  return ascii;
}

}  // namespace vxmeta
