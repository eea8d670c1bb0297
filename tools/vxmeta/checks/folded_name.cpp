// SPDX-License-Identifier: Apache-2.0
#include "checks/folded_name.h"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace vxmeta {
namespace {

// Ends of lines and other controls too.
bool isBlank(char32_t character) {
  const auto category = utf8proc_category(static_cast<utf8proc_int32_t>(character));
  return category == UTF8PROC_CATEGORY_ZS || category == UTF8PROC_CATEGORY_CC;
}

const utf8proc_uint8_t* bytesOf(std::string_view text) {
  return reinterpret_cast<const utf8proc_uint8_t*>(text.data());
}

// Small letters apart from their accents, without what nothing shows.
std::u32string decomposed(std::string_view text) {
  constexpr auto kHow = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE |
                                                       UTF8PROC_CASEFOLD | UTF8PROC_IGNORE);
  const utf8proc_uint8_t* bytes = bytesOf(text);
  const auto length = static_cast<utf8proc_ssize_t>(text.size());
  const auto count = utf8proc_decompose(bytes, length, nullptr, 0, kHow);
  if (count < 0) return {text.begin(), text.end()};
  std::u32string result(static_cast<std::size_t>(count), U'\0');
  auto* codes = reinterpret_cast<utf8proc_int32_t*>(result.data());
  utf8proc_decompose(bytes, length, codes, count, kHow);
  return result;
}

}  // namespace

std::u32string folded(std::string_view name) {
  std::u32string result = decomposed(name);
  std::erase_if(result, isBlank);
  return result;
}

std::string settled(std::string_view text) {
  constexpr auto kHow =
      static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_NLF2LF);
  utf8proc_uint8_t* made = nullptr;
  const auto length =
      utf8proc_map(bytesOf(text), static_cast<utf8proc_ssize_t>(text.size()), &made, kHow);
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(made, std::free);
  std::string result(text);
  if (length >= 0) result.assign(made, made + length);
  while (!result.empty() && static_cast<unsigned char>(result.back()) <= ' ') result.pop_back();
  return result;
}

}  // namespace vxmeta
