// SPDX-License-Identifier: Apache-2.0
// Options whose values are words.
#pragma once

#include <fmt/format.h>

#include <map>
#include <string>

#include "commands/commands.h"

namespace vxmeta {

// Takes the words of an enumeration, in any case of letters, and nothing else.
template <class Value>
CLI::Validator wordOf(const std::map<std::string, Value>& values) {
  const auto take = [values](std::string& word) -> std::string {
    const auto found = values.find(CLI::detail::to_lower(word));
    if (found != values.end()) return word = std::to_string(static_cast<int>(found->second)), "";
    std::string words;
    for (const auto& [known, value] : values) words += (words.empty() ? "" : ", ") + known;
    return fmt::format("'{}' is none of {}", word, words);
  };
  return CLI::Validator(take, "");
}

}  // namespace vxmeta
