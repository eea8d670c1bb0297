// SPDX-License-Identifier: Apache-2.0
// Characters and words of ASCII, whatever the process locale.
#pragma once

#include <algorithm>
#include <string_view>

namespace xmpl {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr char lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
constexpr bool isXmlBlank(char c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }
constexpr bool isLetter(char c) { return lowered(c) >= 'a' && lowered(c) <= 'z'; }

// Without regard to the case of letters.
constexpr bool startsWithAnyCase(std::string_view text, std::string_view begin) {
  return text.size() >= begin.size() &&
         std::equal(begin.begin(), begin.end(), text.begin(),
                    [](char a, char b) { return lowered(a) == lowered(b); });
}
constexpr bool equalsAnyCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && startsWithAnyCase(a, b);
}

}  // namespace xmpl
